// platform/win32.h
// The Win32 names that the module's code is written against. Off Windows, platform/headless implements those that it
// uses, with the same types, values and layouts.
#pragma once

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#undef DrawText  // also the name of a member function of the font classes
// Leftovers of 16-bit memory, whose names one wants for variables. The system's headers use the capitals.
#undef near
#undef far
#undef NEAR
#undef FAR
#define NEAR
#define FAR
#else
#include "platform/headless/win32_gdi.h"
#include "platform/headless/win32_types.h"
#include "platform/headless/win32_user.h"
#endif
