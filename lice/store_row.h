// lice/store_row.h
#pragma once
#include "lice/four_pixels.h"

// One colour in w pixels. The last store may overlap the one before.
inline void StoreRow(LICE_pixel* row, int w, LICE_pixel color) {
    const FourPixels four = FourPixels{} + color;
    if (w < 4) {
        for (int x = 0; x < w; ++x) row[x] = color;
        return;
    }
    LICE_pixel* const last = row + w - 4;
#pragma GCC unroll 8  // two stores a cycle leave no time for a loop
    for (; row < last; row += 4) StoreFour(row, four);
    StoreFour(last, four);
}
