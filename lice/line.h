// lice/line.h
// Lines and rectangle outlines. Both ends are drawn. A null surface, opacity 0 or an unknown mode draws nothing.
#pragma once
#include "lice/bitmap.h"

void LICE_Line(LICE_IBitmap* dest, int x1, int y1, int x2, int y2, LICE_pixel color, float alpha, int mode, bool aa);

// Without aa, draws the line of the truncated coordinates.
void LICE_FLine(LICE_IBitmap* dest, float x1, float y1, float x2, float y2, LICE_pixel color, float alpha, int mode,
                bool aa);

// An outline from x to x + w and from y to y + h, inclusive. Corners are drawn twice. Smooth on a scaled surface.
void LICE_DrawRect(LICE_IBitmap* dest, int x, int y, int w, int h, LICE_pixel color, float alpha, int mode);
