#include "platform/window_frame.h"

template <class Function>
static Function* Find(HMODULE module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

// Older systems know one DPI for all windows, and lack the two functions that are looked up.
SIZE SizeAround(HWND window, SIZE client) {
    const HMODULE system = GetModuleHandleA("user32.dll");
    const auto dpiOf = Find<UINT CALLBACK(HWND)>(system, "GetDpiForWindow");
    const auto adjust = Find<BOOL CALLBACK(RECT*, DWORD, BOOL, DWORD, UINT)>(system, "AdjustWindowRectExForDpi");
    RECT place{0, 0, client.cx, client.cy};
    if (dpiOf && adjust)
        adjust(&place, WS_OVERLAPPEDWINDOW, FALSE, 0, dpiOf(window));
    else
        AdjustWindowRectEx(&place, WS_OVERLAPPEDWINDOW, FALSE, 0);
    return {place.right - place.left, place.bottom - place.top};
}
