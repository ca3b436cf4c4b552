// platform/headless/desktop_state.h
// The desktop's own records, shared by the files that implement it. Any message handler may destroy any window, so a
// Window* is looked up afresh after every message that was sent.
#pragma once
#include <deque>
#include <list>
#include <map>
#include <memory>

#include "platform/headless/desktop.h"
#include "platform/headless/gdi_objects.h"

namespace desktop {

struct WindowClass {
    UINT style;
    WNDPROC procedure;
    HBRUSH background;
};

struct Window {
    HWND handle;
    HWND owner;
    std::string className;
    WindowClass kind;
    std::string title;
    DWORD style;
    WNDPROC procedure;
    LONG_PTR userData = 0;
    RECT place{};   // on the screen, frame included
    RECT normal{};  // where it goes back to when it is minimised
    bool visible = false, minimised = false, dying = false;
    RECT invalid{};                      // client coordinates; empty when nothing waits to be painted
    bool erase = false;                  // the background too
    std::shared_ptr<Picture> picture{};  // null until somebody draws or looks
};

struct Timer {
    HWND window;
    UINT_PTR id;
    int interval;
    int64_t due;
    TIMERPROC procedure;
};

struct Message {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

struct Click {
    HWND window;
    Button button;
    POINT at;
    int64_t when;
};

inline constexpr RECT WholeScreen{0, 0, 1280, 1024};
inline constexpr RECT UsualWorkArea{0, 0, 1280, 984};

struct State {
    std::map<std::string, WindowClass> classes;
    std::list<Window> windows;  // front first
    uint64_t lastHandle = 0x10000;
    HWND active = nullptr, foreground = nullptr, capture = nullptr;
    std::vector<Message> queue;  // never long, and keeps its memory
    std::list<Timer> timers;
    int64_t now = 0;
    POINT cursor{0, 0};
    Click lastClick{};
    std::map<int, bool> keys;  // the mouse buttons among them
    RECT workArea = UsualWorkArea;
    int contextsLent = 0;  // each keeps its picture, even when the window is gone or has another size
    std::map<HMENU, std::vector<MenuEntry>> menus;
    std::deque<std::function<UINT()>> answers;
    ShownMenu shown{};
};
State& Desktop();

Window* Find(HWND window);  // null for what is no window (any more)
bool Contains(const RECT& rect, POINT point);
RECT ClientArea(const Window& window);  // on the screen
bool OnScreen(const Window& window);    // visible and not minimised
void InvalidateAll(Window& window);     // background included
// Makes it the active window and tells both sides, the one that loses first; null: none of ours. `how` is WA_ACTIVE or
// WA_CLICKACTIVE.
void Activate(HWND window, WORD how);
void ActivateAnother(const Window& than);
// A handle that was never given out before.
template <class Handle>
Handle NewHandle() {
    return reinterpret_cast<Handle>(Desktop().lastHandle += 4);
}
[[noreturn]] void Fail(const char* sentence);

}  // namespace desktop
