// lice/blit_rows.h
// What the blits and the blur share: a rectangle of a source laid on a destination, cut to both, and the rows to walk.
#pragma once
#include <algorithm>
#include <functional>

#include "lice/safe_math.h"
#include "lice/target.h"

// Whether they are one surface, or two on the same memory.
inline bool SharePixels(const Target& a, const Target& b) {
    return std::less<>{}(a.bits, b.Stored(0, b.height)) && std::less<>{}(b.bits, a.Stored(0, a.height));
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

struct BlitRows {
    ptrdiff_t width = 0, height = 0;  // 0: nothing to do
    LICE_pixel* dest = nullptr;
    const LICE_pixel* src = nullptr;
    ptrdiff_t destStep = 0, srcStep = 0;  // from row to row; negative on a flipped surface

    // `place` was cut to the source; all of it is in backing pixels.
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

    // Rows without a gap between them, on either side, are as good as one long row. Not for surfaces that share pixels,
    // where it matters which row goes first.
    void Join() {
        if (destStep != width || srcStep != width) return;
        width *= height;
        height = 1;
    }
};

// Where LICE_Blit ends, and a LICE_ScaledBlit of equal sizes too: `place` is in backing pixels and is still to be cut.
void BlitBackingPixels(const Target& to, const Target& from, BlitPlace place, float alpha, int mode);
