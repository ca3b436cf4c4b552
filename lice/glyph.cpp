#include "lice/glyph.h"

#include <algorithm>

#include "lice/coverage.h"
#include "lice/target.h"

namespace {

// Each mask pixel covers as many pixels, to the right and down, as the scale has whole ones due at that place.
template <class Combine>
void DrawScaled(Combine combine, CoverageRows rows, LICE_pixel color, MaskWeight weight, int scale) {
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
                for (; pixel != end; ++pixel) *pixel = combine(*pixel, color, weight(rows.mask[x]));
            }
        }
    }
}

}  // namespace

void LICE_DrawGlyph(LICE_IBitmap* dest, int x, int y, LICE_pixel color, const unsigned char* mask, int maskWidth,
                    int maskSpan, int maskHeight, float alpha, int mode) {
    const Target target(dest);
    if (target.Empty() || !mask || maskWidth < 1 || maskHeight < 1) return;
    const bool scales = target.Scales(mode);
    const int limitX = scales ? target.logicalWidth : target.width;
    const int limitY = scales ? target.logicalHeight : target.height;

    const int left = std::max(x, 0), top = std::max(y, 0);
    const int width = static_cast<int>(std::clamp<int64_t>(int64_t{x} + maskWidth, 0, limitX)) - left;
    const int height = static_cast<int>(std::clamp<int64_t>(int64_t{y} + maskHeight, 0, limitY)) - top;
    if (width < 1 || height < 1) return;
    const ptrdiff_t span = maskSpan;
    if (span < 0) mask -= span * (maskHeight - 1);
    mask += span * (int64_t{top} - y) + (int64_t{left} - x);

    const int column = scales ? LICE_ScaleCoord(left, target.scale) : left;
    const int line = scales ? LICE_ScaleCoord(top, target.scale) : top;
    const CoverageRows rows = {mask,
                               span,
                               target.At(column, target.flipped ? target.height - 1 - line : line),
                               target.flipped ? -target.span : target.span,
                               width,
                               height};
    const MaskWeight weight = {Opacity(alpha)};
    if (!scales) return CombineCovered(rows, color, mode, weight.ia, weight);
    WithCombine<CopyForms::General>(mode, weight.ia,
                                    [&](auto combine) { DrawScaled(combine, rows, color, weight, target.scale); });
}
