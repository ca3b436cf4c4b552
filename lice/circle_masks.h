// lice/circle_masks.h
// Ready-made coverage of the small circles that buttons and knobs are full of: no square roots, and a better shape than
// a raster has room for at that size. Radii 1 to 4 in steps of a half, and 5, 6, 7; the last three anti-aliased only.
#pragma once
#include <cstdint>

struct CircleMask {
    const uint8_t* coverage;  // row-major, one byte a pixel, 255 is full; null: no mask is held, draw the raster
    int size;                 // pixels in a row, and rows
};

// The radius is compared exactly: 2.0 has a mask, 2.0001 has none.
CircleMask SmallCircleMask(float r, bool filled, bool aa);
