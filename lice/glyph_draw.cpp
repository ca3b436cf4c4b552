#include "lice/glyph_draw.h"

#include <algorithm>

#include "lice/coverage.h"
#include "lice/fill.h"
#include "lice/safe_math.h"
#include "lice/target.h"

namespace {

constexpr uint8_t FullyCovered = 255;

struct OpaqueWeight {  // for opacity 256, where full coverage is opaque
    int operator()(int coverage) const { return coverage + 1; }
    FourWeights Four(uint32_t coverage) const { return FourWeights::CoverageOpaque(coverage); }
    EightWeights Eight(uint32_t a, uint32_t b) const { return {Four(a), Four(b)}; }
};

struct HeldWeight : MaskWeight {
    int operator()(int coverage) const { return std::min(MaskWeight::operator()(coverage), 256); }
};

// Each covered pixel takes one of two colours, at one opacity.
void DrawTwoColors(const CoverageRows& rows, LICE_pixel full, LICE_pixel effect, int mode, int ia) {
    const auto colorOf = [&](int coverage) { return coverage == FullyCovered ? full : effect; };
    WithCombine<CopyForms::Solid>(mode, ia, [&](auto combine) {
        ForCovered(rows, [&](LICE_pixel* pixel, int coverage) { *pixel = combine(*pixel, colorOf(coverage), ia); });
    });
}

void DrawRows(const CoverageRows& rows, const TextStyle& style, int mode) {
    const int ia = Opacity(style.alpha);
    if (style.flags & LICE_FONT_FLAG_MONO) {
        DrawTwoColors(rows, style.textColor, style.textColor, mode, std::min(ia, 256));
    } else if (style.HasEffect()) {
        DrawTwoColors(rows, style.textColor, style.effectColor, mode, std::min(ia, 256));
    } else if (ia == 256) {
        CombineCovered(rows, style.textColor, mode, ia, OpaqueWeight{});
    } else {
        CombineCovered(rows, style.textColor, mode, ia, HeldWeight{{ia}});
    }
}

}  // namespace

bool DrawGlyphMask(LICE_IBitmap* bitmap, const GlyphRecord& glyph, const uint8_t* mask, const TextStyle& style, int x,
                   int y, const RECT* clip) {
    const Target target(bitmap);
    RECT area{0, 0, target.width, target.height};
    if (clip)
        area = {std::max<LONG>(clip->left, 0), std::max<LONG>(clip->top, 0), std::min(clip->right, area.right),
                std::min(clip->bottom, area.bottom)};
    // Places are 64-bit numbers, because the pen may lie anywhere.
    int64_t left = x, top = y;
    if (style.Vertical()) {
        top += style.BottomUp() ? -glyph.leftExtra : glyph.leftExtra;
    } else {
        left -= glyph.leftExtra;
    }
    if (left >= area.right || top >= area.bottom || left + glyph.width <= area.left || top + glyph.height <= area.top)
        return true;
    const Extent across = Extent{left, glyph.width}.Within(area.left, area.right);
    const Extent down = Extent{top, glyph.height}.Within(area.top, area.bottom);
    if (across.size < 1 || down.size < 1 || target.Empty()) return false;

    const int drawX = static_cast<int>(across.start), drawY = static_cast<int>(down.start);
    const int w = static_cast<int>(across.size), h = static_cast<int>(down.size);
    const int mode = style.combineMode & ~LICE_BLIT_USE_ALPHA;
    if (style.bkMode == OPAQUE)
        LICE_FillRect(bitmap, drawX, drawY, w, h, style.bkColor, style.alpha, mode | LICE_BLIT_IGNORE_SCALING);
    const Extent ink = Extent{top + glyph.inkTop, glyph.inkEnd - glyph.inkTop}.Within(drawY, drawY + h);
    mask += (ink.start - top) * glyph.width + (drawX - left);
    if (ink.size > 0)
        DrawRows({mask, glyph.width, target.At(drawX, ink.start), target.Down(), w, static_cast<int>(ink.size)}, style,
                 mode);
    return true;
}
