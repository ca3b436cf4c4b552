// What the panel relies on in windows, the same on the headless desktop and on Windows itself.
#include "tests/platform/desktop_scene.h"

static SIZE SizeOf(HWND window) {
    RECT r;
    GetWindowRect(window, &r);
    return {r.right - r.left, r.bottom - r.top};
}

TEST_F(DesktopTest, AWindowIsTheSizeThatItAllowsWhateverIsAsked) {
    const LONG frameX = 2 * GetSystemMetrics(SM_CXSIZEFRAME);
    const LONG frameY = 2 * GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYCAPTION);
    fixedSize_ = {320 + frameX, 400 + frameY};
    const HWND window = Show("a");
    const auto check = [&](const char* when) {
        EXPECT_EQ(SizeOf(window).cx, fixedSize_.cx) << when;
        EXPECT_EQ(SizeOf(window).cy, fixedSize_.cy) << when;
        RECT client;
        GetClientRect(window, &client);
        EXPECT_EQ(client.right, 320) << when;
        EXPECT_EQ(client.bottom, 400) << when;
    };
    check("created");
    SetWindowPos(window, nullptr, 0, 0, 900, 900, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    check("made larger");
    MoveWindow(window, 30, 40, 10, 10, TRUE);
    check("moved and made smaller");
    RECT r;
    GetWindowRect(window, &r);
    EXPECT_EQ(r.left, 30);
    EXPECT_EQ(r.top, 40);
}

TEST_F(DesktopTest, CreationFailsWithoutClassOrWithADeadOwner) {
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
    UpdateWindow(owner);
    EXPECT_FALSE(PostMessageA(owner, WM_USER, 0, 0));
    EXPECT_EQ(BeginPaint(owner, std::make_unique<PAINTSTRUCT>().get()), nullptr);
}

TEST_F(DesktopTest, PaintsAtOnceButOnlyWhatIsInvalid) {
    const HWND window = Show("a");
    UpdateWindow(window);
    driver::Pump();
    Heard();
    UpdateWindow(window);
    EXPECT_EQ(Heard(), "") << "nothing is invalid";

    RECT client;
    GetClientRect(window, &client);
    const std::string whole = "a: paint " + std::to_string(client.right) + " by " + std::to_string(client.bottom);
    InvalidateRect(window, nullptr, FALSE);
    InvalidateRect(window, nullptr, FALSE);
    EXPECT_TRUE(GetUpdateRect(window, nullptr, FALSE));
    EXPECT_EQ(Heard(), "") << "painting waits until it is asked for";
    UpdateWindow(window);
    EXPECT_EQ(Heard(), whole);
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE));

    InvalidateRect(window, nullptr, FALSE);
    PostMessageA(window, WM_USER, 7, 0);
    driver::Pump();
    EXPECT_EQ(Heard(), "a: message 7, " + whole) << "posted messages come before painting";

    colour_ = 0xAA2211;
    const RECT corner{10, 20, 30, 50};
    InvalidateRect(window, &corner, FALSE);
    UpdateWindow(window);
    EXPECT_EQ(Heard(), "a: paint 20 by 30");
    const driver::Picture picture = driver::PictureOf(window);
    ASSERT_EQ(picture.width, client.right);
    ASSERT_EQ(picture.height, client.bottom);
    EXPECT_EQ(picture.At(10, 20), 0xAA2211u);
    EXPECT_EQ(picture.At(29, 49), 0xAA2211u);
    EXPECT_EQ(picture.At(9, 20), 0x336699u) << "a paint bracket draws only inside its area";
    EXPECT_EQ(picture.At(30, 49), 0x336699u);

    ShowWindow(window, SW_HIDE);
    Heard();
    InvalidateRect(window, nullptr, FALSE);
    UpdateWindow(window);
    EXPECT_EQ(Heard(), "") << "a hidden window has nothing to paint";
}

TEST_F(DesktopTest, ErasesWithTheClassBrushOnlyWhenAsked) {
    const HWND window = Show("a");
    driver::Pump();
    const auto invalidateAndLookBeforePainting = [&](BOOL erase) {
        InvalidateRect(window, nullptr, erase);
        uint32_t seen = 0;
        OnMessage(WM_PAINT, [&](HWND w) {
            PAINTSTRUCT paint;
            BeginPaint(w, &paint);
            EndPaint(w, &paint);
            seen = driver::PictureOf(w).At(5, 5);
        });
        UpdateWindow(window);
        return seen;
    };
    InvalidateRect(window, nullptr, FALSE);
    UpdateWindow(window);
    EXPECT_EQ(invalidateAndLookBeforePainting(FALSE), 0x336699u);
    EXPECT_EQ(invalidateAndLookBeforePainting(TRUE), 0xFFFFFFu);
}

TEST_F(DesktopTest, TheWindowThatLosesTheFrontHearsOfItFirst) {
    const HWND a = Show("a"), b = Show("b", 500);
    EXPECT_EQ(GetForegroundWindow(), b);
    SetForegroundWindow(a);
    EXPECT_EQ(Heard().substr(0, 23), "b: -active, a: +active");
    EXPECT_EQ(GetForegroundWindow(), a);
    EXPECT_EQ(GetActiveWindow(), a);
    driver::Pump();
    Heard();
    SetForegroundWindow(a);
    EXPECT_EQ(Heard(), "") << "it is in front already";

    driver::Move(b, 20, 30);
    driver::Press(driver::Button::Left);
    driver::Release(driver::Button::Left);
    const std::string heard = Heard();
    EXPECT_EQ(heard.find("a: -active, b: +active by click"), 0u) << heard;
    EXPECT_NE(heard.find("b: left down (20, 30), b: left up (20, 30)"), std::string::npos) << heard;
}

TEST_F(DesktopTest, AMinimisedWindowLeavesItsPlaceAndComesBack) {
    const HWND window = Show("a");
    RECT before, minimised, after;
    GetWindowRect(window, &before);
    ShowWindow(window, SW_MINIMIZE);
    EXPECT_TRUE(IsIconic(window));
    GetWindowRect(window, &minimised);
    EXPECT_NE(minimised.top, before.top) << "far off the screen, or an icon at its lower edge";
    ShowWindow(window, SW_RESTORE);
    GetWindowRect(window, &after);
    EXPECT_FALSE(IsIconic(window));
    EXPECT_EQ(after.left, before.left);
    EXPECT_EQ(after.bottom, before.bottom);
    EXPECT_EQ(GetActiveWindow(), window);
}

TEST_F(DesktopTest, DestructionDeactivatesFirstAndTakesOwnedWindowsAlong) {
    const HWND owner = Show("owner"), owned = Show("owned", 500, owner), other = Show("other", 800);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), owner);
    SetForegroundWindow(owned);
    SetTimer(owned, 9, 30, nullptr);
    Heard();
    bool timerLives = false;
    OnMessage(WM_DESTROY, [&](HWND w) { timerLives = KillTimer(w, 9); });
    DestroyWindow(owned);
    const std::string heard = Heard();
    EXPECT_EQ(heard.find("owned: -active"), 0u) << heard;
    EXPECT_LT(heard.find("owned: -active"), heard.find("owned: destroyed")) << heard;
    EXPECT_TRUE(timerLives);
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

TEST_F(DesktopTest, WithCaptureTheMouseIsHeardOutsideTheClientArea) {
    const HWND other = Show("b"), window = Show("a", 500);
    const auto clickOn = [&](HWND target) {
        driver::Move(target, 20, 30);
        driver::Press(driver::Button::Right);
        driver::Release(driver::Button::Right);
        return Heard();
    };
    EXPECT_EQ(clickOn(window), "a: right down (20, 30), a: right up (20, 30)");
    EXPECT_EQ(SetCapture(window), nullptr);
    EXPECT_EQ(GetCapture(), window);
    EXPECT_EQ(clickOn(other), "a: right down (-380, 30), a: right up (-380, 30)");
    ReleaseCapture();
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(Heard(), "a: capture lost");
    const std::string heard = clickOn(other);
    EXPECT_NE(heard.find("b: right down (20, 30)"), std::string::npos) << heard;
    SetCapture(window);
    DestroyWindow(window);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(DesktopTest, OnlyAClassThatAsksForThemHearsOfDoubleClicks) {
    const auto twice = [&](HWND window) {
        driver::Move(window, 15, 15);
        for (int i = 0; i < 2; ++i) {
            driver::Press(driver::Button::Left);
            driver::Release(driver::Button::Left);
        }
        return Heard();
    };
    const HWND plain = Show("plain"), eager = Show("eager", 500, nullptr, CS_DBLCLKS);
    twice(plain);
    EXPECT_EQ(twice(plain).find("double"), std::string::npos);
    EXPECT_NE(twice(eager).find("eager: left double"), std::string::npos);
}

TEST_F(DesktopTest, TheWheelAndKeysReachWhoIsInFront) {
    const HWND window = Show("a");
    driver::Move(window, 15, 15);
    driver::Wheel(1);
    driver::Wheel(-1);
    EXPECT_EQ(Heard(), "a: wheel up, a: wheel down");
    EXPECT_GE(GetAsyncKeyState(VK_SHIFT), 0);
    driver::HoldKey(VK_SHIFT, true);
    EXPECT_LT(GetAsyncKeyState(VK_SHIFT), 0);
    driver::HoldKey(VK_SHIFT, false);
    EXPECT_GE(GetAsyncKeyState(VK_SHIFT), 0);
    POINT client{15, 15}, pointer;
    ClientToScreen(window, &client);
    GetCursorPos(&pointer);
    EXPECT_EQ(pointer.x, client.x);
    EXPECT_EQ(pointer.y, client.y);
}

TEST_F(DesktopTest, TimersTickUntilTheyAreKilled) {
    const HWND window = Show("a");
    EXPECT_FALSE(KillTimer(window, 1));
    SetTimer(window, 1, 250, nullptr);
    SetTimer(window, 1, 60, nullptr);  // the same number again: another interval, not another timer
    const double interval = driver::TimerInterval(window, 1);
    EXPECT_GE(interval, 60 * 0.9);
    EXPECT_LE(interval, 60 * (1 + driver::IntervalSlack));
    Heard();
    EXPECT_TRUE(driver::AwaitTimer(window, 1));
    EXPECT_EQ(Heard(), "a: timer 1");

    SetTimer(window, 2, 60, nullptr);
    OnMessage(WM_TIMER, [](HWND w) {
        KillTimer(w, 1);
        KillTimer(w, 2);
    });
    EXPECT_TRUE(driver::AwaitTimer(window, 1));
    EXPECT_FALSE(driver::AwaitTimer(window, 1)) << "killed by its own handler";
    EXPECT_FALSE(driver::AwaitTimer(window, 2)) << "killed by another's";
}

TEST_F(DesktopTest, AMenuIsShownAnsweredAndGone) {
    const HWND window = Show("a");
    const auto ask = [&] {
        const HMENU menu = CreatePopupMenu();
        AppendMenuA(menu, MF_STRING, 1, "First");
        AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(menu, MF_STRING, 5, "Second");
        const BOOL chosen = TrackPopupMenu(menu, TPM_NONOTIFY | TPM_RETURNCMD, 200, 200, 0, window, nullptr);
        DestroyMenu(menu);
        return chosen;
    };
    driver::AnswerNextMenu("Second");
    EXPECT_EQ(ask(), 5);
    EXPECT_EQ(driver::LastMenu(), (std::vector<std::string>{"First", "", "Second"}));
    driver::AnswerNextMenu("First");
    EXPECT_EQ(ask(), 1);
    SetTimer(window, 3, 30, nullptr);
    Heard();
    driver::AnswerNextMenu("", [window] { driver::AwaitTimer(window, 3); });
    EXPECT_EQ(ask(), 0);
    EXPECT_NE(Heard().find("a: timer 3"), std::string::npos) << "timers go on while a menu is open";
    driver::Pump();
}

TEST_F(DesktopTest, TheWorkAreaIsWhatItWasSetTo) {
    RECT before, now;
    ASSERT_TRUE(SystemParametersInfoA(SPI_GETWORKAREA, 0, &before, 0));
    EXPECT_LE(before.right, GetSystemMetrics(SM_CXSCREEN));
    RECT wanted{before.left + 50, before.top, before.right, before.bottom - 60};
    ASSERT_TRUE(SystemParametersInfoA(SPI_SETWORKAREA, 0, &wanted, 0));
    ASSERT_TRUE(SystemParametersInfoA(SPI_GETWORKAREA, 0, &now, 0));
    EXPECT_EQ(now.left, wanted.left);
    EXPECT_EQ(now.bottom, wanted.bottom);
    SystemParametersInfoA(SPI_SETWORKAREA, 0, &before, 0);
}
