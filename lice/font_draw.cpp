// One glyph onto a surface: bytes of coverage become opacities.
#include <algorithm>

#include "lice/coverage.h"
#include "lice/fill.h"
#include "lice/font.h"
#include "lice/target.h"

namespace {

constexpr uint8_t FullyCovered = 255;

struct OpaqueWeight {  // at opacity 256 full coverage is opaque, too
    int operator()(int coverage) const { return coverage + 1; }
    FourWeights Four(uint32_t coverage) const { return FourWeights::CoverageOpaque(coverage); }
    EightWeights Eight(uint32_t a, uint32_t b) const { return {Four(a), Four(b)}; }
};

struct HeldWeight : MaskWeight {
    int operator()(int coverage) const { return std::min(MaskWeight::operator()(coverage), 256); }
};

// Masks without shades: each covered pixel takes one of the two colours, at one opacity.
void DrawTwoColors(const CoverageRows& rows, LICE_pixel full, LICE_pixel effect, int mode, float alpha) {
    const auto colorOf = [&](int coverage) { return coverage == FullyCovered ? full : effect; };
    const int ia = std::min(Opacity(alpha), 256);
    WithCombine<CopyForms::Solid>(mode, ia, [&](auto combine) {
        ForCovered(rows, [&](LICE_pixel* pixel, int coverage) { *pixel = combine(*pixel, colorOf(coverage), ia); });
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
    const CoverageRows rows{mask + static_cast<ptrdiff_t>(skipY) * glyph->width + skipX,
                            glyph->width,
                            target.At(drawX, drawY),
                            target.Down(),
                            w,
                            h};
    const int ia = Opacity(alpha_);
    if (flags_ & LICE_FONT_FLAG_MONO) {
        DrawTwoColors(rows, textColor_, textColor_, mode, alpha_);
    } else if (flags_ & (LICE_FONT_FLAG_SHADOW | LICE_FONT_FLAG_OUTLINE)) {
        DrawTwoColors(rows, textColor_, effectColor_, mode, alpha_);
    } else if (ia == 256) {
        CombineCovered(rows, textColor_, mode, ia, OpaqueWeight{});
    } else {
        CombineCovered(rows, textColor_, mode, ia, HeldWeight{{ia}});
    }
    return true;
}
