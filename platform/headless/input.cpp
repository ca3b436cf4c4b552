// Mouse and keys.
#include "platform/headless/activation.h"

namespace desktop {

struct ButtonRow {
    int key;
    UINT down, up;
};
static constexpr ButtonRow Buttons[] = {{VK_LBUTTON, WM_LBUTTONDOWN, WM_LBUTTONUP},
                                        {VK_RBUTTON, WM_RBUTTONDOWN, WM_RBUTTONUP}};

static bool Contains(const RECT& rect, POINT point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

static HWND WindowUnderPointer() {
    for (const Window& each : Desktop().windows)
        if (OnScreen(each) && Contains(each.place, Desktop().cursor)) return each.handle;
    return nullptr;
}

// Nobody hears of the mouse over frames, or where there is no window, unless one has capture.
static void PostMouse(UINT message) {
    const State& state = Desktop();
    const bool captured = Find(state.capture);
    const HWND window = captured ? state.capture : WindowUnderPointer();
    POINT origin{0, 0};
    RECT client;
    if (!ClientToScreen(window, &origin) || !GetClientRect(window, &client)) return;
    const POINT at{state.cursor.x - origin.x, state.cursor.y - origin.y};
    if (captured || Contains(client, at)) PostMessageA(window, message, 0, MAKELPARAM(at.x, at.y));
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
        const HWND window = WindowUnderPointer();
        if (!window) return ActivateOtherProgram();
        Activate(window, WA_CLICKACTIVE);
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

void HoldKey(int key, bool down) { Desktop().keys[key] = down; }

}  // namespace desktop

using namespace desktop;

BOOL GetCursorPos(POINT* point) {
    *point = Desktop().cursor;
    return true;
}

SHORT GetAsyncKeyState(int key) { return static_cast<SHORT>(Desktop().keys[key] ? 0x8000 : 0); }
