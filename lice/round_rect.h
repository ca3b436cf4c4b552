// lice/round_rect.h
// The outline of a rectangle with rounded corners.
#pragma once
#include "lice/bitmap.h"

// It runs from x to x + w and from y to y + h, both included, in whole pixels: pass a width less 1. The radius is cut
// to what fits, and below 2 corners are square. A place or size that is not finite draws nothing.
void LICE_RoundRect(LICE_IBitmap* dest, float x, float y, float w, float h, int cornerRadius, LICE_pixel color,
                    float alpha, int mode, bool aa);
