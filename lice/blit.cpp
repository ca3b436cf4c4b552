#include "lice/blit.h"

#include <limits>

#include "lice/blit_rows.h"
#include "lice/scaled_blit.h"

static void BlitPlaced(LICE_IBitmap* dest, LICE_IBitmap* src, BlitPlace place, float alpha, int mode) {
    const Target to(dest, mode), from(src, mode);
    if (to.Empty() || from.Empty()) return;
    place.CutTo(from);
    if (to.scale != from.scale && !(mode & LICE_BLIT_IGNORE_SCALING)) {
        const int w = HeldInInt(place.right - place.left), h = HeldInInt(place.bottom - place.top);
        LICE_ScaledBlit(dest, src, HeldInInt(place.dstx), HeldInInt(place.dsty), w, h, static_cast<float>(place.left),
                        static_cast<float>(place.top), static_cast<float>(w), static_cast<float>(h), alpha, mode);
        return;
    }
    if (to.scales) {
        for (int64_t* side : {&place.dstx, &place.dsty, &place.left, &place.top, &place.right, &place.bottom})
            *side = to.Coord(HeldInInt(*side));
    }
    BlitBackingPixels(to, from, place, alpha, mode);
}

void LICE_Blit(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, const RECT* source, float alpha, int mode) {
    constexpr int64_t all = std::numeric_limits<int>::max();
    BlitPlaced(dest, src,
               source ? BlitPlace{dstx, dsty, source->left, source->top, source->right, source->bottom}
                      : BlitPlace{dstx, dsty, 0, 0, all, all},
               alpha, mode);
}

void LICE_BlitRect(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, int srcx, int srcy, int srcw, int srch,
                   float alpha, int mode) {
    BlitPlaced(dest, src, {dstx, dsty, srcx, srcy, int64_t{srcx} + srcw, int64_t{srcy} + srch}, alpha, mode);
}
