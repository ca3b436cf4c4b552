// lice/target.h
// What a drawing routine knows of the surface it draws on, asked once at its head.
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

    explicit Target(LICE_IBitmap* surface) {
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
        } else {
            scale = 0;
        }
    }

    bool Empty() const { return !bits || span == 0 || width < 1 || height < 1; }
    // Whether this call's coordinates are logical and the backing store is larger or smaller.
    bool Scales(int mode) const { return scale > 0 && !(mode & LICE_BLIT_IGNORE_SCALING); }
    // A pixel of the backing store by its place in memory: y counts rows as they are stored, flipped or not.
    LICE_pixel* At(ptrdiff_t x, ptrdiff_t y) const { return bits + y * span + x; }
};
