// Mouse, capture and keys.
#include <utility>

#include "platform/headless/desktop_state.h"

namespace desktop {

// Messages and key of each button.
struct ButtonRow {
    int key;
    UINT down, up;
};
static constexpr ButtonRow Buttons[] = {{VK_LBUTTON, WM_LBUTTONDOWN, WM_LBUTTONUP},
                                        {VK_RBUTTON, WM_RBUTTONDOWN, WM_RBUTTONUP}};

static Window* WindowAt(POINT point) {
    for (Window& each : Desktop().windows)
        if (OnScreen(each) && Contains(each.place, point)) return &each;
    return nullptr;
}

// The window that hears of the mouse at the pointer's place; null over frames and where there is no window.
static Window* Listener() {
    State& state = Desktop();
    if (Window* captor = Find(state.capture)) return captor;
    Window* window = WindowAt(state.cursor);
    return window && Contains(ClientArea(*window), state.cursor) ? window : nullptr;
}

static void PostMouse(UINT message) {
    const Window* window = Listener();
    if (!window) return;
    const RECT area = ClientArea(*window);
    const POINT at = Desktop().cursor;
    PostMessageA(window->handle, message, 0, MAKELPARAM(at.x - area.left, at.y - area.top));
}

void MoveMouse(int x, int y) {
    Desktop().cursor = {x, y};
    PostMouse(WM_MOUSEMOVE);
    Pump();
}

void Press(Button button) {
    State& state = Desktop();
    const ButtonRow& row = Buttons[static_cast<int>(button)];
    state.keys[row.key] = true;
    if (!Find(state.capture)) {
        const Window* window = WindowAt(state.cursor);
        if (!window) return ActivateOtherProgram();
        Activate(window->handle, WA_CLICKACTIVE);
    }
    PostMouse(row.down);
    Pump();
}

void Release(Button button) {
    const ButtonRow& row = Buttons[static_cast<int>(button)];
    if (!Desktop().keys[row.key]) return;
    Desktop().keys[row.key] = false;
    PostMouse(row.up);
    Pump();
}

void Wheel(int delta) {
    const POINT at = Desktop().cursor;
    PostMessageA(Desktop().active, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(at.x, at.y));
    Pump();
}

void HoldKey(int key, bool down) {
    Desktop().keys[key] = down;
}

}  // namespace desktop

using namespace desktop;

HWND SetCapture(HWND window) {
    return Find(window) ? std::exchange(Desktop().capture, window) : nullptr;
}

HWND GetCapture() {
    return Desktop().capture;
}

BOOL ReleaseCapture() {
    Desktop().capture = nullptr;
    return true;
}

BOOL GetCursorPos(POINT* point) {
    *point = Desktop().cursor;
    return true;
}

SHORT GetAsyncKeyState(int key) {
    return static_cast<SHORT>(Desktop().keys[key] ? 0x8000 : 0);
}
