#include "platform/headless/desktop_state.h"

#include <cstdio>
#include <cstdlib>

namespace desktop {

State& Desktop() {
    static State& state = *new State;  // outlives every static object that still has a window
    return state;
}

Window* Find(HWND window) {
    for (Window& each : Desktop().windows)
        if (each.handle == window) return &each;
    return nullptr;
}

bool OnScreen(const Window& window) { return window.visible && !window.minimised; }

void Invalidate(Window& window) {
    if (OnScreen(window)) window.invalid = true;
}

void Fail(const char* sentence) {
    std::fprintf(stderr, "headless desktop: %s\n", sentence);
    std::abort();
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
