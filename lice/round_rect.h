// lice/round_rect.h
// The outline of a rectangle with rounded corners.
#pragma once
#include "lice/bitmap.h"

// From x to x + w and from y to y + h, both included: pass a width in pixels less 1. Rounded to whole pixels. The
// radius is cut to what fits; below 2 the corners are square. Without a place and a size that are finite nothing is
// drawn.
void LICE_RoundRect(LICE_IBitmap* dest, float x, float y, float w, float h, int cornerRadius, LICE_pixel color,
                    float alpha, int mode, bool aa);
