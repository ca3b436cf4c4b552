// apps/studio/view.h
// The window's places, in pixels of the client area: the project's view from left to right, the tracks from the top
// down.
#pragma once
#include "apps/common/arrangement.h"

class View {
  public:
    explicit View(simhost::Host& host) : host_(host) {}

    static double Scale();  // how many pixels stand for one at 96 to the inch
    static int Scaled(int pixels) { return static_cast<int>(pixels * Scale() + 0.5); }
    void Resize(int width, int height) { width_ = width, height_ = height; }
    int Height() const { return height_; }
    double Seconds() const;  // held to what can be painted, whatever the project's view says
    ArrangementLayout Layout() const;

    double TimeAt(int x) const;  // never before 0
    int ColumnOf(double time) const;
    bool InRuler(int y) const { return y < Layout().rulerHeight; }
    bool InHeader(int x) const { return x < Layout().headerWidth; }
    simhost::Track* TrackAt(int y);
    simhost::Item* ItemAt(int x, int y);                                        // the one painted on top; null: none
    int TakeAt(const simhost::Item& item, int y) const;                         // of takes in lanes
    RECT PlaceOf(const simhost::Track& track, double start, double end) const;  // of an item there

    void Zoom(double factor, int x);  // above 1 shows less time; what stands at x stays there
    void ScrollTo(double start);      // seconds, held to what there can be
    void ScrollDownTo(int pixels);    // of the tracks, held to what there is
    void ShowAll(int room = 0);       // leaves that many pixels free at the right
    bool Follow(double time);         // turns the page when the time has left it; true when it did

  private:
    simhost::Host& host_;
    int width_ = 1, height_ = 1, scrolled_ = 0;
};
