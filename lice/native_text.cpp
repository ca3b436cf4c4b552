#include "lice/native_text.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "lice/blit.h"
#include "lice/font_scratch.h"
#include "lice/safe_math.h"
#include "lice/target.h"

namespace {

constexpr int TallestCached = 256;       // taller glyphs are not worth keeping
constexpr int WantsGlyphs = 0x59555678;  // Extended: whether a surface must be given glyphs
constexpr int GlyphOnlyFlags = LICE_FONT_FLAG_VERTICAL | LICE_FONT_FLAG_VERTICAL_BOTTOMUP | LICE_FONT_FLAG_BLUR |
                               LICE_FONT_FLAG_INVERT | LICE_FONT_FLAG_MONO | LICE_FONT_FLAG_SHADOW |
                               LICE_FONT_FLAG_OUTLINE;

// Wine's own text looks different from cached glyphs.
bool HostIsWine() {
    static int answer = -1;
    if (answer < 0) {
        HKEY key;
        answer = RegOpenKeyA(HKEY_LOCAL_MACHINE, "Software\\Wine", &key) == ERROR_SUCCESS;
        if (answer) RegCloseKey(key);
    }
    return answer != 0;
}

COLORREF SystemColor(LICE_pixel color) { return RGB(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF); }

// A text as GDI takes it: wide if it is UTF-8 beyond ASCII, otherwise as it is.
class NativeText {
  public:
    explicit NativeText(TextReader text) : bytes_(text.at) {
        bool plain = true;
        for (; text.left != 0 && bytes_[length_] != 0; ++length_) {
            plain = plain && static_cast<unsigned char>(bytes_[length_]) < 128;
            if (text.left > 0) --text.left;
        }
        if (plain) return;
        const int units = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes_, length_, nullptr, 0);
        wide_.resize(units > 0 ? units + 1 : 0);
        MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes_, length_, wide_.data(), units);
    }

    // GDI may not write into the text.
    int Draw(HDC dc, const TextStyle& style, HFONT font, RECT* rect, UINT format) const {
        const SelectedFont selected(dc, font);
        ::SetTextColor(dc, SystemColor(style.textColor));
        if (style.bkMode == OPAQUE) ::SetBkColor(dc, SystemColor(style.bkColor));
        ::SetBkMode(dc, style.bkMode);
        format = (format & ~DT_MODIFYSTRING) | DT_NOPREFIX;
        const int result = wide_.empty() ? DrawTextA(dc, bytes_, length_, rect, format)
                                         : DrawTextW(dc, wide_.data(), -1, rect, format);
        GdiFlush();  // from here on the pixels may be touched directly
        return result;
    }

  private:
    const char* bytes_;
    int length_ = 0;
    std::vector<WCHAR> wide_;  // zero-terminated; empty: not needed, or not UTF-8 after all
};

// Where a text lies on the surface, in 64-bit numbers.
struct PlacedText {
    int64_t x, y;
    SIZE size;

    PlacedText(const RECT& rect, const RECT& measured, UINT format)
        : x(rect.left), y(rect.top), size{measured.right, measured.bottom} {
        if (format & DT_RIGHT) x = int64_t{rect.right} - size.cx;
        if (format & DT_CENTER) x = (int64_t{rect.right} + rect.left - size.cx) / 2;
        if (format & DT_BOTTOM) y = int64_t{rect.bottom} - size.cy;
        if (format & DT_VCENTER) y = (int64_t{rect.bottom} + rect.top - size.cy) / 2;
    }

    RECT SeenFrom(int64_t left, int64_t top) const {
        return {HeldInInt(x - left), HeldInInt(y - top), HeldInInt(x - left + size.cx), HeldInInt(y - top + size.cy)};
    }
};

// For a surface without a context. The part that the text covers is copied, drawn on, and copied back.
int DrawOnScratch(LICE_IBitmap* bitmap, const TextStyle& style, HFONT font, const NativeText& text, RECT* rect,
                  UINT format) {
    const UINT unaligned = format & ~TextAlignments;
    RECT measured{0, 0, HeldInInt(WidthOf(*rect)), HeldInInt(HeightOf(*rect))};  // where lines are to be wrapped
    const int result = text.Draw(NativeScratch(4, 4).getDC(), style, font, &measured, unaligned | DT_CALCRECT);
    if (format & DT_CALCRECT) {
        rect->right = HeldInInt(int64_t{rect->left} + measured.right);
        rect->bottom = HeldInInt(int64_t{rect->top} + measured.bottom);
    }
    const Target target(bitmap);
    if (format & DT_CALCRECT || target.Empty()) return result;

    const PlacedText place(*rect, measured, format);
    RECT area = place.SeenFrom(0, 0);
    const RECT surface{0, 0, target.width, target.height};
    IntersectRect(&area, &area, &surface);
    if (!(format & DT_NOCLIP)) IntersectRect(&area, &area, rect);
    if (area.left >= area.right || area.top >= area.bottom) return 0;
    area.left -= std::min<LONG>(style.lineHeight / 16 + 2, area.left);  // for ink left of the pen

    const int w = area.right - area.left, h = area.bottom - area.top;
    LICE_SysBitmap& scratch = NativeScratch(w, h);
    LICE_Blit(&scratch, bitmap, 0, 0, &area, 1.0f, LICE_BLIT_IGNORE_SCALING);
    RECT onScratch = place.SeenFrom(area.left, area.top);
    const int drawn = text.Draw(scratch.getDC(), style, font, &onScratch, unaligned);
    LICE_BlitRect(bitmap, &scratch, area.left, area.top, 0, 0, w, h, style.alpha, LICE_BLIT_IGNORE_SCALING);
    return drawn;
}

}  // namespace

bool WantsNativeText(LICE_IBitmap* bitmap, const TextStyle& style, HFONT font, UINT format, bool mayPrefer) {
    if (bitmap && bitmap->Extended(WantsGlyphs, nullptr)) return false;
    if (style.lineHeight >= TallestCached) return true;
    if (!mayPrefer || !(style.flags & LICE_FONT_FLAG_FORCE_NATIVE) || !font) return false;
    const bool fades = format & LICE_DT_USE_TEXT_ALPHA && style.textColor >> 24 < 255;
    return !HostIsWine() && !fades && std::fabs(style.alpha - 1.0) < 0.01 &&
           !(style.flags & (LICE_FONT_FLAG_PRECALC | GlyphOnlyFlags)) &&
           (style.lineSpacing == 0 || format & DT_SINGLELINE);
}

int DrawNativeText(LICE_IBitmap* bitmap, const TextStyle& style, HFONT font, TextReader reader, RECT* rect,
                   UINT format) {
    const NativeText text(reader);
    const HDC dc = bitmap ? bitmap->getDC() : nullptr;
    if (!dc) return DrawOnScratch(bitmap, style, font, text, rect, format);
    RECT place = *rect;
    const int result = text.Draw(dc, style, font, &place, format);
    if (format & DT_CALCRECT) *rect = place;
    return result;
}
