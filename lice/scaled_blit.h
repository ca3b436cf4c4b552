// lice/scaled_blit.h
// Stretches a rectangle of one surface over a rectangle of another. Destination pixel i of an axis reads its source at
// start + i * step, in 16.16, without centring. Nothing is drawn where that falls outside src.
#pragma once
#include "lice/bitmap.h"

// The filter field of the mode word. With it, shrinking by 1.7 or more on both axes weighs 9 or 25 source pixels, and
// anything else is bilinear. Without it, the pixel at the whole part of the position is taken.
inline constexpr int LICE_BLIT_FILTER_MASK = 0xFF00;
inline constexpr int LICE_BLIT_FILTER_BILINEAR = 0x100;

// Equal sizes become a LICE_Blit, unless the source lies between pixels and is to be filtered. A negative srcw or srch
// mirrors. A negative dstw or dsth draws nothing.
void LICE_ScaledBlit(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, int dstw, int dsth, float srcx,
                     float srcy, float srcw, float srch, float alpha, int mode);
