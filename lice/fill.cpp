#include "lice/fill.h"

#include <algorithm>
#include <cstring>

#include "lice/paint.h"
#include "lice/store_row.h"
#include "lice/target.h"

// Long rows are copies of the first, since memcpy moves more at a time than SSE2 stores.
static void StoreRows(LICE_pixel* first, ptrdiff_t step, int w, int h, LICE_pixel color) {
    constexpr int LongRow = 64;
    StoreRow(first, w, color);
    for (LICE_pixel* row = first + step; --h > 0; row += step) {
        if (w < LongRow) {
            StoreRow(row, w, color);
        } else {
            memcpy(row, first, w * sizeof(LICE_pixel));
        }
    }
}

template <class Combine>
static void FillRows(const Paint<Combine>& paint, LICE_pixel* row, ptrdiff_t step, int w, int h) {
    if constexpr (std::is_same_v<Combine, CombineSolid>) {
        StoreRows(row, step, w, h, paint.color);
    } else {
        for (; h > 0; --h, row += step) paint.Run(row, w);
    }
}

void LICE_Clear(LICE_IBitmap* dest, LICE_pixel color) {
    const Target target(dest);
    if (!target.Empty()) StoreRows(target.bits, target.span, target.width, target.height, color);
}

static void FillOn(const Target& target, LICE_FilledRect r, LICE_pixel color, int mode) {
    if (mode & LICE_BLIT_USE_ALPHA) r.alpha = static_cast<float>(r.alpha * ((color >> 24) / 255.0));
    const Extent across = Extent{target.Coord(r.x), target.Size(r.w)}.Within(0, target.width);
    const Extent down = Extent{target.Coord(r.y), target.Size(r.h)}.Within(0, target.height);
    if (across.size < 1 || down.size < 1) return;
    const int w = static_cast<int>(across.size), h = static_cast<int>(down.size);

    LICE_pixel* const first = target.At(across.start, down.start);
    WithPaint<CopyForms::Fast>(color, mode, Opacity(r.alpha),
                               [&](auto paint) { FillRows(paint, first, target.Down(), w, h); });
}

void LICE_FillRect(LICE_IBitmap* dest, int x, int y, int w, int h, LICE_pixel color, float alpha, int mode) {
    const LICE_FilledRect rect = {x, y, w, h, alpha};
    LICE_FillRects(dest, &rect, 1, color, mode);
}

void LICE_FillRects(LICE_IBitmap* dest, const LICE_FilledRect* rects, int count, LICE_pixel color, int mode) {
    const Target target(dest, mode);
    if (target.Empty()) return;
    for (; count > 0; --count, ++rects) FillOn(target, *rects, color, mode);
}
