// lice/target.h
// What a drawing routine knows of its surface, asked once for each call: memory, rows and scale.
#pragma once
#include <cstddef>

#include "lice/bitmap.h"

struct Target {
    LICE_pixel* bits = nullptr;
    int width = 0, height = 0;                // of the backing store
    int logicalWidth = 0, logicalHeight = 0;  // before the scale
    ptrdiff_t span = 0;
    int scale = 0;  // 1/256; 0: none
    bool flipped = false;
    bool scales = false;  // this call's coordinates are logical ones on a scaled surface

    // Without a mode word, coordinates are those of the backing store.
    explicit Target(LICE_IBitmap* surface, int mode = LICE_BLIT_IGNORE_SCALING) {
        if (!surface) return;
        bits = surface->getBits();
        span = surface->getRowSpan();
        flipped = surface->isFlipped();
        width = logicalWidth = surface->getWidth();
        height = logicalHeight = surface->getHeight();
        scale = static_cast<int>(surface->Extended(LICE_EXT_GET_SCALING, nullptr));
        if (scale > 0) {
            width = static_cast<int>(LICE_ScaleSize(width, scale));
            height = static_cast<int>(LICE_ScaleSize(height, scale));
            scales = !(mode & LICE_BLIT_IGNORE_SCALING);
        } else {
            scale = 0;
        }
    }

    bool Empty() const { return !bits || span == 0 || width < 1 || height < 1; }

    // This call's numbers as pixels of the backing store.
    int Coord(int value) const { return scales ? LICE_ScaleCoord(value, scale) : value; }
    int Size(int value) const { return scales ? static_cast<int>(LICE_ScaleSize(value, scale)) : value; }
    template <class Number>
    Number Real(Number value) const {
        return scales ? static_cast<Number>(LICE_ScaleFloat(value, scale)) : value;
    }

    // Rows count from the top, or as they lie in memory, where a flipped surface ends with its top row. RowOf turns one
    // count into the other. LogicalRowOf does so before the scale.
    template <class Number>
    Number RowOf(Number y) const {
        return flipped ? static_cast<Number>(height - 1) - y : y;
    }
    float LogicalRowOf(float y) const { return flipped ? static_cast<float>(logicalHeight - 1) - y : y; }
    LICE_pixel* Stored(ptrdiff_t x, ptrdiff_t row) const { return bits + row * span + x; }  // as it lies in memory
    LICE_pixel* At(ptrdiff_t x, ptrdiff_t y) const { return Stored(x, RowOf(y)); }          // from the top
    ptrdiff_t Down() const { return flipped ? -span : span; }  // from a pixel to the one below it
};
