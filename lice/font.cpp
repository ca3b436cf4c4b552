#include "lice/font.h"

#include <algorithm>
#include <utility>

#include "lice/font_scratch.h"
#include "lice/glyph_draw.h"
#include "lice/glyph_render.h"
#include "lice/native_text.h"
#include "lice/safe_math.h"
#include "lice/target.h"
#include "lice/text_flow.h"

namespace {

RECT Scaled(const RECT& r, int scale) {
    return {LICE_ScaleCoord(r.left, scale), LICE_ScaleCoord(r.top, scale), LICE_ScaleCoord(r.right, scale),
            LICE_ScaleCoord(r.bottom, scale)};
}

int Unscaled(int value, int scale) { return HeldInInt(int64_t{value} * 256 / scale); }

// An opacity that is lowered for the time of a block.
class LoweredAlpha {
  public:
    LoweredAlpha(float& alpha, double factor) : alpha_(alpha), whole_(alpha) {
        alpha = static_cast<float>(alpha * factor);
    }
    ~LoweredAlpha() { alpha_ = whole_; }
    LoweredAlpha(const LoweredAlpha&) = delete;
    LoweredAlpha& operator=(const LoweredAlpha&) = delete;

  private:
    float& alpha_;
    float whole_;
};

}  // namespace

LICE_CachedFont::LICE_CachedFont() { EnterScratch(); }

LICE_CachedFont::~LICE_CachedFont() {
    DeleteOwnHFont(nullptr);
    LeaveScratch();
}

void LICE_CachedFont::DeleteOwnHFont(HFONT unless) const {
    if (style_.flags & LICE_FONT_FLAG_OWNS_HFONT && font_ && font_ != unless) DeleteObject(font_);
}

void LICE_CachedFont::SetFromHFont(HFONT font, int flags) {
    DeleteOwnHFont(font);
    style_.flags = flags;
    font_ = font;
    if (font) {
        const HDC dc = MeasureScratch(256).getDC();
        const SelectedFont selected(dc, font);
        TEXTMETRICA metrics{};
        GetTextMetricsA(dc, &metrics);
        style_.lineHeight = metrics.tmHeight;
    }
    glyphs_.Clear();
    if (flags & LICE_FONT_FLAG_PRECALC)
        for (unsigned code = 0; code < 128; ++code) RenderGlyph(glyphs_, style_, font_, code);
}

LICE_pixel LICE_CachedFont::SetTextColor(LICE_pixel color) { return std::exchange(style_.textColor, color); }

LICE_pixel LICE_CachedFont::SetBkColor(LICE_pixel color) { return std::exchange(style_.bkColor, color); }

LICE_pixel LICE_CachedFont::SetEffectColor(LICE_pixel color) { return std::exchange(style_.effectColor, color); }

int LICE_CachedFont::SetBkMode(int mode) { return std::exchange(style_.bkMode, mode); }

void LICE_CachedFont::SetCombineMode(int mode, float alpha) {
    style_.combineMode = mode;
    style_.alpha = alpha;
}

bool LICE_CachedFont::DrawGlyphAt(LICE_IBitmap* bitmap, unsigned code, int x, int y, const RECT* clip) {
    const GlyphRecord* glyph = glyphs_.FindDrawable(code);
    return glyph && DrawGlyphMask(bitmap, *glyph, glyphs_.MaskOf(*glyph), style_, x, y, clip);
}

int LICE_CachedFont::DrawText(LICE_IBitmap* bitmap, const char* text, int count, RECT* rect, UINT format) {
    if (!rect || (!bitmap && !(format & DT_CALCRECT))) return 0;
    const Target target(bitmap, style_.combineMode);
    if (target.scales) *rect = Scaled(*rect, target.scale);

    const bool noNative = format & LICE_DT_NO_NATIVE;
    format &= ~LICE_DT_NO_NATIVE;
    if (format & DT_SINGLELINE) format &= ~DT_WORDBREAK;

    const TextReader reader{text ? text : "", count};
    int result;
    if (WantsNativeText(bitmap, style_, font_, format, !noNative)) {
        result = DrawNativeText(bitmap, style_, font_, reader, rect, format);
    } else if (format & DT_CALCRECT) {
        result = MeasureText(reader, rect, format);
    } else {
        result = DrawGlyphs(bitmap, reader, *rect, format, noNative);
    }
    if (const int scale = target.scale; scale > 0) {
        *rect = {Unscaled(rect->left, scale), Unscaled(rect->top, scale), Unscaled(rect->right, scale),
                 Unscaled(rect->bottom, scale)};
        result = Unscaled(result, scale);
    }
    return result;
}

int LICE_CachedFont::MeasureText(TextReader text, RECT* rect, UINT format) {
    RenderMissing(glyphs_, style_, font_, text, format);
    const Pen size = MeasureGlyphs(glyphs_, style_, text, format, style_.Vertical() ? HeightOf(*rect) : WidthOf(*rect));
    rect->right = HeldInInt(rect->left + size.x);
    rect->bottom = HeldInInt(rect->top + size.y);
    return HeldInInt(style_.Vertical() ? size.x : size.y);
}

int LICE_CachedFont::DrawGlyphs(LICE_IBitmap* bitmap, TextReader text, const RECT& rect, UINT format, bool noNative) {
    const LoweredAlpha lowered(style_.alpha, format & LICE_DT_USE_TEXT_ALPHA ? (style_.textColor >> 24) / 255.0 : 1.0);
    if (style_.alpha == 0.0f) return 0;
    const Target target(bitmap);
    const bool vertical = style_.Vertical(), upward = style_.BottomUp();
    Pen start{rect.left, rect.top};
    if (format & TextAlignments || upward) {
        RECT size{0, 0, 0, 0};
        const UINT how = (format & DT_SINGLELINE) | DT_CALCRECT | (noNative ? LICE_DT_NO_NATIVE : 0);
        DrawText(bitmap, text.at, text.left, &size, how);
        if (target.scale > 0) size = Scaled(size, target.scale);
        if (format & DT_CENTER) start.x += (WidthOf(rect) - size.right) / 2;
        if (format & DT_RIGHT) start.x = int64_t{rect.right} - size.right;
        if (format & DT_VCENTER) start.y += (HeightOf(rect) - size.bottom) / 2;
        if (format & DT_BOTTOM) start.y = int64_t{rect.bottom} - size.bottom;
        if (upward) start.y += size.bottom;
    }

    RECT clip{0, 0, target.width, target.height};
    if (!(format & DT_NOCLIP)) {
        clip = {std::max<LONG>(rect.left, 0), std::max<LONG>(rect.top, 0), std::min(rect.right, clip.right),
                std::min(rect.bottom, clip.bottom)};
        if (clip.left >= clip.right || clip.top >= clip.bottom) return 0;
    }

    RenderMissing(glyphs_, style_, font_, text, format);
    Pen end = start;
    const TextFlow flow{glyphs_, style_, format, start, vertical ? rect.bottom : rect.right, upward};
    flow.Walk(text, [&](const GlyphRecord& glyph, const Pen& pen) {
        const int64_t top = upward ? pen.y - glyph.height : pen.y;
        if (!DrawGlyphAt(bitmap, glyph.code, HeldInInt(pen.x), HeldInInt(top), &clip)) return;
        end.x = std::max(end.x, pen.x + glyph.width);
        end.y = std::max(end.y, top + glyph.height);
    });
    return HeldInInt(vertical ? end.x - start.x : end.y - start.y);
}
