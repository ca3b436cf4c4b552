// Where windows stand: sizes of frames and of the screen, the work area, moving and resizing.
#include <algorithm>

#include "platform/headless/desktop_state.h"

using namespace desktop;

// A frame of 8 pixels all round and a caption of 23, as on an unscaled screen.
static constexpr int Frame = 8, Caption = 23;

bool desktop::Contains(const RECT& rect, POINT point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

RECT desktop::ClientArea(const Window& window) {
    RECT area = window.place;
    if (window.minimised) return {area.left, area.top, area.left, area.top};
    area.left += Frame;
    area.top += Frame + Caption;
    area.right = std::max(area.left, area.right - Frame);
    area.bottom = std::max(area.top, area.bottom - Frame);
    return area;
}

int GetSystemMetrics(int index) {
    switch (index) {
        case SM_CYCAPTION:
            return Caption;
        case SM_CXSIZEFRAME:
        case SM_CYSIZEFRAME:
            return Frame;
        default:
            return 0;
    }
}

BOOL SystemParametersInfoA(UINT action, UINT, void* record, UINT) {
    RECT* area = static_cast<RECT*>(record);
    if (action == SPI_GETWORKAREA)
        *area = Desktop().workArea;
    else if (action == SPI_SETWORKAREA)
        Desktop().workArea = *area;
    else
        return false;
    return true;
}

// A window is asked between which sizes it may be; the least one wins over the greatest.
static SIZE AllowedSize(HWND handle, SIZE wanted) {
    MINMAXINFO info{};
    info.ptMaxSize = info.ptMaxTrackSize = {Screen.cx + 2 * Frame, Screen.cy + 2 * Frame};
    info.ptMaxPosition = {-Frame, -Frame};
    info.ptMinTrackSize = {136, Caption + 2 * Frame};
    SendMessageA(handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return {std::max(std::min(wanted.cx, info.ptMaxTrackSize.x), info.ptMinTrackSize.x),
            std::max(std::min(wanted.cy, info.ptMaxTrackSize.y), info.ptMinTrackSize.y)};
}

BOOL MoveWindow(HWND handle, int x, int y, int width, int height, BOOL repaint) {
    const SIZE size = AllowedSize(handle, {width, height});
    Window* window = Find(handle);
    if (!window) return false;
    (window->minimised ? window->normal : window->place) = {x, y, x + size.cx, y + size.cy};
    if (repaint) Invalidate(*window);
    return true;
}

BOOL GetWindowRect(HWND handle, RECT* rect) {
    const Window* window = Find(handle);
    if (window) *rect = window->place;
    return window != nullptr;
}

BOOL GetClientRect(HWND handle, RECT* rect) {
    const Window* window = Find(handle);
    if (!window) return false;
    const RECT area = ClientArea(*window);
    *rect = {0, 0, area.right - area.left, area.bottom - area.top};
    return true;
}

BOOL ClientToScreen(HWND handle, POINT* point) {
    const Window* window = Find(handle);
    if (!window) return false;
    const RECT area = ClientArea(*window);
    point->x += area.left;
    point->y += area.top;
    return true;
}
