#include "apps/studio/view.h"

#include <algorithm>

#include "host/actions.h"

using simhost::TimeRange;

constexpr double ShortestView = 0.01, LongestView = 24 * 3600.0, LatestStart = 1e6;

double View::Scale() {
    static const double scale = [] {
        const HDC screen = GetDC(nullptr);
        const int perInch = GetDeviceCaps(screen, LOGPIXELSX);
        ReleaseDC(nullptr, screen);
        return std::max(perInch, 96) / 96.0;
    }();
    return scale;
}

double View::Seconds() const {
    return std::clamp(host_.project.view.end - host_.project.view.start, ShortestView, LongestView);
}

ArrangementLayout View::Layout() const {
    ArrangementLayout layout;
    layout.columnFrames = 4096;  // an hour of sound has to be painted while the wheel turns
    layout.scale = Scale();
    layout.headerWidth = Scaled(layout.headerWidth);
    layout.rulerHeight = Scaled(layout.rulerHeight);
    layout.laneHeight = Scaled(host_.screen.laneHeight);
    layout.takesInLanes = host_.actions.toggles[acao::AlternarTakesEmPistas] != 0;
    // Tracks may have gone since the user scrolled.
    layout.scrolled = std::clamp(scrolled_, 0, std::max(0, ArrangementHeight(host_.project, layout) - height_));
    return layout;
}

double View::TimeAt(int x) const {
    const int header = Layout().headerWidth;
    return std::max(0.0, host_.project.view.start + Seconds() * (x - header) / std::max(1, width_ - header));
}

int View::ColumnOf(double time) const {
    const int header = Layout().headerWidth;
    const double x = header + (time - host_.project.view.start) / Seconds() * (width_ - header);
    return static_cast<int>(std::clamp(x, -1.0, width_ + 1.0));
}

simhost::Track* View::TrackAt(int y) {
    if (InRuler(y)) return nullptr;
    const ArrangementLayout layout = Layout();
    for (int i = 0; simhost::Track* track = host_.project.tracks.At(i); ++i)
        if (y < LaneOf(host_.project, *track, layout).bottom) return track;
    return nullptr;
}

int View::TakeAt(const simhost::Item& item, int y) const {
    const RECT place = PlaceOf(*item.track, 0, 0);
    const auto takes = static_cast<LONG>(item.takes.size());
    return std::clamp((y - place.top) * takes / (place.bottom - place.top), 0L, std::max(0L, takes - 1));
}

RECT View::PlaceOf(const simhost::Track& track, double start, double end) const {
    const auto [top, bottom] = LaneOf(host_.project, track, Layout());
    return {std::max(ColumnOf(start), Layout().headerWidth), top + 4, ColumnOf(end), bottom - 6};
}

simhost::Item* View::ItemAt(int x, int y) {
    simhost::Track* track = TrackAt(y);
    if (!track || InHeader(x)) return nullptr;
    const double time = TimeAt(x);
    simhost::Item* top = nullptr;
    for (simhost::Box<simhost::Item>& item : track->items)
        if (item->position <= time && time < item->End()) top = &*item;
    return top;
}

void View::Zoom(double factor, int x) {
    TimeRange& view = host_.project.view;
    const int header = Layout().headerWidth;
    const double share = std::clamp((x - header) / static_cast<double>(std::max(1, width_ - header)), 0.0, 1.0);
    const double still = view.start + Seconds() * share;
    const double seconds = std::clamp(Seconds() / factor, ShortestView, LongestView);
    view.end = view.start + seconds;
    ScrollTo(still - seconds * share);
}

void View::ScrollTo(double start) {
    const double seconds = Seconds(), from = std::min(std::max(0.0, start), LatestStart);
    host_.project.view = {from, from + seconds};
}

void View::ScrollDownTo(int pixels) {
    scrolled_ = pixels;
    scrolled_ = Layout().scrolled;
}

void View::ShowAll(int room) {
    const double lanes = std::max(1, width_ - Layout().headerWidth), shown = std::max(lanes - room, lanes / 4);
    const double end = std::max(1.0, ProjectEnd(host_.project) * (room ? 1 : 1.02));
    host_.project.view = {0, end * lanes / shown};
}

bool View::Follow(double time) {
    const bool left = time < host_.project.view.start || time >= host_.project.view.end;
    if (left) ScrollTo(time);
    return left;
}
