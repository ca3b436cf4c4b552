// lice/blit.h
// Moves rectangles of pixels from one surface to another. Nothing is reported: a null surface, one without pixels,
// alpha 0 and an empty clip draw nothing. Whatever the arguments, nothing is read or written outside the surfaces.
// The two surfaces may be one: rows are then walked from the top of the rectangle, each pixel from left to right, and
// overlap is cared for only within a row of an opaque copy.
#pragma once
#include "lice/bitmap.h"

// source: what to take; null takes all of src. Surfaces of different draw scale go through LICE_ScaledBlit.
// In a mode byte from 0xF0 on, each pixel only gives one byte: bits 0 and 1 choose it in src, bits 2 and 3 in dest.
void LICE_Blit(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, const RECT* source, float alpha, int mode);
void LICE_BlitRect(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, int srcx, int srcy, int srcw, int srch,
                   float alpha, int mode);
