// lice/blit.h
// Moves rectangles of pixels from one surface to another. A null surface, one without pixels, alpha 0 and an empty clip
// draw nothing. Nothing outside the surfaces is read or written, whatever the arguments.
// The two surfaces may be one. Rows are then walked from the top, and their pixels from left to right. Only the rows of
// an opaque copy are read before they are written.
#pragma once
#include "lice/bitmap.h"

// A null source rectangle takes all of src. Surfaces of different draw scale go through LICE_ScaledBlit.
// A mode byte of 0xF0 or more copies one byte of each pixel: bits 0 and 1 choose it in src, bits 2 and 3 in dest.
void LICE_Blit(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, const RECT* source, float alpha, int mode);
void LICE_BlitRect(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, int srcx, int srcy, int srcw, int srch,
                   float alpha, int mode);
