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
    const int frame = window.style & WS_THICKFRAME ? Frame : 0;
    area.left += frame;
    area.top += frame + ((window.style & WS_CAPTION) == WS_CAPTION ? Caption : 0);
    area.right = std::max(area.left, area.right - frame);
    area.bottom = std::max(area.top, area.bottom - frame);
    return area;
}

int GetSystemMetrics(int index) {
    switch (index) {
        case SM_CXSCREEN:
            return WholeScreen.right;
        case SM_CYSCREEN:
            return WholeScreen.bottom;
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

// A window with a sizing frame or a caption is asked between which sizes it may be; the least one wins over the
// greatest.
static SIZE AllowedSize(HWND handle, SIZE wanted) {
    const DWORD style = Find(handle)->style;
    if ((style & WS_POPUP) && !(style & WS_THICKFRAME)) return wanted;
    MINMAXINFO info{};
    info.ptMaxSize = info.ptMaxTrackSize = {WholeScreen.right + 2 * Frame, WholeScreen.bottom + 2 * Frame};
    info.ptMaxPosition = {-Frame, -Frame};
    info.ptMinTrackSize = {136, Caption + 2 * Frame};
    SendMessageA(handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return {std::max(std::min(wanted.cx, info.ptMaxTrackSize.x), info.ptMinTrackSize.x),
            std::max(std::min(wanted.cy, info.ptMaxTrackSize.y), info.ptMinTrackSize.y)};
}

BOOL SetWindowPos(HWND handle, HWND, int x, int y, int width, int height, UINT flags) {
    Window* window = Find(handle);
    if (!window) return false;
    if (!(flags & SWP_NOSIZE)) {
        const SIZE size = AllowedSize(handle, {width, height});
        if (!(window = Find(handle))) return false;
        width = size.cx;
        height = size.cy;
    }
    RECT& place = window->minimised ? window->normal : window->place;
    const SIZE before{place.right - place.left, place.bottom - place.top};
    const SIZE after = flags & SWP_NOSIZE ? before : SIZE{width, height};
    if (!(flags & SWP_NOMOVE)) place.left = x, place.top = y;
    place.right = place.left + after.cx;
    place.bottom = place.top + after.cy;
    if (after.cx != before.cx || after.cy != before.cy) InvalidateAll(*window);
    if (!(flags & SWP_NOACTIVATE) && window->visible) Activate(handle, WA_ACTIVE);
    return true;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL) {
    return SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
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
