// lice/glyph.h
// A colour through a mask of coverage: text, and small circles.
#pragma once
#include "lice/bitmap.h"

// `mask` is maskHeight rows of maskWidth bytes, 255 being full. Each row begins maskSpan bytes after the one before; a
// negative maskSpan starts at the last row and goes up.
void LICE_DrawGlyph(LICE_IBitmap* dest, int x, int y, LICE_pixel color, const unsigned char* mask, int maskWidth,
                    int maskSpan, int maskHeight, float alpha, int mode);

inline void LICE_DrawGlyph(LICE_IBitmap* dest, int x, int y, LICE_pixel color, const unsigned char* mask, int maskWidth,
                           int maskHeight, float alpha, int mode) {
    LICE_DrawGlyph(dest, x, y, color, mask, maskWidth, maskWidth, maskHeight, alpha, mode);
}
