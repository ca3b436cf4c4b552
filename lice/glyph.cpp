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

template <class Combine>
void DrawMask(Combine combine, Glyph g) {
    for (; g.height > 0; --g.height, g.row += g.rowStep, g.mask += g.maskSpan)
        for (int x = 0; x < g.width; ++x)
            if (g.mask[x]) g.row[x] = combine(g.row[x], g.color, g.Weight(g.mask[x]));
}

// As many bytes of a mask as the type has.
template <class Bytes>
Bytes LoadMask(const unsigned char* mask) {
    Bytes bytes;
    memcpy(&bytes, mask, sizeof bytes);
    return bytes;
}

// Eight pixels at a time, then four, then what is left; weight 0 leaves its pixel as it is.
void DrawMask(CombineCopy combine, Glyph g) {
    const FourPixels color = OneColor{g.color}.Four(0);
    for (; g.height > 0; --g.height, g.row += g.rowStep, g.mask += g.maskSpan) {
        LICE_pixel* row = g.row;
        const unsigned char* mask = g.mask;
        const auto drawFour = [&](const FourWeights& weights) {
            StoreFour(row, combine(LoadFour(row), color, weights));
            row += 4;
        };
        for (int x = 0; x + 8 <= g.width; x += 8, mask += 8) {
            const auto weights = EightWeights::Coverage(LoadMask<uint64_t>(mask), g.ia);
            drawFour(weights.first);
            drawFour(weights.second);
        }
        if (g.width & 4) {
            drawFour(FourWeights::Coverage(LoadMask<uint32_t>(mask), g.ia));
            mask += 4;
        }
        if (const int some = g.width & 3) {
            uint32_t coverage = some == 1 ? *mask : LoadMask<uint16_t>(mask);
            if (some == 3) coverage |= uint32_t{mask[2]} << 16;
            const FourPixels mixed = combine(LoadSome(row, some), color, FourWeights::Coverage(coverage, g.ia));
            StoreSome(row, mixed, some);
        }
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
