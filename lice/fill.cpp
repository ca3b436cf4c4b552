#include "lice/fill.h"

#include <algorithm>
#include <cstring>

#include "lice/combine.h"
#include "lice/target.h"

template <class Combine>
static void FillRows(Combine combine, LICE_pixel* row, ptrdiff_t span, int w, int h, LICE_pixel color, int ia) {
    for (; h > 0; --h, row += span) CombineRun(combine, row, w, OneColor{color}, ia);
}

// The last four pixels of a row are one store too, which may overlap the one before.
static void StoreRow(LICE_pixel* row, int w, LICE_pixel color) {
    const FourPixels four = OneColor{color}.Four(0);
    if (w < 4) {
        for (int x = 0; x < w; ++x) row[x] = color;
        return;
    }
    LICE_pixel* const last = row + w - 4;
    for (; row < last; row += 4) StoreFour(row, four);
    StoreFour(last, four);
}

// Wide rows are copies of the first: the system's memcpy moves more at a time than SSE2 stores.
static void FillRows(CombineSolid, LICE_pixel* first, ptrdiff_t span, int w, int h, LICE_pixel color, int) {
    constexpr int WideRow = 64;
    StoreRow(first, w, color);
    for (LICE_pixel* row = first + span; --h > 0; row += span) {
        if (w < WideRow) {
            StoreRow(row, w, color);
        } else {
            memcpy(row, first, w * sizeof(LICE_pixel));
        }
    }
}

void LICE_Clear(LICE_IBitmap* dest, LICE_pixel color) {
    const Target target(dest);
    if (target.Empty()) return;
    FillRows(CombineSolid{}, target.bits, target.span, target.width, target.height, color, 256);
}

static void FillOn(const Target& target, int x, int y, int w, int h, LICE_pixel color, float alpha, int mode) {
    if (target.Scales(mode)) {
        x = LICE_ScaleCoord(x, target.scale);
        y = LICE_ScaleCoord(y, target.scale);
        w = static_cast<int>(LICE_ScaleSize(w, target.scale));
        h = static_cast<int>(LICE_ScaleSize(h, target.scale));
    }
    if (mode & LICE_BLIT_USE_ALPHA) alpha = static_cast<float>(alpha * ((color >> 24) / 255.0));

    const int left = std::max(x, 0), top = std::max(y, 0);
    w = static_cast<int>(std::clamp<int64_t>(int64_t{x} + w, 0, target.width)) - left;
    h = static_cast<int>(std::clamp<int64_t>(int64_t{y} + h, 0, target.height)) - top;
    if (w < 1 || h < 1) return;

    const int firstRow = target.flipped ? target.height - top - h : top;
    const int ia = Opacity(alpha);
    WithCombine<CopyForms::Fast>(
        mode, ia, [&](auto combine) { FillRows(combine, target.At(left, firstRow), target.span, w, h, color, ia); });
}

void LICE_FillRect(LICE_IBitmap* dest, int x, int y, int w, int h, LICE_pixel color, float alpha, int mode) {
    const Target target(dest);
    if (!target.Empty()) FillOn(target, x, y, w, h, color, alpha, mode);
}

void LICE_FillRects(LICE_IBitmap* dest, const LICE_FilledRect* rects, int count, LICE_pixel color, int mode) {
    const Target target(dest);
    if (target.Empty()) return;
    for (; count > 0; --count, ++rects)
        FillOn(target, rects->x, rects->y, rects->w, rects->h, color, rects->alpha, mode);
}
