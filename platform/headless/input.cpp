// Mouse, capture and keys.
#include <utility>

#include "platform/headless/desktop_state.h"

namespace desktop {

// Messages and key of each button.
struct ButtonRow {
    int key;
    UINT down, up, doubleClick;
};
static constexpr ButtonRow Buttons[] = {{VK_LBUTTON, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK},
                                        {VK_RBUTTON, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK}};

static WPARAM KeysInMouseMessages() {
    static constexpr struct {
        int key;
        WPARAM flag;
    } Flags[] = {{VK_LBUTTON, MK_LBUTTON}, {VK_RBUTTON, MK_RBUTTON}, {VK_SHIFT, MK_SHIFT}, {VK_CONTROL, MK_CONTROL}};
    WPARAM flags = 0;
    for (const auto& row : Flags)
        if (Desktop().keys[row.key]) flags |= row.flag;
    return flags;
}

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
    PostMessageA(window->handle, message, KeysInMouseMessages(), MAKELPARAM(at.x - area.left, at.y - area.top));
}

void MoveMouse(int x, int y) {
    Desktop().cursor = {x, y};
    PostMouse(WM_MOUSEMOVE);
    Pump();
}

// The second press at one place and within half a second is a double click, for windows whose class asks for such; a
// third is a first again.
static bool IsDoubleClick(const Window& window, Button button) {
    State& state = Desktop();
    const Click click{window.handle, button, state.cursor, state.now}, last = std::exchange(state.lastClick, click);
    const bool again = last.window == click.window && last.button == click.button && last.at.x == click.at.x &&
                       last.at.y == click.at.y && click.when - last.when <= 500;
    if (again) state.lastClick = {};
    return again && (window.kind.style & CS_DBLCLKS);
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
    if (const Window* window = Listener()) PostMouse(IsDoubleClick(*window, button) ? row.doubleClick : row.down);
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
    PostMessageA(Desktop().active, WM_MOUSEWHEEL, KeysInMouseMessages() | MAKEWPARAM(0, delta), MAKELPARAM(at.x, at.y));
    Pump();
}

void HoldKey(int key, bool down) {
    Desktop().keys[key] = down;
}

}  // namespace desktop

using namespace desktop;

static HWND ChangeCapture(HWND window) {
    const HWND previous = std::exchange(Desktop().capture, window);
    SendMessageA(previous, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(window));
    return previous;
}

HWND SetCapture(HWND window) {
    return Find(window) ? ChangeCapture(window) : nullptr;
}

HWND GetCapture() {
    return Desktop().capture;
}

BOOL ReleaseCapture() {
    ChangeCapture(nullptr);
    return true;
}

BOOL GetCursorPos(POINT* point) {
    *point = Desktop().cursor;
    return true;
}

SHORT GetAsyncKeyState(int key) {
    return static_cast<SHORT>(Desktop().keys[key] ? 0x8000 : 0);
}
