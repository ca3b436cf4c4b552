#include "apps/common/user.h"

#include <cmath>
#include <fstream>
#include <iomanip>
#include <sstream>

#include "apps/common/recording.h"
#include "apps/common/tool.h"

constexpr int MomentMs = 60, SettleMs = 300;  // SettleMs exceeds a tick of the panel's clock

Widget FindWidget(const std::string& name) {
    std::ifstream list(PANEL_LIST);
    for (std::string line; std::getline(list, line);) {
        std::istringstream fields(line);
        Widget found;
        int red, green, blue;
        std::string state, label, icon, hint;
        fields >> found.x >> found.y >> found.w >> found.h >> red >> green >> blue >> state;
        fields >> std::quoted(label) >> std::quoted(icon) >> std::quoted(hint);
        if (!fields || (name != label && name != icon && name != hint)) continue;
        fields >> found.value >> found.lowest >> found.highest;
        return found;
    }
    throw std::runtime_error("data/painel.txt nao tem " + name);
}

HWND OpenMainWindow() {
    WNDCLASSA shape{};
    shape.lpfnWndProc = DefWindowProcA;
    shape.lpszClassName = "HostMainWindow";
    RegisterClassA(&shape);
    const HWND window = CreateWindowExA(0, shape.lpszClassName, "Host", WS_OVERLAPPEDWINDOW, 0, 0, 1280, 800, nullptr,
                                        nullptr, nullptr, nullptr);
    ShowWindow(window, SW_SHOW);
    return window;
}

void User::Move(int x, int y) {
    POINT at{x, y};
    ClientToScreen(panel_, &at);
    desktop::MoveMouse(at.x, at.y);
    desktop::AdvanceClock(SettleMs);
}

void User::PointAt(const std::string& widget) {
    const Widget at = FindWidget(widget);
    Move(at.x + at.w / 2, at.y + at.h / 2);
}

void User::PointAtNothing() { Move(0, 0); }

void User::Press(const std::string& widget) {
    PointAt(widget);
    desktop::Press(desktop::Button::Left);
    desktop::AdvanceClock(MomentMs);
}

void User::Release() {
    desktop::Release(desktop::Button::Left);
    desktop::AdvanceClock(SettleMs);
}

void User::Click(const std::string& widget) {
    Press(widget);
    Release();
}

void User::Slide(const std::string& slider, int value) {
    constexpr int steps = 8;
    const Widget s = FindWidget(slider);
    const auto column = [&s](double v) {
        return s.x + static_cast<int>(std::ceil((v - s.lowest) / (s.highest - s.lowest) * s.w));
    };
    const int from = column(s.value), to = column(value);
    for (int i = 0; i <= steps; ++i) {
        Move(from + (to - from) * i / steps, s.y + s.h / 2);
        if (i == 0) desktop::Press(desktop::Button::Left);
    }
    Release();
}

void User::CloseWindow() {
    PostMessageA(panel_, WM_CLOSE, 0, 0);
    desktop::Pump();
}

void User::Photograph(const std::string& pngPath, int top, int height) const {
    const desktop::Picture picture = Look();
    if (height == 0) height = picture.height;
    const uint32_t* first = picture.pixels.data() + static_cast<size_t>(top) * picture.width;
    WritePicture(pngPath, {first, picture.width, height, picture.width});
}

User OpenPanel(simhost::Host& host) {
    Expect(host.RunAction("_QUILMO_ABRIR_PAINEL"), "a acao que abre o painel nao existe");
    desktop::Pump();
    const HWND panel = GetForegroundWindow();
    Expect(panel && panel != host.mainWindow, "o painel nao veio para a frente");
    return User(panel);
}
