// Where windows stand: their frames, the work area, moving and resizing.
#include <algorithm>
#include <cstring>

#include "platform/headless/desktop_state.h"

using namespace desktop;

void desktop::SetFrame(const Frame& frame) { Desktop().frame = frame; }

// What a frame adds on each side of the client area.
static RECT FrameAt(UINT dpi) {
    const auto scaled = [dpi](int length) { return static_cast<int>((length * dpi + 48) / 96); };
    const Frame& frame = Desktop().frame;
    const int side = scaled(frame.border) + scaled(frame.padding);
    return {side, side + scaled(frame.caption), side, side};
}

static UINT WindowDpi() { return Desktop().frame.dpi ? Desktop().frame.dpi : 96; }

static RECT ClientArea(const Window& window) {
    const RECT& place = window.place;
    if (window.minimised) return {place.left, place.top, place.left, place.top};
    const RECT frame = FrameAt(WindowDpi());
    const LONG left = place.left + frame.left, top = place.top + frame.top;
    return {left, top, std::max(left, place.right - frame.right), std::max(top, place.bottom - frame.bottom)};
}

static BOOL AdjustWindowRectExForDpi(RECT* rect, DWORD style, BOOL menu, DWORD, UINT dpi) {
    if (style != WS_OVERLAPPEDWINDOW || menu) Fail("the frame of a window of another style than the usual one");
    const RECT frame = FrameAt(dpi);
    *rect = {rect->left - frame.left, rect->top - frame.top, rect->right + frame.right, rect->bottom + frame.bottom};
    return true;
}

BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL menu, DWORD exStyle) {
    return AdjustWindowRectExForDpi(rect, style, menu, exStyle, 96);
}

static UINT GetDpiForWindow(HWND window) { return Find(window) ? WindowDpi() : 0; }

static const HMODULE Program = reinterpret_cast<HMODULE>(uintptr_t{0x400000}),
                     User32 = reinterpret_cast<HMODULE>(uintptr_t{0x500000});

HMODULE GetModuleHandleA(const char* name) {
    if (!name) return Program;
    return std::strcmp(name, "user32.dll") == 0 ? User32 : nullptr;
}

// Only what older systems lack is looked up; the rest is linked.
FARPROC GetProcAddress(HMODULE module, const char* name) {
    if (module != User32 || Desktop().frame.dpi == 0) return nullptr;
    void* function = nullptr;
    if (std::strcmp(name, "GetDpiForWindow") == 0) function = reinterpret_cast<void*>(GetDpiForWindow);
    if (std::strcmp(name, "AdjustWindowRectExForDpi") == 0)
        function = reinterpret_cast<void*>(AdjustWindowRectExForDpi);
    return reinterpret_cast<FARPROC>(function);
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
    const RECT frame = FrameAt(WindowDpi());
    MINMAXINFO info{};
    info.ptMaxSize = info.ptMaxTrackSize = {Screen.cx + 2 * frame.left, Screen.cy + 2 * frame.left};
    info.ptMaxPosition = {-frame.left, -frame.left};
    info.ptMinTrackSize = {136, frame.top + frame.bottom};
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
