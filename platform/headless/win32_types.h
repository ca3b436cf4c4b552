// platform/headless/win32_types.h
// Win32's basic types and records, with their sizes and layouts on 64-bit Windows.
#pragma once
#include <cstddef>
#include <cstdint>

using BYTE = uint8_t;
using WORD = uint16_t;
using DWORD = uint32_t;
using UINT = uint32_t;
using LONG = int32_t;
using BOOL = int;
using WCHAR = char16_t;  // 16 bits, as there; wide text in shared code is arrays of WCHAR, never L"" literals
using LPCSTR = const char*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using INT_PTR = intptr_t;
using UINT_PTR = uintptr_t;
using LONG_PTR = intptr_t;

inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;

// Handles are opaque, and of types of their own, so that one kind is not taken for another.
using HANDLE = void*;
using HWND = struct HWND__*;
using HINSTANCE = struct HINSTANCE__*;

struct POINT {
    LONG x, y;
};

struct SIZE {
    LONG cx, cy;
};

struct RECT {
    LONG left, top, right, bottom;  // the last two: the first column and row outside
};

struct ACCEL {
    BYTE fVirt;
    WORD key, cmd;
};
