#include "lice/blit_rows.h"

#include <cstring>

#include "lice/over_row.h"
#include "lice/paint.h"

namespace {

struct CombineChannelCopy {  // one byte is copied, the others stay; both places in bits
    unsigned from, to;
    template <class Pixels>
    Pixels operator()(Pixels old, Pixels source, int) const {
        return (old & ~(0xFFu << to)) | (source >> from & 0xFFu) << to;
    }
};

template <class Combine>
void CombineRow(Combine combine, LICE_pixel* dest, const LICE_pixel* src, ptrdiff_t count, int ia) {
    ptrdiff_t done = 0;
    if constexpr (std::is_same_v<Combine, CombineAlphaOpaque>) done = OverEights(dest, src, count);
    CombineRun(combine, dest + done, count - done, PixelRow{src + done}, ia);
}

// Up to eight pixels are read before the first of them is written. Pixels that overlap more closely go one by one.
template <class Combine>
void CombineRows(Combine combine, const BlitRows& rows, int ia) {
    constexpr uintptr_t ReadAhead = 8 * sizeof(LICE_pixel);
    for (ptrdiff_t y = 0; y < rows.height; ++y) {
        LICE_pixel* dest = rows.Dest(y);
        const LICE_pixel* src = rows.Src(y);
        const uintptr_t lead = reinterpret_cast<uintptr_t>(dest) - reinterpret_cast<uintptr_t>(src);
        if (lead != 0 && lead < ReadAhead) {
            for (ptrdiff_t x = 0; x < rows.width; ++x) CombineRun(combine, dest + x, 1, PixelRow{src + x}, ia);
        } else {
            CombineRow(combine, dest, src, rows.width, ia);
        }
    }
}

}  // namespace

void BlitBackingPixels(const Target& to, const Target& from, BlitPlace place, float alpha, int mode) {
    place.CutTo(from);
    BlitRows rows(to, from, place);
    if (rows.height < 1 || alpha == 0.0f) return;
    if (!SharePixels(to, from)) rows.Join();

    const int modeByte = mode & LICE_BLIT_MODE_MASK;
    const bool plainCopy = modeByte == LICE_BLIT_MODE_COPY && !(mode & LICE_BLIT_USE_ALPHA);
    if (modeByte >= LICE_BLIT_MODE_CHANCOPY) {
        CombineRows(CombineChannelCopy{(mode & 3u) * 8, (mode >> 2 & 3u) * 8}, rows, 256);
    } else if (plainCopy && alpha == 1.0f) {
        for (ptrdiff_t y = 0; y < rows.height; ++y) memmove(rows.Dest(y), rows.Src(y), rows.width * sizeof(LICE_pixel));
    } else if (plainCopy && alpha == 0.5f) {
        CombineRows(CombineFastHalf{}, rows, 128);
    } else {
        const int ia = Opacity(alpha);
        WithBlitCombine<CopyForms::Solid>(mode, ia, [&](auto combine) { CombineRows(combine, rows, ia); });
    }
}
