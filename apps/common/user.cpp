#include "apps/common/user.h"

#include "apps/common/recording.h"
#include "apps/common/tool.h"

constexpr int MomentMs = 60, SettleMs = 300;  // SettleMs exceeds a tick of the panel's clock

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

void User::PointAt(Place place) {
    POINT at{place.x, place.y};
    ClientToScreen(panel_, &at);
    desktop::MoveMouse(at.x, at.y);
    desktop::AdvanceClock(SettleMs);
}

void User::Press(Place place) {
    PointAt(place);
    desktop::Press(desktop::Button::Left);
    desktop::AdvanceClock(MomentMs);
}

void User::Release() {
    desktop::Release(desktop::Button::Left);
    desktop::AdvanceClock(SettleMs);
}

void User::Click(Place place) {
    Press(place);
    Release();
}

void User::Drag(Place from, Place to) {
    constexpr int steps = 8;
    PointAt(from);
    desktop::Press(desktop::Button::Left);
    for (int i = 1; i <= steps; ++i)
        PointAt({from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps});
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
