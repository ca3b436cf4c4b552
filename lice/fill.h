// lice/fill.h
// Clearing and filled rectangles. They clip to the surface; a null surface, opacity 0 or an unknown mode draws nothing.
#pragma once
#include "lice/bitmap.h"

// Stores the colour, alpha included, in every pixel.
void LICE_Clear(LICE_IBitmap* dest, LICE_pixel color);

// w by h pixels. With LICE_BLIT_USE_ALPHA the colour's own alpha is multiplied into `alpha`.
void LICE_FillRect(LICE_IBitmap* dest, int x, int y, int w, int h, LICE_pixel color, float alpha, int mode);

// Fills several rectangles in their order, each with an opacity of its own.
struct LICE_FilledRect {
    int x, y, w, h;
    float alpha;
};
void LICE_FillRects(LICE_IBitmap* dest, const LICE_FilledRect* rects, int count, LICE_pixel color, int mode);
