#include "lice/blur.h"

#include <memory>
#include <new>

#include "lice/blit_rows.h"
#include "lice/combine.h"

namespace {

constexpr int StackWidth = 1024;  // up to here the lines kept lie on the stack

// `upDown(x)` is the share of the rows above and below in column x, a quarter of a pixel.
template <class UpDown>
void BlurRow(LICE_pixel* out, const LICE_pixel* in, ptrdiff_t width, UpDown upDown) {
    const ptrdiff_t last = width - 1;
    out[0] = HalfOf(in[0]) + QuarterOf(in[1]) + upDown(0);
    for (ptrdiff_t x = 1; x < last; ++x) out[x] = HalfOf(in[x]) + EighthOf(in[x + 1]) + EighthOf(in[x - 1]) + upDown(x);
    out[last] = HalfOf(in[last]) + QuarterOf(in[last - 1]) + upDown(last);
}

// `lines` has room for two rows as they were before. It is null where dest is another surface.
void BlurRows(const BlitRows& rows, LICE_pixel* lines) {
    const ptrdiff_t last = rows.height - 1;
    for (ptrdiff_t y = 0; y <= last; ++y) {
        const LICE_pixel* row = rows.Src(y);
        if (lines) {
            LICE_pixel* kept = lines + (y & 1) * rows.width;
            std::copy_n(row, rows.width, kept);
            row = kept;
        }
        if (y == 0 || y == last) {
            const LICE_pixel* beside = rows.Src(y == 0 ? 1 : last - 1);  // in place, the one above is filtered by now
            BlurRow(rows.Dest(y), row, rows.width, [=](ptrdiff_t x) { return QuarterOf(beside[x]); });
        } else {
            const LICE_pixel* above = lines ? lines + (~y & 1) * rows.width : rows.Src(y - 1);
            const LICE_pixel* below = rows.Src(y + 1);
            BlurRow(rows.Dest(y), row, rows.width,
                    [=](ptrdiff_t x) { return EighthOf(above[x]) + EighthOf(below[x]); });
        }
    }
}

}  // namespace

void LICE_Blur(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, int srcx, int srcy, int srcw, int srch) {
    Target to(dest), from(src);
    for (Target* t : {&to, &from}) {
        if (t->width < t->logicalWidth || t->height < t->logicalHeight) return;
        t->width = t->logicalWidth;
        t->height = t->logicalHeight;
    }
    BlitPlace place = {dstx, dsty, srcx, srcy, int64_t{srcx} + srcw, int64_t{srcy} + srch};
    place.CutTo(from);
    place.dstx = dstx;  // a cut does not move the destination here
    place.dsty = dsty;
    const BlitRows rows(to, from, place);
    if (rows.width < 2 || rows.height < 2) return;

    if (dest != src) {
        BlurRows(rows, nullptr);
    } else if (rows.width <= StackWidth) {
        LICE_pixel lines[2 * StackWidth];
        BlurRows(rows, lines);
    } else if (const std::unique_ptr<LICE_pixel[]> lines{new (std::nothrow) LICE_pixel[size_t{2} * rows.width]}) {
        BlurRows(rows, lines.get());
    }  // without memory nothing is blurred
}
