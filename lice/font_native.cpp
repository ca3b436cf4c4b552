// Text drawn by GDI itself: into the surface where it has a context, otherwise on a scratch copy of it.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "lice/blit.h"
#include "lice/font.h"
#include "lice/font_scratch.h"
#include "lice/safe_math.h"
#include "lice/target.h"
#include "lice/text_reader.h"

namespace {

constexpr int TallestCached = 256;       // taller glyphs are not worth keeping
constexpr int WantsGlyphs = 0x59555678;  // Extended: whether a surface must be given glyphs
constexpr UINT AlignmentBits = DT_CENTER | DT_RIGHT | DT_VCENTER | DT_BOTTOM;
constexpr UINT SystemFormats = 0xFFF;  // what may be handed on; none of them makes GDI change the text
constexpr int GlyphOnlyFlags = LICE_FONT_FLAG_VERTICAL | LICE_FONT_FLAG_VERTICAL_BOTTOMUP | LICE_FONT_FLAG_BLUR |
                               LICE_FONT_FLAG_INVERT | LICE_FONT_FLAG_MONO | LICE_FONT_FLAG_SHADOW |
                               LICE_FONT_FLAG_OUTLINE;

// Wine's own text does not look like the cached glyphs.
bool HostIsWine() {
    static int answer = -1;
    if (answer < 0) {
        HKEY key;
        answer = RegOpenKeyA(HKEY_LOCAL_MACHINE, "Software\\Wine", &key) == ERROR_SUCCESS;
        if (answer) RegCloseKey(key);
    }
    return answer != 0;
}

COLORREF SystemColor(LICE_pixel color) {
    return RGB(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF);
}

}  // namespace

// A text as GDI is given it: wide where it has to be and can be, otherwise as it is.
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

    int Draw(HDC dc, RECT* rect, UINT format) const {
        format = (format & SystemFormats) | DT_NOPREFIX;
        return wide_.empty() ? DrawTextA(dc, bytes_, length_, rect, format)
                             : DrawTextW(dc, wide_.data(), -1, rect, format);
    }

  private:
    const char* bytes_;
    int length_ = 0;
    std::vector<WCHAR> wide_;  // zero-terminated; empty: not needed, or not UTF-8 after all
};

bool LICE_CachedFont::WantsNative(LICE_IBitmap* bitmap, UINT format, bool noNative) const {
    if (bitmap && bitmap->Extended(WantsGlyphs, nullptr)) return false;
    if (flags_ & LICE_FONT_FLAG_FORCE_NATIVE && font_) {
        const bool fades = format & LICE_DT_USE_TEXT_ALPHA && textColor_ >> 24 < 255;
        if (!noNative && !HostIsWine() && !fades && std::fabs(alpha_ - 1.0) < 0.01 &&
            !(flags_ & (LICE_FONT_FLAG_PRECALC | GlyphOnlyFlags)) && (lineSpacing_ == 0 || format & DT_SINGLELINE))
            return true;
    }
    return lineHeight_ >= TallestCached;
}

int LICE_CachedFont::DrawNative(LICE_IBitmap* bitmap, TextReader reader, RECT* rect, UINT format) {
    const NativeText text(reader);
    const HDC dc = bitmap ? bitmap->getDC() : nullptr;
    if (!dc) return DrawOnScratch(bitmap, text, rect, format);
    RECT place = *rect;
    const int result = DrawInContext(dc, text, &place, format);
    if (format & DT_CALCRECT) *rect = place;
    return result;
}

int LICE_CachedFont::DrawInContext(HDC dc, const NativeText& text, RECT* rect, UINT format) const {
    const SelectedFont selected(dc, font_);
    ::SetTextColor(dc, SystemColor(textColor_));
    if (bkMode_ == OPAQUE) ::SetBkColor(dc, SystemColor(bkColor_));
    ::SetBkMode(dc, bkMode_);
    const int result = text.Draw(dc, rect, format);
    GdiFlush();  // from here on the pixels may be touched directly
    return result;
}

// For a surface without a context: the part of it that the text covers is copied, drawn on, and copied back.
int LICE_CachedFont::DrawOnScratch(LICE_IBitmap* bitmap, const NativeText& text, RECT* rect, UINT format) const {
    RECT size{0, 0, HeldInInt(WidthOf(*rect)), HeldInInt(HeightOf(*rect))};  // where lines are to be wrapped
    const int measured =
        DrawInContext(NativeScratch(4, 4).getDC(), text, &size, (format & ~AlignmentBits) | DT_CALCRECT);
    if (format & DT_CALCRECT) {
        rect->right = HeldInInt(int64_t{rect->left} + size.right);
        rect->bottom = HeldInInt(int64_t{rect->top} + size.bottom);
    }
    const Target target(bitmap);
    if (format & DT_CALCRECT || target.Empty()) return measured;

    int64_t x = rect->left, y = rect->top;
    if (format & DT_RIGHT) x = int64_t{rect->right} - size.right;
    if (format & DT_CENTER) x = (int64_t{rect->right} + rect->left - size.right) / 2;
    if (format & DT_BOTTOM) y = int64_t{rect->bottom} - size.bottom;
    if (format & DT_VCENTER) y = (int64_t{rect->bottom} + rect->top - size.bottom) / 2;

    RECT area{HeldInInt(x), HeldInInt(y), HeldInInt(x + size.right), HeldInInt(y + size.bottom)};
    const RECT surface{0, 0, target.width, target.height};
    IntersectRect(&area, &area, &surface);
    if (!(format & DT_NOCLIP)) IntersectRect(&area, &area, rect);
    if (area.left >= area.right || area.top >= area.bottom) return 0;
    area.left -= std::min<LONG>(lineHeight_ / 16 + 2, area.left);  // for ink left of the pen

    const int w = area.right - area.left, h = area.bottom - area.top;
    LICE_SysBitmap& scratch = NativeScratch(w, h);
    LICE_Blit(&scratch, bitmap, 0, 0, &area, 1.0f, LICE_BLIT_IGNORE_SCALING);
    RECT place{HeldInInt(x - area.left), HeldInInt(y - area.top), HeldInInt(x - area.left + size.right),
               HeldInInt(y - area.top + size.bottom)};
    const int result = DrawInContext(scratch.getDC(), text, &place, format & ~AlignmentBits);
    LICE_BlitRect(bitmap, &scratch, area.left, area.top, 0, 0, w, h, alpha_, LICE_BLIT_IGNORE_SCALING);
    return result;
}
