// The message loop: what waits is delivered in the system's order.
#include "platform/headless/desktop_state.h"

using namespace desktop;

static bool DeliverPosted() {
    State& state = Desktop();
    if (state.queue.empty()) return false;
    const Message next = state.queue.front();
    state.queue.erase(state.queue.begin());
    SendMessageA(next.window, next.message, next.wParam, next.lParam);
    return true;
}

static bool DeliverPaint() {
    for (const Window& each : Desktop().windows)
        if (each.invalid) {
            SendMessageA(each.handle, WM_PAINT, 0, 0);
            return true;
        }
    return false;
}

static bool DeliverTimer() {
    State& state = Desktop();
    Timer* next = nullptr;
    for (Timer& each : state.timers)
        if (each.due <= state.now && (!next || each.due < next->due)) next = &each;
    if (!next) return false;
    next->due = state.now + next->interval;  // ticks that were missed do not pile up
    SendMessageA(next->window, WM_TIMER, next->id, 0);
    return true;
}

void desktop::Pump() {
    int paintings = 0;
    for (;;) {
        if (DeliverPosted()) {
            paintings = 0;
        } else if (DeliverPaint()) {
            if (++paintings == 1000) Fail("a window asks for painting without end");
        } else if (DeliverTimer()) {
            paintings = 0;
        } else {
            return;
        }
    }
}
