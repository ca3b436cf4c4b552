// platform/window_frame.h
// Frames differ from system to system, and may be padded and drawn for a window's own DPI.
#pragma once
#include "platform/win32.h"

// The size of a window of the usual style, without a menu, around that client area.
SIZE SizeAround(HWND window, SIZE client);
