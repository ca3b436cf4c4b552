// lice/blit_rows.h
// What the blits and the blur share: a rectangle of a source on a destination, cut to both, and its rows.
#pragma once
#include <algorithm>
#include <functional>

#include "lice/safe_math.h"
#include "lice/target.h"

// Whether they are one surface, or two on the same memory.
inline bool SharePixels(const Target& a, const Target& b) {
    return std::less<>{}(a.bits, b.Stored(0, b.height)) && std::less<>{}(b.bits, a.Stored(0, a.height));
}

// The sides are 64-bit numbers, so that sums of ints cannot overflow.
struct BlitPlace {
    int64_t dstx, dsty;
    int64_t left, top, right, bottom;  // of the source

    // Cuts the rectangle to the source. A cut at the left or the top moves the destination.
    void CutTo(const Target& source) {
        dstx -= std::min<int64_t>(left, 0);
        dsty -= std::min<int64_t>(top, 0);
        left = std::max<int64_t>(left, 0);
        top = std::max<int64_t>(top, 0);
        right = std::min<int64_t>(right, source.width);
        bottom = std::min<int64_t>(bottom, source.height);
    }
};

struct BlitRows {
    ptrdiff_t width = 0, height = 0;  // 0: nothing to do
    LICE_pixel* dest = nullptr;
    const LICE_pixel* src = nullptr;
    ptrdiff_t destStep = 0, srcStep = 0;  // from row to row; negative on a flipped surface

    // `place` counts backing pixels and was cut to the source.
    BlitRows(const Target& to, const Target& from, BlitPlace place) {
        const Extent across = Extent{place.dstx, place.right - place.left}.Within(0, to.width);
        const Extent down = Extent{place.dsty, place.bottom - place.top}.Within(0, to.height);
        if (to.Empty() || from.Empty() || across.size < 1 || down.size < 1) return;

        width = static_cast<ptrdiff_t>(across.size);
        height = static_cast<ptrdiff_t>(down.size);
        dest = to.At(across.start, down.start);
        src = from.At(place.left + across.start - place.dstx, place.top + down.start - place.dsty);
        destStep = to.Down();
        srcStep = from.Down();
    }

    LICE_pixel* Dest(ptrdiff_t y) const { return dest + y * destStep; }
    const LICE_pixel* Src(ptrdiff_t y) const { return src + y * srcStep; }

    // Makes one long row of rows that have no gap on either side. Surfaces that share pixels need their rows in order.
    void Join() {
        if (destStep != width || srcStep != width) return;
        width *= height;
        height = 1;
    }
};

// The end of LICE_Blit, and of a LICE_ScaledBlit of equal sizes. `place` counts backing pixels and is not cut yet.
void BlitBackingPixels(const Target& to, const Target& from, BlitPlace place, float alpha, int mode);
