// platform/font.h
// The typeface of all that is drawn, on the panel and in pictures: Segoe UI, smoothed.
#pragma once
#include "platform/win32.h"

// A negative height is the em's, a positive one the cell's. The caller deletes the font.
HFONT CreateInterfaceFont(int height, int weight = 600);
