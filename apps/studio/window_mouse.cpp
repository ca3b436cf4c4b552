#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "apps/studio/window.h"
#include "host/actions.h"

constexpr int DragSlack = 3;                           // pixels that a click may move
constexpr double WheelZoom = 1.25, WheelScroll = 0.1;  // of what is shown
constexpr int WheelRows = 60;                          // pixels

bool StudioWindow::HandleMouse(UINT message, WPARAM w, POINT at) {
    switch (message) {
        case WM_LBUTTONDOWN:
            Press(at, w & MK_CONTROL);
            return true;
        case WM_MOUSEMOVE:
            Drag(at);
            return true;
        case WM_LBUTTONUP:
            Release(at, w & MK_CONTROL);
            return true;
        case WM_CAPTURECHANGED:
            pressed_ = dragging_ = false;
            return true;
        case WM_MOUSEWHEEL:
            Wheel(GET_WHEEL_DELTA_WPARAM(w), at, GET_KEYSTATE_WPARAM(w));
            return true;
        case WM_HSCROLL:
        case WM_VSCROLL:
            ScrollBar(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(w));
            return true;
        case WM_DROPFILES:
            Drop(reinterpret_cast<HDROP>(w));
            return true;
    }
    return false;
}

void StudioWindow::Press(POINT at, bool adding) {
    SetFocus(window_);
    if (view_.InHeader(at.x)) {
        SelectTrack(view_.TrackAt(at.y), adding);
        return Stale();
    }
    pressed_ = true;
    pressedAt_ = at;
    SetCapture(window_);
}

void StudioWindow::SelectTrack(simhost::Track* track, bool adding) {
    if (!adding) host_.RunAction(acao::DesselecionarFaixas);
    if (track) track->selected = !(adding && track->selected);
}

void StudioWindow::ChooseTake(simhost::Item& item, int take) {
    if (take == item.activeTake) return;
    host_.undo.Begin();
    item.activeTake = take;
    host_.undo.End("Escolher tomada");
}

void StudioWindow::Drag(POINT at) {
    dragging_ = pressed_ && (dragging_ || std::abs(at.x - pressedAt_.x) > DragSlack);
    if (!dragging_) return;
    const auto [start, end] = std::minmax({view_.TimeAt(pressedAt_.x), view_.TimeAt(at.x)});
    host_.project.timeSelection = host_.project.loop = {start, end};
    Stale();
}

void StudioWindow::Release(POINT at, bool adding) {
    const bool clicked = pressed_ && !dragging_;
    ReleaseCapture();  // ends the press
    if (!clicked) return;
    if (!view_.InRuler(at.y)) {
        simhost::Item* item = view_.ItemAt(at.x, at.y);
        const bool selected = item && !(adding && item->selected);
        if (!adding) {
            host_.project.tracks.SelectAll(false);
            SelectTrack(view_.TrackAt(at.y), false);
        }
        if (item) host_.project.tracks.Select(*item, selected);
        if (item && view_.Layout().takesInLanes) ChooseTake(*item, view_.TakeAt(*item, at.y));
    }
    if (!adding) {
        host_.project.cursor = view_.TimeAt(at.x);
        if (host_.transport.state & 1) host_.transport.position = host_.project.cursor;
    }
    Stale();
}

// Zooms around the mouse; scrolls in time with Shift, from track to track with Ctrl.
void StudioWindow::Wheel(int delta, POINT at, WORD keys) {
    ScreenToClient(window_, &at);
    const double notches = static_cast<double>(delta) / WHEEL_DELTA;
    if (keys & MK_CONTROL)
        view_.ScrollDownTo(view_.Layout().scrolled - static_cast<int>(notches * WheelRows));
    else if (keys & MK_SHIFT)
        view_.ScrollTo(host_.project.view.start - notches * WheelScroll * view_.Seconds());
    else
        view_.Zoom(std::pow(WheelZoom, notches), at.x);
    Stale();
}

void StudioWindow::ScrollBar(int bar, int code) {
    SCROLLINFO now{sizeof now, SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(window_, bar, &now);
    const int page = static_cast<int>(now.nPage);
    const int to = code == SB_LINELEFT     ? now.nPos - page / 10  // the codes of the upright bar are the same
                   : code == SB_LINERIGHT  ? now.nPos + page / 10
                   : code == SB_PAGELEFT   ? now.nPos - page
                   : code == SB_PAGERIGHT  ? now.nPos + page
                   : code == SB_THUMBTRACK ? now.nTrackPos
                                           : now.nPos;
    if (bar == SB_HORZ)
        view_.ScrollTo(to / 1000.0);
    else
        view_.ScrollDownTo(to);
    Stale();
}
