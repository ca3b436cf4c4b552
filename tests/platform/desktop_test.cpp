// What the panel relies on in windows and does not show in its own tests. It holds on either desktop.

#include <utility>

#include "tests/support/desktop_driver.h"
#include "tests/support/rects.h"

// Windows that write down what they hear, as one line of text: "a: +active, b: paint".
class Desktop : public testing::Test {
  protected:
    void SetUp() override {
        current = this;
        driver::Start();
    }
    void TearDown() override {
        meanwhile = nullptr;
        const auto windows = names;
        for (const auto& [window, name] : windows) DestroyWindow(window);
        driver::Start();
    }

    // A window of 300 by 200 whose left top is at (x, 100).
    HWND Make(const std::string& name, int x = 100, HWND owner = nullptr) {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "Scene";
        RegisterClassA(&windowClass);  // the second time it is there
        naming = name;
        return CreateWindowExA(0, "Scene", name.c_str(), WS_OVERLAPPEDWINDOW, x, 100, 300, 200, owner, nullptr,
                               windowClass.hInstance, nullptr);
    }
    // Shown and in front.
    HWND Show(const std::string& name, int x = 100, HWND owner = nullptr) {
        const HWND window = Make(name, x, owner);
        ShowWindow(window, SW_SHOW);
        driver::Pump();
        Heard();
        return window;
    }
    std::string Heard() { return std::exchange(heard, ""); }  // since the last call

    std::function<void(HWND, UINT)> meanwhile;  // inside each message's handler

  private:
    void Write(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        static const char* const activations[] = {"-active", "+active", "+active by click"};
        const std::string place = std::to_string(LOWORD(lParam)) + ", " + std::to_string(HIWORD(lParam));
        const std::map<UINT, std::string> texts = {{WM_ACTIVATE, activations[LOWORD(wParam) % 3]},
                                                   {WM_DESTROY, "destroyed"},
                                                   {WM_LBUTTONDOWN, "down (" + place + ")"},
                                                   {WM_LBUTTONUP, "up (" + place + ")"},
                                                   {WM_TIMER, "timer " + std::to_string(wParam)},
                                                   {WM_USER, "message " + std::to_string(wParam)},
                                                   {WM_PAINT, "paint"}};
        const auto text = texts.find(message);
        if (text != texts.end()) heard += (heard.empty() ? "" : ", ") + names[window] + ": " + text->second;
    }
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        Desktop& test = *current;
        test.names.emplace(window, test.naming);
        test.Write(window, message, wParam, lParam);
        if (test.meanwhile) test.meanwhile(window, message);
        if (message == WM_NCDESTROY) test.names.erase(window);
        return DefWindowProcA(window, message, wParam, lParam);
    }
    inline static Desktop* current = nullptr;
    std::map<HWND, std::string> names;
    std::string heard;
    std::string naming;  // the window that is being created
};

TEST_F(Desktop, WhatIsGoneIsRefused) {
    const HWND owner = Show("a");
    const HINSTANCE instance = GetModuleHandleA(nullptr);
    EXPECT_EQ(
        CreateWindowExA(0, "NoSuchClass", "", WS_OVERLAPPEDWINDOW, 0, 0, 9, 9, nullptr, nullptr, instance, nullptr),
        nullptr);
    DestroyWindow(owner);
    EXPECT_EQ(Make("b", 100, owner), nullptr);
    EXPECT_FALSE(IsWindow(owner));
    RECT r;
    EXPECT_FALSE(GetWindowRect(owner, &r));
    EXPECT_FALSE(DestroyWindow(owner));
    EXPECT_EQ(SetTimer(owner, 1, 50, nullptr), 0u);
    EXPECT_FALSE(KillTimer(owner, 1));
    UpdateWindow(owner);
    EXPECT_FALSE(PostMessageA(owner, WM_USER, 0, 0));
    PAINTSTRUCT paint;
    EXPECT_EQ(BeginPaint(owner, &paint), nullptr);
}

TEST_F(Desktop, FramesHaveTheWidthOfTheirParts) {
    for (const driver::Frame& frame : driver::Frames) {
        if (!driver::SetFrame(frame)) continue;
        RECT unscaled{};
        EXPECT_TRUE(AdjustWindowRectEx(&unscaled, WS_OVERLAPPEDWINDOW, FALSE, 0));
        const int side = frame.border + frame.padding;
        EXPECT_EQ(::Show(unscaled), ::Show({-side, -side - frame.caption, side, side}));
    }
}

TEST_F(Desktop, PaintsAtOnceButOnlyWhatIsInvalid) {
    const HWND window = Show("a");
    UpdateWindow(window);
    driver::Pump();
    Heard();
    UpdateWindow(window);
    EXPECT_EQ(Heard(), "") << "nothing is invalid";
    InvalidateRect(window, nullptr, FALSE);
    InvalidateRect(window, nullptr, FALSE);
    EXPECT_EQ(Heard(), "") << "painting waits until it is asked for";
    UpdateWindow(window);
    EXPECT_EQ(Heard(), "a: paint");
    InvalidateRect(window, nullptr, FALSE);
    PostMessageA(window, WM_USER, 7, 0);
    driver::Pump();
    EXPECT_EQ(Heard(), "a: message 7, a: paint") << "posted messages come before painting";
    const HWND hidden = Make("b");
    Heard();
    InvalidateRect(hidden, nullptr, FALSE);
    UpdateWindow(hidden);
    EXPECT_EQ(Heard(), "") << "a hidden window has nothing to paint";
}

TEST_F(Desktop, TheWindowThatLosesTheFrontHearsOfItFirst) {
    const HWND a = Show("a"), b = Show("b", 500);
    EXPECT_EQ(GetForegroundWindow(), b);
    SetForegroundWindow(a);
    EXPECT_EQ(Heard().substr(0, 23), "b: -active, a: +active");
    EXPECT_EQ(GetForegroundWindow(), a);
    driver::Pump();
    Heard();
    SetForegroundWindow(a);
    EXPECT_EQ(Heard(), "") << "it is in front already";

    driver::Move(b, 20, 30);
    driver::Press(driver::Button::Left);
    driver::Release(driver::Button::Left);
    const std::string told = Heard();
    EXPECT_EQ(told.find("a: -active, b: +active by click"), 0u) << told;
    EXPECT_NE(told.find("b: down (20, 30), b: up (20, 30)"), std::string::npos) << told;
}

TEST_F(Desktop, DestructionDeactivatesFirstAndTakesOwnedWindowsAlong) {
    const HWND owner = Show("owner"), owned = Show("owned", 500, owner), other = Show("other", 800);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), owner);
    SetForegroundWindow(owned);
    SetTimer(owned, 9, 30, nullptr);
    SetCapture(owned);
    Heard();
    bool timerLives = false;
    meanwhile = [&](HWND w, UINT message) { timerLives |= message == WM_DESTROY && KillTimer(w, 9); };
    DestroyWindow(owned);
    const std::string told = Heard();
    EXPECT_EQ(told.find("owned: -active"), 0u) << told;
    EXPECT_LT(told.find("owned: -active"), told.find("owned: destroyed")) << told;
    EXPECT_TRUE(timerLives);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(IsWindow(owned));
    EXPECT_TRUE(IsWindow(owner));

    const HWND again = Show("again", 500, owner);
    SetForegroundWindow(other);
    Heard();
    DestroyWindow(owner);
    EXPECT_FALSE(IsWindow(again));
    EXPECT_TRUE(IsWindow(other));
    EXPECT_EQ(Heard(), "again: destroyed, owner: destroyed");
}

TEST_F(Desktop, TimersTickUntilTheyAreKilled) {
    const HWND window = Show("a");
    SetTimer(window, 1, 250, nullptr);
    SetTimer(window, 1, 60, nullptr);  // the same number again: another interval, not another timer
    EXPECT_LE(driver::TimerInterval(window, 1), 60 * (1 + driver::IntervalSlack));
    Heard();
    EXPECT_TRUE(driver::AwaitTimer(window, 1));
    EXPECT_EQ(Heard(), "a: timer 1");

    SetTimer(window, 2, 60, nullptr);
    meanwhile = [](HWND w, UINT message) {
        for (const UINT_PTR timer : {1, 2})
            if (message == WM_TIMER) KillTimer(w, timer);
    };
    EXPECT_TRUE(driver::AwaitTimer(window, 1));
    EXPECT_FALSE(driver::AwaitTimer(window, 1)) << "killed by its own handler";
    EXPECT_FALSE(driver::AwaitTimer(window, 2)) << "killed by another's";
}
