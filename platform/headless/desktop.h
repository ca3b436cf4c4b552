// platform/headless/desktop.h
// The headless desktop's control side: what a user does with mouse and keys, and the clock.
// No call sleeps: each delivers its messages, and all that follows from them, before it returns.
// Message handlers may call in here again, as a modal dialog does.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/win32.h"

namespace desktop {

// Delivers what waits, in the system's order: posted messages, then painting, then timers that have fallen due. Aborts
// with a sentence when a window asks for painting without end.
void Pump();
// Moves the virtual clock and fires what falls due on the way, earliest first.
void AdvanceClock(int ms);
// Moves the clock to this timer's next tick and past it. The milliseconds that took, or -1 when there is no such timer.
int AwaitTimer(HWND window, UINT_PTR id);

enum class Button { Left, Right };
// Coordinates are the screen's. A window hears of the mouse over its client area, or everywhere while it has capture.
void MoveMouse(int x, int y);
void Press(Button button);    // first activates the window under the pointer, as a click does
void Release(Button button);  // nothing when the button is not down
void Wheel(int delta);        // goes to the active window
void HoldKey(int key, bool down);

// `user` runs while the next popup menu is open, and answers it with an entry's id, or 0 for Escape.
// Answers queue up; a menu without one is dismissed.
void OnNextMenu(std::function<UINT()> user);

struct MenuEntry {
    UINT id;
    std::string text;  // empty for a separator
};
struct ShownMenu {
    std::vector<MenuEntry> entries;
    POINT at;
    HWND owner;
};
const ShownMenu& LastMenu();

void LeaveNobodyInFront();  // no window at all is in front, as between two programs

// The frame of every window, in pixels; set it before windows are made.
struct Frame {
    int border = 8, padding = 0, caption = 23;  // at 96 DPI
    UINT dpi = 96;  // what windows are drawn at; 0: 96, on a system that does not tell a window's DPI
};
void SetFrame(const Frame& frame);

struct Picture {
    int width = 0, height = 0;
    std::vector<uint32_t> pixels;  // 0xAARRGGBB as last painted, row by row from the top
};
Picture PictureOf(HWND window);  // the client area

// What was not given back, as a sentence: device contexts, menus. Empty when all is well.
std::string Leftovers();
// Destroys all windows and puts clock, pointer, keys, menus, work area and frame back. Window classes stay.
void Reset();

}  // namespace desktop
