// platform/headless/win32_types.h
// Win32's basic types and records, with their sizes and layouts on 64-bit Windows.
#pragma once
#include <cstdint>

using BYTE = uint8_t;
using WORD = uint16_t;
using DWORD = uint32_t;
using UINT = uint32_t;
using LONG = int32_t;
using BOOL = int;

// Handles are opaque, and of types of their own, so that one kind is not taken for another.
using HWND = struct HWND__*;
using HINSTANCE = struct HINSTANCE__*;

struct ACCEL {
    BYTE fVirt;
    WORD key;
    WORD cmd;
};
