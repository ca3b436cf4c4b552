#include <cstdlib>

#include "platform/headless/desktop.h"
#include "tests/support/desktop_driver.h"

namespace driver {

const double IntervalSlack = 0;

void Start() { desktop::Reset(); }

bool SetFrame(const Frame& frame) {
    desktop::SetFrame({frame.border, frame.padding, frame.caption, frame.dpi});
    return true;
}

void Pump() { desktop::Pump(); }

bool AwaitTimer(HWND window, UINT_PTR id) { return desktop::AwaitTimer(window, id) >= 0; }

double TimerInterval(HWND window, UINT_PTR id) {
    desktop::AwaitTimer(window, id);
    return desktop::AwaitTimer(window, id);
}

void Move(HWND window, int x, int y) {
    POINT at{x, y};
    ClientToScreen(window, &at);
    desktop::MoveMouse(at.x, at.y);
}

void Press(Button button) { desktop::Press(static_cast<desktop::Button>(button)); }

void Release(Button button) { desktop::Release(static_cast<desktop::Button>(button)); }

void Wheel(int notches) { desktop::Wheel(notches * 120); }

void HoldKey(int key, bool down) { desktop::HoldKey(key, down); }

bool LeaveNobodyInFront() {
    desktop::LeaveNobodyInFront();
    return true;
}

Picture PictureOf(HWND window) {
    desktop::Picture seen = desktop::PictureOf(window);
    for (uint32_t& pixel : seen.pixels) pixel &= 0xFFFFFF;
    return {seen.width, seen.height, std::move(seen.pixels)};
}

void AnswerNextMenu(const std::string& label, std::function<void()> meanwhile) {
    desktop::OnNextMenu([label, meanwhile]() -> UINT {
        if (meanwhile) meanwhile();
        for (const desktop::MenuEntry& entry : desktop::LastMenu().entries)
            if (!label.empty() && entry.text == label) return entry.id;
        return 0;
    });
}

std::vector<std::string> LastMenu() {
    std::vector<std::string> labels;
    for (const desktop::MenuEntry& entry : desktop::LastMenu().entries) labels.push_back(entry.text);
    return labels;
}

void SetEnvironment(const char* name, const std::string& value) {
    value.empty() ? unsetenv(name) : setenv(name, value.c_str(), 1);
}

std::string Leftovers() { return desktop::Leftovers(); }

}  // namespace driver
