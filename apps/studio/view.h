// apps/studio/view.h
// What stands where in the window: the stretch of time that the project's view shows, and the tracks below each other.
// Places are pixels of the client area.
#pragma once
#include "simhost/arrangement.h"

class View {
  public:
    explicit View(simhost::Host& host) : host_(host) {}

    void Resize(int width, int height) { width_ = width, height_ = height; }
    // Tracks share the height there is when they would not fit otherwise.
    simhost::ArrangementLayout Layout() const;

    double TimeAt(int x) const;  // never before 0
    int ColumnOf(double time) const;
    bool InRuler(int y) const { return y < Layout().rulerHeight; }
    bool InHeader(int x) const { return x < Layout().headerWidth; }
    simhost::Track* TrackAt(int y);
    simhost::Item* ItemAt(int x, int y);  // of items one over another, the one painted on top; null: none

    void Zoom(double factor, int x);  // above 1 shows less time; what stands at x stays there
    void ScrollTo(double start);      // seconds, held to 0
    void Scroll(double screens);      // by that part of what is shown
    void ShowAll();
    void Follow(double time);  // turns the page when the time has left it

  private:
    double Seconds() const { return host_.project.view.end - host_.project.view.start; }

    simhost::Host& host_;
    int width_ = 1, height_ = 1;
};
