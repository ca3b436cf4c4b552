#include "lice/font.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "lice/font_scratch.h"
#include "lice/text_reader.h"

LICE_SysBitmap* ScratchMeasure = nullptr;
LICE_SysBitmap* ScratchNative = nullptr;
int ScratchUsers = 0;

LICE_SysBitmap& MeasureScratch(int size) {
    if (!ScratchMeasure) ScratchMeasure = new LICE_SysBitmap(0, 0);
    if (ScratchMeasure->getWidth() < size || ScratchMeasure->getHeight() < size) {
        ScratchMeasure->resize(size, size);
        ::SetTextColor(ScratchMeasure->getDC(), RGB(255, 255, 255));
        ::SetBkMode(ScratchMeasure->getDC(), OPAQUE);
        ::SetBkColor(ScratchMeasure->getDC(), RGB(0, 0, 0));
    }
    return *ScratchMeasure;
}

LICE_SysBitmap& NativeScratch(int width, int height) {
    if (!ScratchNative) ScratchNative = new LICE_SysBitmap(0, 0);
    if (ScratchNative->getWidth() < width || ScratchNative->getHeight() < height)
        ScratchNative->resize(std::max(width, ScratchNative->getWidth()), std::max(height, ScratchNative->getHeight()));
    return *ScratchNative;
}

static void ReleaseScratch() {
    delete std::exchange(ScratchMeasure, nullptr);
    delete std::exchange(ScratchNative, nullptr);
}

LICE_CachedFont::LICE_CachedFont() {
    ++ScratchUsers;
}

LICE_CachedFont::~LICE_CachedFont() {
    if (flags_ & LICE_FONT_FLAG_OWNS_HFONT && font_) DeleteObject(font_);
    if (--ScratchUsers == 0) ReleaseScratch();
}

void LICE_CachedFont::SetFromHFont(HFONT font, int flags) {
    if (flags_ & LICE_FONT_FLAG_OWNS_HFONT && font_ && font_ != font) DeleteObject(font_);
    flags_ = flags;
    font_ = font;
    if (font) {
        const HDC dc = MeasureScratch(256).getDC();
        const SelectedFont selected(dc, font);
        TEXTMETRICA metrics{};
        GetTextMetricsA(dc, &metrics);
        lineHeight_ = metrics.tmHeight;
    }
    std::fill(std::begin(lowGlyphs), std::end(lowGlyphs), GlyphRecord{});
    ExtendedGlyphs.resize(0, false);
    GlyphStore.resize(0, true);
    if (flags & LICE_FONT_FLAG_PRECALC)
        for (unsigned code = 0; code < 128; ++code) RenderGlyph(code);
}

LICE_pixel LICE_CachedFont::SetTextColor(LICE_pixel color) {
    return std::exchange(textColor_, color);
}

LICE_pixel LICE_CachedFont::SetBkColor(LICE_pixel color) {
    return std::exchange(bkColor_, color);
}

LICE_pixel LICE_CachedFont::SetEffectColor(LICE_pixel color) {
    return std::exchange(effectColor_, color);
}

int LICE_CachedFont::SetBkMode(int mode) {
    return std::exchange(bkMode_, mode);
}

void LICE_CachedFont::SetCombineMode(int mode, float alpha) {
    combineMode_ = mode;
    alpha_ = alpha;
}
