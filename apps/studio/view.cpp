#include "apps/studio/view.h"

#include <algorithm>
#include <cmath>

using simhost::TimeRange;

constexpr double ShortestView = 0.01, LongestView = 24 * 3600.0;

simhost::ArrangementLayout View::Layout() const {
    simhost::ArrangementLayout layout;
    layout.columnFrames = 4096;  // an hour of sound has to be painted while the wheel turns
    const int tracks = std::max(1, host_.project.tracks.Count());
    layout.laneHeight = std::min(host_.laneHeight, std::max(24, (height_ - layout.rulerHeight) / tracks));
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
    const simhost::ArrangementLayout layout = Layout();
    return y < layout.rulerHeight ? nullptr : host_.project.tracks.At((y - layout.rulerHeight) / layout.laneHeight);
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
    const double seconds = Seconds(), from = std::max(0.0, start);
    host_.project.view = {from, from + seconds};
}

void View::Scroll(double screens) {
    ScrollTo(host_.project.view.start + Seconds() * screens);
}

void View::ShowAll() {
    host_.project.view = {0, std::max(1.0, ProjectEnd(host_.project) * 1.02)};
}

void View::Follow(double time) {
    if (time < host_.project.view.start || time >= host_.project.view.end) ScrollTo(time);
}
