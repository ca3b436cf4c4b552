#include "lice/glyph.h"

#include <algorithm>
#include <cstring>

#include "lice/combine.h"
#include "lice/target.h"

namespace {

// What of the mask is drawn, and where its first row starts.
struct Glyph {
    const unsigned char* mask;
    ptrdiff_t maskSpan;
    int width, height;
    LICE_pixel* row;
    ptrdiff_t rowStep;
    LICE_pixel color;
    int ia;

    int Weight(int coverage) const { return static_cast<int>(Wide{coverage} * ia / 256); }
};

// Four pixels at a time where the function can weigh each; weight 0 then leaves its pixel as it is.
template <class Combine>
void DrawMask(Combine combine, Glyph g) {
    for (; g.height > 0; --g.height, g.row += g.rowStep, g.mask += g.maskSpan) {
        int x = 0;
        if constexpr (requires(FourPixels four, FourWeights weights) { combine(four, four, weights); }) {
            for (uint32_t coverage; x + 4 <= g.width; x += 4) {
                memcpy(&coverage, g.mask + x, 4);
                if (coverage == 0) continue;
                const FourPixels mixed =
                    combine(LoadFour(g.row + x), OneColor{g.color}.Four(0), FourWeights::Coverage(coverage, g.ia));
                StoreFour(g.row + x, mixed);
            }
        }
        for (; x < g.width; ++x)
            if (g.mask[x]) g.row[x] = combine(g.row[x], g.color, g.Weight(g.mask[x]));
    }
}

// Each mask pixel covers as many pixels, to the right and down, as the scale has whole ones due at that place.
template <class Combine>
void DrawScaledMask(Combine combine, Glyph g, int scale) {
    int64_t dueRows = 0;
    for (; g.height > 0; --g.height, g.mask += g.maskSpan) {
        for (dueRows += scale; dueRows >= 256; dueRows -= 256, g.row += g.rowStep) {
            int64_t due = 0;
            LICE_pixel* pixel = g.row;
            for (int x = 0; x < g.width; ++x) {
                due += scale;
                LICE_pixel* const end = pixel + due / 256;
                due %= 256;
                if (g.mask[x] == 0) pixel = end;
                for (; pixel != end; ++pixel) *pixel = combine(*pixel, g.color, g.Weight(g.mask[x]));
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
    Glyph g = {mask, maskSpan, 0, 0, nullptr, target.flipped ? -target.span : target.span, color, Opacity(alpha)};
    g.width = static_cast<int>(std::clamp<int64_t>(int64_t{x} + maskWidth, 0, limitX)) - left;
    g.height = static_cast<int>(std::clamp<int64_t>(int64_t{y} + maskHeight, 0, limitY)) - top;
    if (g.width < 1 || g.height < 1) return;
    if (maskSpan < 0) g.mask -= g.maskSpan * (maskHeight - 1);
    g.mask += g.maskSpan * (int64_t{top} - y) + (int64_t{left} - x);

    const int column = scales ? LICE_ScaleCoord(left, target.scale) : left;
    const int line = scales ? LICE_ScaleCoord(top, target.scale) : top;
    g.row = target.At(column, target.flipped ? target.height - 1 - line : line);
    WithCombine<CopyForms::General>(mode, g.ia, [&](auto combine) {
        if (scales) {
            DrawScaledMask(combine, g, target.scale);
        } else {
            DrawMask(combine, g);
        }
    });
}
