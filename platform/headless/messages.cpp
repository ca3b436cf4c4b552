// Sending, posting and delivering messages, and what a window does with those that it leaves alone.
#include <cstdio>
#include <cstdlib>

#include "platform/headless/desktop_state.h"

namespace desktop {

void Fail(const char* sentence) {
    std::fprintf(stderr, "headless desktop: %s\n", sentence);
    std::abort();
}

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

void Pump() {
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

}  // namespace desktop

using namespace desktop;

LRESULT SendMessageA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const Window* window = Find(handle);
    return window ? window->procedure(handle, message, wParam, lParam) : 0;
}

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!Find(window)) return false;
    Desktop().queue.push_back({window, message, wParam, lParam});
    return true;
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return procedure(window, message, wParam, lParam);
}

LRESULT DefWindowProcA(HWND handle, UINT message, WPARAM, LPARAM) {
    if (message == WM_CLOSE) DestroyWindow(handle);
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        BeginPaint(handle, &paint);
        EndPaint(handle, &paint);
    }
    return 0;
}
