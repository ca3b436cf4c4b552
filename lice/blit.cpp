#include "lice/blit.h"

#include <cstring>
#include <limits>

#include "lice/blit_rows.h"
#include "lice/combine.h"
#include "lice/over_row.h"
#include "lice/scaled_blit.h"

namespace {

struct CombineChannelCopy {  // one byte goes over, the others stay; places in bits
    unsigned from, to;
    template <class Pixels>
    Pixels operator()(Pixels old, Pixels source, int) const {
        return (old & ~(0xFFu << to)) | (source >> from & 0xFFu) << to;
    }
};

template <class Combine>
void CombineRow(Combine combine, LICE_pixel* dest, const LICE_pixel* src, ptrdiff_t count, int ia) {
    CombineRun(combine, dest, count, PixelRow{src}, ia);
}

void CombineRow(CombineAlphaOpaque combine, LICE_pixel* dest, const LICE_pixel* src, ptrdiff_t count, int ia) {
    const ptrdiff_t done = OverEights(dest, src, count);
    CombineRun(combine, dest + done, count - done, PixelRow{src + done}, ia);
}

// Up to eight pixels are read before the first of them is written. Where that would miss what an overlapping row has
// just become, the pixels go one by one.
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

void BlitPlaced(LICE_IBitmap* dest, LICE_IBitmap* src, BlitPlace place, float alpha, int mode) {
    const Target to(dest), from(src);
    if (to.Empty() || from.Empty()) return;
    place.CutTo(from);
    if (to.scale != from.scale && !(mode & LICE_BLIT_IGNORE_SCALING)) {
        const int w = HeldInInt(place.right - place.left), h = HeldInInt(place.bottom - place.top);
        LICE_ScaledBlit(dest, src, HeldInInt(place.dstx), HeldInInt(place.dsty), w, h, static_cast<float>(place.left),
                        static_cast<float>(place.top), static_cast<float>(w), static_cast<float>(h), alpha, mode);
        return;
    }
    if (to.Scales(mode)) {
        for (int64_t* side : {&place.dstx, &place.dsty, &place.left, &place.top, &place.right, &place.bottom})
            *side = LICE_ScaleCoord(HeldInInt(*side), to.scale);
    }
    BlitBackingPixels(to, from, place, alpha, mode);
}

}  // namespace

void LICE_Blit(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, const RECT* source, float alpha, int mode) {
    const int64_t all = std::numeric_limits<int>::max();
    BlitPlaced(dest, src,
               source ? BlitPlace{dstx, dsty, source->left, source->top, source->right, source->bottom}
                      : BlitPlace{dstx, dsty, 0, 0, all, all},
               alpha, mode);
}

void LICE_BlitRect(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, int srcx, int srcy, int srcw, int srch,
                   float alpha, int mode) {
    BlitPlaced(dest, src, {dstx, dsty, srcx, srcy, int64_t{srcx} + srcw, int64_t{srcy} + srch}, alpha, mode);
}

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
