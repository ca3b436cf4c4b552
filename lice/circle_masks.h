// lice/circle_masks.h
// Ready-made coverage of small circles: no square roots, and a better shape than a raster finds at that size.
// Radii 1 to 4 in steps of a half, and 5, 6 and 7, the last three anti-aliased only.
#pragma once
#include <cstdint>

struct CircleMask {
    const uint8_t* coverage;  // a byte for each pixel, row by row, 255 is full; null: no mask is held
    int size;                 // pixels in a row, and rows
};

// Compares the radius exactly: 2.0 has a mask, 2.0001 has none.
CircleMask SmallCircleMask(float r, bool filled, bool aa);
