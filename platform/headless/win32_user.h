// platform/headless/win32_user.h
// The window half of the Win32 subset, with the system's own names, values and layouts.
// All windows are top-level, of the usual style, and painted as a whole; their classes' styles and brushes are ignored.
// What a user would do, and time itself, come from platform/headless/desktop.h.
#pragma once
#include "platform/headless/win32_gdi.h"

using HBRUSH = struct HBRUSH__*;

#define CALLBACK

using SHORT = int16_t;
using ATOM = WORD;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using HMENU = struct HMENU__*;
using HICON = struct HICON__*;
using HCURSOR = HICON;
using HMODULE = HINSTANCE;
using FARPROC = INT_PTR (*)();
using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);
using TIMERPROC = void (*)(HWND, UINT, UINT_PTR, DWORD);

struct WNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra, cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    const char *lpszMenuName, *lpszClassName;
};

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;  // never set
    RECT rcPaint;
    BOOL fRestore, fIncUpdate;
    BYTE rgbReserved[32];
};

struct MINMAXINFO {
    POINT ptReserved, ptMaxSize, ptMaxPosition, ptMinTrackSize, ptMaxTrackSize;
};

inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_ACTIVATE = 0x0006;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_GETMINMAXINFO = 0x0024;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A;
inline constexpr UINT WM_CAPTURECHANGED = 0x0215;
inline constexpr UINT WM_USER = 0x0400;

inline constexpr WORD WA_INACTIVE = 0;
inline constexpr WORD WA_ACTIVE = 1;
inline constexpr WORD WA_CLICKACTIVE = 2;

inline constexpr DWORD WS_OVERLAPPEDWINDOW = 0x00CF0000;

inline constexpr int SW_SHOW = 5;
inline constexpr int SW_MINIMIZE = 6;
inline constexpr int SW_RESTORE = 9;

inline constexpr int GWLP_WNDPROC = -4;
inline constexpr UINT GW_OWNER = 4;
inline constexpr int COLOR_WINDOW = 5;

inline constexpr UINT SPI_SETWORKAREA = 47;
inline constexpr UINT SPI_GETWORKAREA = 48;

inline constexpr UINT MF_STRING = 0;
inline constexpr UINT MF_SEPARATOR = 0x0800;
inline constexpr UINT TPM_NONOTIFY = 0x0080;
inline constexpr UINT TPM_RETURNCMD = 0x0100;

inline constexpr int VK_LBUTTON = 0x01;
inline constexpr int VK_RBUTTON = 0x02;
inline constexpr int VK_SHIFT = 0x10;

#define IDC_ARROW reinterpret_cast<const char*>(uintptr_t{32512})

inline constexpr WORD LOWORD(uint64_t value) { return static_cast<WORD>(value); }
inline constexpr WORD HIWORD(uint64_t value) { return static_cast<WORD>(value >> 16); }
inline constexpr WPARAM MAKEWPARAM(int low, int high) {
    return static_cast<WORD>(low) | static_cast<DWORD>(static_cast<WORD>(high)) << 16;
}
inline constexpr LPARAM MAKELPARAM(int low, int high) { return static_cast<LPARAM>(MAKEWPARAM(low, high)); }

extern "C" {
HMODULE GetModuleHandleA(const char* name);                // null names the program; else "user32.dll" only
FARPROC GetProcAddress(HMODULE module, const char* name);  // GetDpiForWindow and AdjustWindowRectExForDpi only
BOOL SystemParametersInfoA(UINT action, UINT number, void* record, UINT winIni);  // the work area only

// Classes and windows
ATOM RegisterClassA(const WNDCLASSA* windowClass);  // 0 when the name is taken
BOOL UnregisterClassA(const char* name, HINSTANCE instance);
HCURSOR LoadCursorA(HINSTANCE instance, const char* name);
HWND CreateWindowExA(DWORD exStyle, const char* className, const char* title, DWORD style, int x, int y, int width,
                     int height, HWND owner, HMENU menu, HINSTANCE instance, void* parameter);
BOOL DestroyWindow(HWND window);
BOOL IsWindow(HWND window);
BOOL IsIconic(HWND window);
BOOL ShowWindow(HWND window, int command);  // true when it was visible before
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
// From a client area to the window around it; of the usual style and without a menu only.
BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL menu, DWORD exStyle);
BOOL GetWindowRect(HWND window, RECT* rect);
BOOL GetClientRect(HWND window, RECT* rect);
BOOL ClientToScreen(HWND window, POINT* point);
HWND FindWindowA(const char* className, const char* title);
HWND GetWindow(HWND window, UINT relation);                          // GW_OWNER only
LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value);  // GWLP_WNDPROC only

// Messages
LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// The one in front
HWND GetForegroundWindow();
BOOL SetForegroundWindow(HWND window);

// Painting
BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);  // null only: the whole client area
BOOL UpdateWindow(HWND window);
HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);

// Timers
UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT ms, TIMERPROC procedure);  // null only: it sends WM_TIMER
BOOL KillTimer(HWND window, UINT_PTR id);

// Mouse and keys
HWND SetCapture(HWND window);
HWND GetCapture();
BOOL ReleaseCapture();
BOOL GetCursorPos(POINT* point);
SHORT GetAsyncKeyState(int key);

// Popup menus
HMENU CreatePopupMenu();
BOOL AppendMenuA(HMENU menu, UINT flags, UINT_PTR id, const char* text);
BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner, const RECT* rect);
BOOL DestroyMenu(HMENU menu);
}
