#include "lice/glyph.h"

#include "lice/coverage.h"
#include "lice/target.h"

namespace {

// Each mask pixel covers as many pixels as the scale has whole ones due at its place.
template <class Combine>
void DrawScaled(const Paint<Combine>& paint, CoverageRows rows, int scale) {
    const MaskWeight weight = {paint.ia};
    int64_t dueRows = 0;
    for (; rows.height > 0; --rows.height, rows.mask += rows.maskSpan) {
        for (dueRows += scale; dueRows >= 256; dueRows -= 256, rows.pixels += rows.span) {
            int64_t due = 0;
            LICE_pixel* pixel = rows.pixels;
            for (int x = 0; x < rows.width; ++x) {
                due += scale;
                LICE_pixel* const end = pixel + due / 256;
                due %= 256;
                if (rows.mask[x] == 0) pixel = end;
                for (; pixel != end; ++pixel) paint.Dot(pixel, weight(rows.mask[x]));
            }
        }
    }
}

}  // namespace

void LICE_DrawGlyph(LICE_IBitmap* dest, int x, int y, LICE_pixel color, const unsigned char* mask, int maskWidth,
                    int maskSpan, int maskHeight, float alpha, int mode) {
    const Target target(dest, mode);
    if (target.Empty() || !mask || maskWidth < 1 || maskHeight < 1) return;
    const Extent across = Extent{x, maskWidth}.Within(0, target.scales ? target.logicalWidth : target.width);
    const Extent down = Extent{y, maskHeight}.Within(0, target.scales ? target.logicalHeight : target.height);
    if (across.size < 1 || down.size < 1) return;

    const ptrdiff_t span = maskSpan;
    if (span < 0) mask -= span * (maskHeight - 1);
    const int left = static_cast<int>(across.start), top = static_cast<int>(down.start);
    const CoverageRows rows = {mask + span * (down.start - y) + (across.start - x),
                               span,
                               target.At(target.Coord(left), target.Coord(top)),
                               target.Down(),
                               static_cast<int>(across.size),
                               static_cast<int>(down.size)};
    const int ia = Opacity(alpha);
    if (!target.scales) return CombineCovered(rows, color, mode, ia, MaskWeight{ia});
    WithPaint<CopyForms::General>(color, mode, ia, [&](auto paint) { DrawScaled(paint, rows, target.scale); });
}
