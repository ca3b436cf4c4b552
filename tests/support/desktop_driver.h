// tests/support/desktop_driver.h
// The user of the tests' windows. Windows' own clock cannot be moved, so tests wait for ticks, not for times.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/win32.h"

namespace driver {

// Ready for a test: the pointer is over no window, no button or key is down, no menu waits for an answer, frames are
// the usual ones.
void Start();

struct Frame {
    int border, padding, caption;  // unscaled
    UINT dpi;                      // 0: 96, on a system that does not tell a window's DPI
};
constexpr Frame Frames[] = {{4, 0, 19, 96}, {4, 4, 23, 96}, {8, 8, 45, 96}, {4, 4, 23, 0}, {4, 4, 23, 192}};
// Of windows made from now on. False where padding or DPI stay the system's own.
bool SetFrame(const Frame& frame);

// Delivers posted messages, input and painting, but no timers.
void Pump();
// Delivers messages until this timer has ticked, once more; false when it does not tick any more.
bool AwaitTimer(HWND window, UINT_PTR id);
// Milliseconds from tick to tick: exact on the virtual clock, else an average that a busy machine lengthens.
double TimerInterval(HWND window, UINT_PTR id);
extern const double IntervalSlack;  // the share of the interval by which it may be longer

enum class Button { Left, Right };
// In client coordinates of the window; outside its client area it hears of it only when it has capture.
void Move(HWND window, int x, int y);
void Press(Button button);
void Release(Button button);
void Wheel(int notches);
void HoldKey(int key, bool down);

// Nobody is in front any more; false where that cannot be brought about.
bool LeaveNobodyInFront();

struct Picture {
    int width = 0, height = 0;
    std::vector<uint32_t> pixels;  // 0x00RRGGBB
    uint32_t At(int x, int y) const { return pixels[static_cast<size_t>(y) * width + x]; }
};
Picture PictureOf(HWND window);  // the client area as the screen shows it

// The next popup menu is answered with the entry of that label, or dismissed when it is empty.
// `meanwhile` runs while the menu is open.
void AnswerNextMenu(const std::string& label, std::function<void()> meanwhile = nullptr);
std::vector<std::string> LastMenu();  // labels from the top; empty: a separator

void SetEnvironment(const char* name, const std::string& value);  // of this process, UTF-8; empty: not set

// What was not given back to the desktop, as a sentence; empty when all is well or nobody counts.
std::string Leftovers();

}  // namespace driver
