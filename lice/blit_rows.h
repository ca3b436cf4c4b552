// lice/blit_rows.h
// What the blits and the blur share: a rectangle of a source laid on a destination, cut to both, and the rows to walk.
#pragma once
#include <algorithm>
#include <functional>

#include "lice/target.h"

// Whether they are one surface, or two on the same memory.
inline bool SharePixels(const Target& a, const Target& b) {
    return std::less<>{}(a.bits, b.At(0, b.height)) && std::less<>{}(b.bits, a.At(0, a.height));
}

// In 64 bits, so that neither the sum of two ints nor their difference can overflow.
struct BlitPlace {
    int64_t dstx, dsty;
    int64_t left, top, right, bottom;  // of the source

    // Cuts the rectangle to the source. What is lost at the left and the top moves the destination.
    void CutTo(const Target& source) {
        dstx -= std::min<int64_t>(left, 0);
        dsty -= std::min<int64_t>(top, 0);
        left = std::max<int64_t>(left, 0);
        top = std::max<int64_t>(top, 0);
        right = std::min<int64_t>(right, source.width);
        bottom = std::min<int64_t>(bottom, source.height);
    }
};

// Where LICE_Blit ends, and an unscaled LICE_ScaledBlit too: `place` is in backing pixels and is still to be cut.
void BlitBackingPixels(const Target& to, const Target& from, BlitPlace place, float alpha, int mode);

struct BlitRows {
    ptrdiff_t width = 0, height = 0;  // 0: nothing to do
    LICE_pixel* dest = nullptr;
    const LICE_pixel* src = nullptr;
    ptrdiff_t destSpan = 0, srcSpan = 0;  // negative on a flipped surface

    // `place` was cut to the source; all of it is in backing pixels.
    BlitRows(const Target& to, const Target& from, BlitPlace place) {
        place.left -= std::min<int64_t>(place.dstx, 0);
        place.top -= std::min<int64_t>(place.dsty, 0);
        place.dstx = std::max<int64_t>(place.dstx, 0);
        place.dsty = std::max<int64_t>(place.dsty, 0);
        const int64_t w = std::min(place.right - place.left, to.width - place.dstx);
        const int64_t h = std::min(place.bottom - place.top, to.height - place.dsty);
        if (to.Empty() || from.Empty() || w < 1 || h < 1) return;

        width = static_cast<ptrdiff_t>(w);
        height = static_cast<ptrdiff_t>(h);
        dest = to.At(place.dstx, to.flipped ? to.height - 1 - place.dsty : place.dsty);
        src = from.At(place.left, from.flipped ? from.height - 1 - place.top : place.top);
        destSpan = to.flipped ? -to.span : to.span;
        srcSpan = from.flipped ? -from.span : from.span;
    }

    LICE_pixel* Dest(ptrdiff_t y) const { return dest + y * destSpan; }
    const LICE_pixel* Src(ptrdiff_t y) const { return src + y * srcSpan; }

    // Rows without a gap between them, on either side, are as good as one long row. Not for surfaces that share pixels,
    // where it matters which row goes first.
    void Join() {
        if (destSpan != width || srcSpan != width) return;
        width *= height;
        height = 1;
    }
};
