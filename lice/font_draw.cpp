// One glyph onto a surface: bytes of coverage become opacities.
#include <algorithm>
#include <cstring>

#include "lice/combine.h"
#include "lice/fill.h"
#include "lice/font.h"
#include "lice/target.h"

namespace {

constexpr uint8_t FullyCovered = 255;

// What is left of a mask after clipping, and where it goes.
struct GlyphRows {
    const uint8_t* mask;
    int maskSpan;
    LICE_pixel* pixels;
    ptrdiff_t span;
    int w, h;
};

// Calls each(pixel, coverage) for every covered pixel.
template <class Each>
void ForCovered(GlyphRows rows, Each each) {
    for (; rows.h > 0; --rows.h, rows.mask += rows.maskSpan, rows.pixels += rows.span)
        for (int x = 0; x < rows.w; ++x)
            if (rows.mask[x] != 0) each(rows.pixels[x], rows.mask[x]);
}

// Coverage times opacity, at most 256.
int Weight(int coverage, int ia) {
    return ia == 256 ? coverage + 1 : static_cast<int>(std::min<int64_t>(int64_t{coverage} * ia / 256, 256));
}

void DrawShades(const GlyphRows& rows, LICE_pixel color, int mode, int ia) {
    WithCombine<CopyForms::General>(mode, ia, [&](auto combine) {
        ForCovered(rows, [&](LICE_pixel& pixel, int coverage) { pixel = combine(pixel, color, Weight(coverage, ia)); });
    });
}

// Plain copying, four pixels at a time, the same to the bit. Uncovered pixels get weight 0, which keeps them. A row
// that is no multiple of four begins with two steps that overlap, both made from the old pixels.
template <class Weights>
void DrawShadesFour(const GlyphRows& rows, LICE_pixel color, int ia, Weights weights) {
    if (rows.w < 4) return DrawShades(rows, color, LICE_BLIT_MODE_COPY, ia);
    const auto coverage = [](const uint8_t* mask) {
        uint32_t four;
        std::memcpy(&four, mask, sizeof four);
        return four;
    };
    const auto mixed = [source = FourPixels{} + color, weights](const LICE_pixel* pixels, uint32_t four) {
        return Mix(LoadFour(pixels), source, weights(four));
    };
    const int w = rows.w, second = w == 4 ? 0 : (w - 1) % 4 + 1;
    const uint8_t* mask = rows.mask;
    LICE_pixel* pixels = rows.pixels;
    for (int h = rows.h; h > 0; --h, mask += rows.maskSpan, pixels += rows.span) {
        const uint32_t a = coverage(mask), b = coverage(mask + second);
        if ((a | b) != 0) {
            const FourPixels mixedA = mixed(pixels, a), mixedB = mixed(pixels + second, b);
            StoreFour(pixels, mixedA);
            StoreFour(pixels + second, mixedB);
        }
        for (int x = second + 4; x < w; x += 4)
            if (const uint32_t four = coverage(mask + x)) StoreFour(pixels + x, mixed(pixels + x, four));
    }
}

// Masks without shades: each covered pixel takes one of the two colours, at one opacity.
void DrawTwoColors(const GlyphRows& rows, LICE_pixel full, LICE_pixel effect, int mode, float alpha) {
    const auto colorOf = [&](int coverage) { return coverage == FullyCovered ? full : effect; };
    const int ia = std::min(Opacity(alpha), 256);
    WithCombine<CopyForms::Solid>(mode, ia, [&](auto combine) {
        ForCovered(rows, [&](LICE_pixel& pixel, int coverage) { pixel = combine(pixel, colorOf(coverage), ia); });
    });
}

}  // namespace

bool LICE_CachedFont::DrawGlyphAt(LICE_IBitmap* bitmap, unsigned code, int x, int y, const RECT* clip) {
    const GlyphRecord* glyph = FindDrawable(code);
    const Target target(bitmap);
    if (!glyph) return false;

    // In 64 bits, because neither the pen nor the clip is bound to lie near the surface.
    int64_t left = x, top = y;
    if (Vertical()) {
        top += BottomUp() ? -glyph->leftExtra : glyph->leftExtra;
    } else {
        left -= glyph->leftExtra;
    }
    const int64_t clipLeft = clip ? std::max<LONG>(clip->left, 0) : 0;
    const int64_t clipTop = clip ? std::max<LONG>(clip->top, 0) : 0;
    const int64_t clipRight = clip ? std::min<LONG>(clip->right, target.width) : target.width;
    const int64_t clipBottom = clip ? std::min<LONG>(clip->bottom, target.height) : target.height;
    if (left >= clipRight || top >= clipBottom || left + glyph->width <= clipLeft || top + glyph->height <= clipTop)
        return true;
    const int skipX = static_cast<int>(std::max<int64_t>(clipLeft - left, 0));
    const int skipY = static_cast<int>(std::max<int64_t>(clipTop - top, 0));
    const int drawX = static_cast<int>(left + skipX), drawY = static_cast<int>(top + skipY);
    const int w = static_cast<int>(std::min<int64_t>(glyph->width - skipX, clipRight - drawX));
    const int h = static_cast<int>(std::min<int64_t>(glyph->height - skipY, clipBottom - drawY));
    if (w < 1 || h < 1 || target.Empty()) return false;

    const int mode = combineMode_ & ~LICE_BLIT_USE_ALPHA;
    if (bkMode_ == OPAQUE) LICE_FillRect(bitmap, drawX, drawY, w, h, bkColor_, alpha_, mode | LICE_BLIT_IGNORE_SCALING);

    const uint8_t* mask = GlyphStore.Items<uint8_t>() + (glyph->offset - 1);
    const GlyphRows rows{mask + static_cast<ptrdiff_t>(skipY) * glyph->width + skipX,
                         glyph->width,
                         target.At(drawX, target.flipped ? target.height - 1 - drawY : drawY),
                         target.flipped ? -target.span : target.span,
                         w,
                         h};
    const int ia = Opacity(alpha_);
    if (flags_ & LICE_FONT_FLAG_MONO) {
        DrawTwoColors(rows, textColor_, textColor_, mode, alpha_);
    } else if (flags_ & (LICE_FONT_FLAG_SHADOW | LICE_FONT_FLAG_OUTLINE)) {
        DrawTwoColors(rows, textColor_, effectColor_, mode, alpha_);
    } else if ((mode & LICE_BLIT_MODE_MASK) != LICE_BLIT_MODE_COPY || ia < 1 || ia > 256) {
        DrawShades(rows, textColor_, mode, ia);
    } else if (ia == 256) {
        DrawShadesFour(rows, textColor_, ia, [](uint32_t four) { return FourWeights::CoverageOpaque(four); });
    } else {
        DrawShadesFour(rows, textColor_, ia, [ia](uint32_t four) { return FourWeights::Coverage(four, ia); });
    }
    return true;
}
