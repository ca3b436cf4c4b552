// lice/font.h
// Text on surfaces. A font has GDI draw each character once, keeps its coverage, and from then on only combines bytes.
// Very tall text, and text of a font that prefers it, is left to GDI whole.
// Fonts share two scratch surfaces without a lock, so use all of them from one thread.
#pragma once
#include "lice/bitmap.h"
#include "lice/glyph_cache.h"
#include "lice/text_style.h"

class TextReader;

class LICE_IFont {
  public:
    virtual ~LICE_IFont() {}

    virtual void SetFromHFont(HFONT font, int flags) = 0;
    // The setters give the old value.
    virtual LICE_pixel SetTextColor(LICE_pixel color) = 0;
    virtual LICE_pixel SetBkColor(LICE_pixel color) = 0;
    virtual LICE_pixel SetEffectColor(LICE_pixel color) = 0;  // of what shadow or outline adds
    virtual int SetBkMode(int mode) = 0;                      // TRANSPARENT or OPAQUE
    virtual void SetCombineMode(int mode, float alpha) = 0;
    // UTF-8, `count` bytes, -1: up to the zero byte. Gives the height of the text, or its width if it runs vertically.
    // With DT_CALCRECT only measures, into `rect`, and needs no surface.
    virtual int DrawText(LICE_IBitmap* bitmap, const char* text, int count, RECT* rect, UINT format) = 0;
    virtual LICE_pixel GetTextColor() = 0;
    virtual HFONT GetHFont() = 0;
    virtual int GetLineHeight() = 0;
    virtual void SetLineSpacing(int pixels) = 0;  // added to each step from line to line
};

class LICE_CachedFont : public LICE_IFont {
  public:
    LICE_CachedFont();
    ~LICE_CachedFont() override;
    LICE_CachedFont(const LICE_CachedFont&) = delete;
    LICE_CachedFont& operator=(const LICE_CachedFont&) = delete;

    void SetFromHFont(HFONT font, int flags) override;  // drops all glyphs, also for the same handle
    LICE_pixel SetTextColor(LICE_pixel color) override;
    LICE_pixel SetBkColor(LICE_pixel color) override;
    LICE_pixel SetEffectColor(LICE_pixel color) override;
    int SetBkMode(int mode) override;
    void SetCombineMode(int mode, float alpha) override;
    int DrawText(LICE_IBitmap* bitmap, const char* text, int count, RECT* rect, UINT format) override;
    LICE_pixel GetTextColor() override { return style_.textColor; }
    HFONT GetHFont() override { return font_; }
    int GetLineHeight() override { return style_.lineHeight; }
    void SetLineSpacing(int pixels) override { style_.lineSpacing = pixels; }

    // Draws one rendered character with its pen at (x, y), y being the top of the cell. A null clip is the whole
    // surface. False when there was nothing to draw.
    virtual bool DrawGlyphAt(LICE_IBitmap* bitmap, unsigned code, int x, int y, const RECT* clip);

  private:
    void DeleteOwnHFont(HFONT unless) const;
    int MeasureText(TextReader text, RECT* rect, UINT format);
    int DrawGlyphs(LICE_IBitmap* bitmap, TextReader text, const RECT& rect, UINT format, bool noNative);

    TextStyle style_;
    GlyphCache glyphs_;
    HFONT font_ = nullptr;
};
