// platform/headless/desktop_state.h
// The desktop's records and the way of a message to its window: the ground of all that implements the desktop.
// A message handler may destroy any window: look a Window* up afresh after every message sent.
#pragma once
#include <deque>
#include <list>
#include <map>
#include <memory>

#include "platform/headless/desktop.h"

namespace desktop {

struct Window {
    HWND handle, owner;
    std::string className, title;
    WNDPROC procedure;
    RECT place{};   // on the screen, frame included
    RECT normal{};  // where it goes back to when it is minimised
    bool visible = false, minimised = false, dying = false;
    bool invalid = false;                // waits to be painted
    std::shared_ptr<Picture> picture{};  // null until somebody draws or looks
};

struct Timer {
    HWND window;
    UINT_PTR id;
    int interval;
    int64_t due;
};

struct Message {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

inline constexpr SIZE Screen{1280, 1024};
inline constexpr int TaskBar = 40;  // at the screen's lower edge, outside the work area

struct State {
    std::map<std::string, WNDPROC> classes;
    std::list<Window> windows;  // front first
    uint64_t lastHandle = 0x10000;
    HWND active = nullptr, foreground = nullptr, capture = nullptr;
    std::vector<Message> queue;  // never long, and keeps its memory
    std::list<Timer> timers;
    int64_t now = 0;
    POINT cursor{0, 0};
    std::map<int, bool> keys;  // the mouse buttons among them
    RECT workArea{0, 0, Screen.cx, Screen.cy - TaskBar};
    Frame frame;
    int contextsLent = 0;  // each keeps its picture, even when the window is gone or has another size
    std::map<HMENU, std::vector<MenuEntry>> menus;
    std::deque<std::function<UINT()>> answers;
    ShownMenu shown{};
};
State& Desktop();

Window* Find(HWND window);            // null for what is no window (any more)
bool OnScreen(const Window& window);  // visible and not minimised
void Invalidate(Window& window);      // only what is on the screen; showing a window invalidates it
// A handle that was never given out before.
template <class Handle>
Handle NewHandle() {
    return reinterpret_cast<Handle>(Desktop().lastHandle += 4);
}
[[noreturn]] void Fail(const char* sentence);

}  // namespace desktop
