// lice/font.h
// Text on surfaces. A font draws each character once with GDI, keeps its coverage, and from then on only combines bytes
// into the target. Very tall text, and text of a font that prefers it, is handed to GDI whole.
// Fonts share two scratch surfaces without a lock: use all of them from one thread.
#pragma once
#include <cstdint>

#include "lice/bitmap.h"
#include "lice/heap_buffer.h"

class NativeText;
class TextReader;

// Flags of SetFromHFont.
inline constexpr int LICE_FONT_FLAG_VERTICAL = 1;           // text runs down, lines step to the right
inline constexpr int LICE_FONT_FLAG_VERTICAL_BOTTOMUP = 2;  // with the former: text runs up
inline constexpr int LICE_FONT_FLAG_PRECALC = 4;            // render ASCII at once, and nothing else ever
inline constexpr int LICE_FONT_FLAG_BLUR = 16;
inline constexpr int LICE_FONT_FLAG_INVERT = 32;
inline constexpr int LICE_FONT_FLAG_MONO = 64;  // covered or not, nothing between
inline constexpr int LICE_FONT_FLAG_SHADOW = 128;
inline constexpr int LICE_FONT_FLAG_OUTLINE = 256;
inline constexpr int LICE_FONT_FLAG_OWNS_HFONT = 512;     // the handle goes when it is replaced, and with the font
inline constexpr int LICE_FONT_FLAG_FORCE_NATIVE = 1024;  // prefer GDI's text where that looks the same

// Beside Win32's DT_CENTER, DT_RIGHT, DT_VCENTER (of several lines too), DT_BOTTOM, DT_WORDBREAK, DT_SINGLELINE (a line
// feed is a space), DT_NOCLIP (clip to the surface only) and DT_CALCRECT.
inline constexpr UINT LICE_DT_USE_TEXT_ALPHA = 0x40000000;  // the text colour's alpha byte counts, this once
inline constexpr UINT LICE_DT_NO_NATIVE = 0x80000000;       // not by GDI on account of LICE_FONT_FLAG_FORCE_NATIVE

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

struct GlyphRecord {
    int offset = 0;  // of the mask in the store, plus 1; 0: not rendered yet; -1: nothing to draw
    int width = 0;   // of the mask, cropped to its ink
    int height = 0;
    int advance = 0;    // of the pen
    unsigned code = 0;  // the character; a combining mark from bit 20 on
    int leftExtra = 0;  // columns of the mask left of the pen; negative when it starts to the right
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
    LICE_pixel GetTextColor() override { return textColor_; }
    HFONT GetHFont() override { return font_; }
    int GetLineHeight() override { return lineHeight_; }
    void SetLineSpacing(int pixels) override { lineSpacing_ = pixels; }

    // Draws one rendered character with its pen at (x, y), x to the right and y at the top of the cell. False when
    // there was nothing to draw. A null clip is the whole surface.
    virtual bool DrawGlyphAt(LICE_IBitmap* bitmap, unsigned code, int x, int y, const RECT* clip);

  private:
    struct Flow;
    bool Vertical() const { return flags_ & LICE_FONT_FLAG_VERTICAL; }
    bool BottomUp() const { return (flags_ & 3) == (LICE_FONT_FLAG_VERTICAL | LICE_FONT_FLAG_VERTICAL_BOTTOMUP); }

    // font_glyphs.cpp
    GlyphRecord* FindRecord(unsigned code) { return code < 128 ? &lowGlyphs[code] : FindExtended(code); }
    GlyphRecord* FindExtended(unsigned code);
    // With a mask; null for what takes no room.
    const GlyphRecord* FindDrawable(unsigned code) {
        const GlyphRecord* record = FindRecord(code);
        return record && record->offset > 0 && record->offset < GlyphStore.Size() ? record : nullptr;
    }
    GlyphRecord* AddRecord(unsigned code);
    void RenderGlyph(unsigned code);
    void StoreMask(GlyphRecord& record, int advance, int w, int h, int leftMargin);
    void PrepareGlyphs(TextReader text);

    // font_layout.cpp
    template <class Place>
    void Walk(TextReader text, const Flow& flow, Place place);
    const char* NextBreak(TextReader text, int64_t room);
    int MeasureGlyphs(TextReader text, RECT* rect, UINT format);
    int DrawGlyphs(LICE_IBitmap* bitmap, TextReader text, const RECT& rect, UINT format, bool noNative);

    // font_native.cpp
    bool WantsNative(LICE_IBitmap* bitmap, UINT format, bool noNative) const;
    int DrawNative(LICE_IBitmap* bitmap, TextReader text, RECT* rect, UINT format);
    int DrawInContext(HDC dc, const NativeText& text, RECT* rect, UINT format) const;
    int DrawOnScratch(LICE_IBitmap* bitmap, const NativeText& text, RECT* rect, UINT format) const;

    LICE_pixel textColor_ = 0;
    LICE_pixel bkColor_ = 0xFFFFFFFF;
    LICE_pixel effectColor_ = 0xFFFFFFFF;
    int bkMode_ = TRANSPARENT;
    int combineMode_ = 0;
    float alpha_ = 1.0f;
    int flags_ = 0;
    int lineHeight_ = 0;
    int lineSpacing_ = 0;
    GlyphRecord lowGlyphs[128];       // by code
    HeapBuffer ExtendedGlyphs{4096};  // records of the other codes, sorted by code
    HeapBuffer GlyphStore{65536};     // all masks, back to back: width * height bytes each
    HFONT font_ = nullptr;
};
