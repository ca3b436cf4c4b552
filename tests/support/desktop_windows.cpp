#include <deque>
#include <optional>
#include <utility>

#include "tests/support/desktop_driver.h"
#include "tests/support/kept.h"

namespace driver {

const double IntervalSlack = 0.5;

static constexpr ULONGLONG PatienceMs = 1000;

void Pump() {
    constexpr UINT allButTimers = (QS_ALLINPUT & ~QS_TIMER) << 16;
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE | allButTimers)) DispatchMessageA(&message);
}

bool AwaitTimer(HWND window, UINT_PTR id) {
    const ULONGLONG start = GetTickCount64();
    while (GetTickCount64() - start < PatienceMs) {
        Pump();
        MSG message;
        if (PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE)) {
            DispatchMessageA(&message);
            Pump();
            if (message.hwnd == window && message.wParam == id) return true;
        } else {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        }
    }
    return false;
}

double TimerInterval(HWND window, UINT_PTR id) {
    constexpr int ticks = 4;
    AwaitTimer(window, id);
    const ULONGLONG start = GetTickCount64();
    for (int i = 0; i < ticks; ++i) AwaitTimer(window, id);
    return static_cast<double>(GetTickCount64() - start) / ticks;
}

static void Inject(DWORD flags, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    SendInput(1, &input, sizeof input);
    Pump();
}

void Move(HWND window, int x, int y) {
    POINT at{x, y};
    ClientToScreen(window, &at);
    SetCursorPos(at.x, at.y);
    Pump();
}

static void InjectKey(int key, bool down) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key);
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    SendInput(1, &input, sizeof input);
}

static int heldKey = 0;

void HoldKey(int key, bool down) {
    heldKey = down ? key : 0;
    InjectKey(key, down);
    Pump();
}

void Press(Button button) {
    Pump();
    if (heldKey) InjectKey(heldKey, true);  // the display forgets keys that no real keyboard holds
    Inject(button == Button::Left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
}

void Release(Button button) { Inject(button == Button::Left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP); }

void Wheel(int notches) { Inject(MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA)); }

bool LeaveNobodyInFront() { return false; }

Picture PictureOf(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    LICE_SysBitmap copy(client.right, client.bottom);
    const HDC screen = GetDC(window);
    BitBlt(copy.getDC(), 0, 0, client.right, client.bottom, screen, 0, 0, SRCCOPY);
    GdiFlush();
    ReleaseDC(window, screen);
    return ImagemDe(copy);
}

// --- Menus: a thread timer finds the menu's window in the menu's own message loop, and answers it by keys.

struct Answer {
    std::string label;
    std::function<void()> meanwhile;
};
static std::deque<Answer> answers;
static std::vector<std::string> lastMenu;

static void CALLBACK AnswerMenu(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND shown = FindWindowA("#32768", nullptr);
    if (!shown || !IsWindowVisible(shown)) return;
    constexpr UINT askForMenu = 0x01E1;  // MN_GETHMENU
    const HMENU menu = reinterpret_cast<HMENU>(SendMessageA(shown, askForMenu, 0, 0));
    if (!menu) return;
    KillTimer(nullptr, timer);
    const Answer answer = std::move(answers.front());
    answers.pop_front();
    lastMenu.clear();
    int presses = 0, found = 0;  // separators are passed over by the arrow keys
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        char label[200] = "";
        GetMenuStringA(menu, static_cast<UINT>(i), label, sizeof label, MF_BYPOSITION);
        lastMenu.push_back(label);
        if (*label) ++presses;
        if (!answer.label.empty() && answer.label == label) found = presses;
    }
    if (answer.meanwhile) answer.meanwhile();
    for (int i = 0; i < found; ++i) PostMessageA(shown, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageA(shown, WM_KEYDOWN, found ? VK_RETURN : VK_ESCAPE, 0);
}

void AnswerNextMenu(const std::string& label, std::function<void()> meanwhile) {
    answers.push_back({label, std::move(meanwhile)});
    SetTimer(nullptr, 0, 20, AnswerMenu);
}

std::vector<std::string> LastMenu() { return lastMenu; }

void SetEnvironment(const char* name, const std::string& value) {
    wchar_t wide[1024] = L"";
    MultiByteToWideChar(CP_UTF8, 0, value.c_str(), -1, wide, 1024);
    const std::wstring wideName(name, name + std::string(name).size());
    SetEnvironmentVariableW(wideName.c_str(), value.empty() ? nullptr : wide);
}

std::string Leftovers() { return ""; }

static std::optional<NONCLIENTMETRICSA> usualMetrics;  // before they were changed

static void Use(NONCLIENTMETRICSA metrics) {
    SystemParametersInfoA(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
}

bool SetFrame(const Frame& frame) {
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    if (!usualMetrics) usualMetrics = metrics;
    metrics.iBorderWidth += frame.border - GetSystemMetrics(SM_CXSIZEFRAME);
    metrics.iPaddedBorderWidth = frame.padding;
    metrics.iCaptionHeight = frame.caption - 1;
    Use(metrics);
    RECT around{};
    AdjustWindowRectEx(&around, WS_OVERLAPPEDWINDOW, FALSE, 0);
    return around.right == frame.border + frame.padding && GetDpiForSystem() == frame.dpi;
}

void Start() {
    if (usualMetrics) Use(*usualMetrics);
    SetCursorPos(32000, 32000);  // the screen's last corner, over no window
    Release(Button::Left);
    Release(Button::Right);
    HoldKey(VK_SHIFT, false);
    answers.clear();
    lastMenu.clear();
}

}  // namespace driver
