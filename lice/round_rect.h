// lice/round_rect.h
// The outline of a rectangle with rounded corners.
#pragma once
#include "lice/bitmap.h"

struct Target;

// It runs from x to x + w and from y to y + h, both included, in whole pixels: pass a width less 1. The radius is cut
// to what fits, and below 2 corners are square. A place or size that is not finite draws nothing.
void LICE_RoundRect(LICE_IBitmap* dest, float x, float y, float w, float h, int cornerRadius, LICE_pixel color,
                    float alpha, int mode, bool aa);

// Its four corners alone, softly, as copies of an opacity of 1 to 256. They do not meet, and lie on the surface with
// all their pixels; it has no scale.
void LICE_RoundCorners(const Target& target, int x, int y, int w, int h, int radius, LICE_pixel color, int ia);
