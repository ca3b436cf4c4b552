// tests/lice/slow_text.h
// A slow composer of text. GDI draws each character; the rules alone shape, place and merge it.
#pragma once
#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <vector>

#include "lice/font.h"
#include "lice/lice.h"
#include "platform/font.h"
#include "tests/lice/reference.h"
#include "tests/lice/support.h"

struct SlowGlyph {
    std::vector<std::vector<int>> rows;
    int advance = 0, left = 0;

    int Height() const { return static_cast<int>(rows.size()); }
    int Width() const { return rows.empty() ? 0 : static_cast<int>(rows[0].size()); }
};

struct Letter {
    unsigned code;
    int end;  // where reading goes on
};

struct Placed {
    const SlowGlyph* glyph;
    int x, y;
};

class SlowFont {
  public:
    SlowFont(int height, int flags) : flags_(flags), font_(CreateInterfaceFont(height)) {
        previous_ = SelectObject(paper_.getDC(), font_);
        ::SetTextColor(paper_.getDC(), 0xFFFFFF);
        ::SetBkMode(paper_.getDC(), OPAQUE);
        ::SetBkColor(paper_.getDC(), 0);
        TEXTMETRICA metrics{};
        GetTextMetricsA(paper_.getDC(), &metrics);
        lineHeight = metrics.tmHeight;
    }
    ~SlowFont() {
        SelectObject(paper_.getDC(), previous_);
        DeleteObject(font_);
    }
    SlowFont(const SlowFont&) = delete;

    int lineHeight = 0;
    int lineSpacing = 0;
    bool Has(int flag) const { return flags_ & flag; }
    bool Upward() const { return (flags_ & 3) == 3; }

    // Null for what takes no room.
    const SlowGlyph* Glyph(unsigned code) {
        if (code > 127 && Has(LICE_FONT_FLAG_PRECALC)) return nullptr;
        const auto [place, added] = glyphs_.try_emplace(code);
        if (added) place->second = Render(code);
        return place->second.rows.empty() ? nullptr : &place->second;
    }

    static std::vector<Letter> Read(const std::string& bytes) {
        const auto at = [&](size_t i) { return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u; };
        const auto one = [&](size_t i) -> Letter {
            const unsigned b = at(i);
            const int more = b >= 194 && b <= 223 ? 1 : b >= 224 && b <= 239 ? 2 : b >= 240 && b <= 244 ? 3 : 0;
            unsigned code = b & (63 >> more);
            for (int k = 1; k <= more; ++k) {
                if (at(i + k) < 128 || at(i + k) > 191) return {b, 1};
                code = code << 6 | (at(i + k) & 63);
            }
            return {more == 0 ? b : more == 3 ? 32 : code, more + 1};
        };
        std::vector<Letter> letters;
        for (size_t i = 0; i < bytes.size();) {
            Letter letter = one(i);
            const Letter next = one(i + letter.end);
            if (letter.end == 1 && std::isalpha(static_cast<int>(letter.code)) && bytes.size() - i > 2 &&
                next.code >= 0x300 && next.code < 0x370)
                letter = {letter.code | next.code << 20, 1 + next.end};
            i += letter.end;
            letters.push_back({letter.code, static_cast<int>(i)});
        }
        return letters;
    }

    // Lines end at `limit`, counted from the start of the axis.
    std::vector<Placed> Place(const std::string& text, int x, int y, UINT format, int limit, bool upward) {
        const std::vector<Letter> letters = Read(text);
        std::vector<Placed> placed;
        const int startX = x, startY = y;
        const bool vertical = Has(LICE_FONT_FLAG_VERTICAL);
        const int step = lineHeight + lineSpacing;
        int wrapAt = 0;
        const auto nextLine = [&] {
            x = vertical ? x + step : startX;
            y = vertical ? startY : y + step;
            wrapAt = 0;
        };
        for (size_t i = 0; i < letters.size(); ++i) {
            unsigned code = letters[i].code;
            if (code == 13) continue;
            if (code == 10 && !(format & DT_SINGLELINE)) {
                nextLine();
                continue;
            }
            if (code == 10) code = 32;
            if (const SlowGlyph* glyph = Glyph(code)) {
                placed.push_back({glyph, x, y});
                (vertical ? y : x) += upward ? -glyph->advance : glyph->advance;
            }
            if (!(format & DT_WORDBREAK) || format & DT_SINGLELINE) continue;
            if (wrapAt && letters[i].end >= wrapAt) nextLine();
            if (!wrapAt) wrapAt = Break(letters, i + 1, limit - (vertical ? y : x));
        }
        return placed;
    }

    SIZE Measure(const std::string& text, UINT format, int limit) {
        SIZE size{0, 0};
        for (const Placed& p : Place(text, 0, 0, format, limit, false)) {
            int w = p.glyph->Width(), h = p.glyph->Height();
            int& length = Has(LICE_FONT_FLAG_VERTICAL) ? h : w;
            length = std::max(p.glyph->advance, length - p.glyph->left);
            size.cx = std::max<LONG>(size.cx, p.x + w);
            size.cy = std::max<LONG>(size.cy, p.y + h);
        }
        return size;
    }

  private:
    int Break(const std::vector<Letter>& letters, size_t i, int room) {
        int last = 0;
        for (; i < letters.size(); ++i) {
            const unsigned code = letters[i].code;
            if (code == 10) return letters[i].end;
            const SlowGlyph* glyph = code == 13 ? nullptr : Glyph(code);
            if (glyph && (room -= glyph->advance) < 0) return last ? last : letters[i].end;
            if (code == 32 || code == 9 || code == 13) last = letters[i].end;
        }
        return letters.empty() ? 0 : letters.back().end;
    }

    SlowGlyph Render(unsigned code) {
        const int leftMargin = lineHeight / 16 + 2, rightMargin = lineHeight / 8 + 2;
        std::vector<WCHAR> text = {static_cast<WCHAR>(code & 0xFFFF)};
        if (code >> 20) text.push_back(static_cast<WCHAR>(code >> 20));
        RECT cell{};
        const int count = static_cast<int>(text.size());
        DrawTextW(paper_.getDC(), text.data(), count, &cell, DT_CALCRECT | DT_NOPREFIX | DT_SINGLELINE);
        if (cell.right < 1 || cell.bottom < 1) return {};
        LICE_Clear(&paper_, 0xFF000000);
        RECT pen{leftMargin, 0, 400, 400};
        DrawTextW(paper_.getDC(), text.data(), count, &pen, DT_NOCLIP | DT_NOPREFIX | DT_SINGLELINE);
        GdiFlush();
        const int w = cell.right + leftMargin + rightMargin;
        if (Has(LICE_FONT_FLAG_BLUR)) LICE_Blur(&paper_, &paper_, 0, 0, 0, 0, w, cell.bottom);
        const auto ink = [&](int x, int y) { return static_cast<int>(paper_.getBits()[y * 400 + x] >> 16 & 255); };
        int first = leftMargin, last = leftMargin + cell.right;
        for (int y = 0; y < cell.bottom; ++y)
            for (int x = 0; x < w; ++x)
                if (ink(x, y)) first = std::min(first, x), last = std::max(last, x + 1);

        SlowGlyph g;
        g.advance = cell.right;
        g.left = leftMargin - first;
        g.rows.resize(cell.bottom);
        for (int y = 0; y < cell.bottom; ++y)
            for (int x = first; x < last; ++x)
                g.rows[y].push_back(Has(LICE_FONT_FLAG_INVERT) ? 255 - ink(x, y) : ink(x, y));
        if (Has(LICE_FONT_FLAG_VERTICAL)) Turn(g);
        if (Has(LICE_FONT_FLAG_SHADOW | LICE_FONT_FLAG_OUTLINE | LICE_FONT_FLAG_MONO)) LeaveThreeLevels(g);
        return g;
    }

    void Turn(SlowGlyph& g) const {
        std::vector<std::vector<int>> turned(g.Width(), std::vector<int>(g.Height()));
        for (int y = 0; y < g.Height(); ++y)
            for (int x = 0; x < g.Width(); ++x)
                (Upward() ? turned[g.Width() - 1 - x][y] : turned[x][g.Height() - 1 - y]) = g.rows[y][x];
        g.rows = turned;
    }

    // None, the effect's and full.
    void LeaveThreeLevels(SlowGlyph& g) const {
        for (auto& row : g.rows)
            for (int& c : row) c = c < 131 ? 0 : 255;
        const auto plain = g.rows;
        const auto full = [&](int x, int y) {
            return x >= 0 && y >= 0 && x < g.Width() && y < g.Height() && plain[y][x] == 255;
        };
        if (!Has(LICE_FONT_FLAG_SHADOW | LICE_FONT_FLAG_OUTLINE)) return;
        for (int y = 0; y < g.Height(); ++y)
            for (int x = 0; x < g.Width(); ++x) {
                bool added = full(x, y - 1) || full(x - 1, y);
                added |= Has(LICE_FONT_FLAG_SHADOW) ? full(x - 1, y - 1) : full(x, y + 1) || full(x + 1, y);
                if (plain[y][x] == 0 && added) g.rows[y][x] = 128;
            }
    }

    int flags_;
    HFONT font_;
    HGDIOBJ previous_;
    LICE_SysBitmap paper_{400, 400};
    std::map<unsigned, SlowGlyph> glyphs_;
};

struct Look {
    LICE_pixel text, back, effect;
    int bkMode, mode;
    float alpha;
};

inline LICE_pixel MergeCoverage(LICE_pixel old, int coverage, const Look& look, float alpha, bool twoColors) {
    const int modeByte = look.mode & 0xFF;
    const int64_t ia = static_cast<int64_t>(alpha * 256.0);
    if (coverage == 0 || ia == 0 || modeByte > 5 || (modeByte == 0 && ia < 0)) return old;
    if (!twoColors && ia == 256) return reference::Combine(old, look.text, coverage + 1, modeByte);
    return reference::Combine(old, twoColors && coverage < 255 ? look.effect : look.text,
                              std::min<int64_t>(twoColors ? ia : coverage * ia / 256, 256), modeByte);
}

// In the clip, its left top at (x, y).
inline void SlowGlyphOn(TestSurface& dest, const SlowFont& font, const Look& look, const SlowGlyph& g, int x, int y,
                        const RECT& clip, float alpha) {
    const bool two = font.Has(LICE_FONT_FLAG_SHADOW | LICE_FONT_FLAG_OUTLINE | LICE_FONT_FLAG_MONO);
    for (int py = std::max<int>(y, clip.top); py < std::min<int>(y + g.Height(), clip.bottom); ++py)
        for (int px = std::max<int>(x, clip.left); px < std::min<int>(x + g.Width(), clip.right); ++px) {
            if (look.bkMode == OPAQUE)
                LICE_FillRect(&dest, px, py, 1, 1, look.back, alpha,
                              (look.mode & ~LICE_BLIT_USE_ALPHA) | LICE_BLIT_IGNORE_SCALING);
            LICE_pixel& pixel = dest.At(px, py);
            pixel = MergeCoverage(pixel, g.rows[py - y][px - x], look, alpha, two);
        }
}

inline int ScaledBack(int64_t value, int scale) { return static_cast<int>(value * 256 / scale); }

// How far the lines reach along their own axis.
inline int SlowLines(TestSurface& dest, SlowFont& font, const Look& look, const std::string& text, const RECT& rect,
                     UINT format) {
    const int scale = dest.Scale();
    const bool vertical = font.Has(LICE_FONT_FLAG_VERTICAL);
    float alpha = look.alpha;
    if (format & LICE_DT_USE_TEXT_ALPHA) alpha = static_cast<float>(alpha * ((look.text >> 24) / 255.0));
    SIZE size = font.Measure(text, format & DT_SINGLELINE, 0);
    if (scale > 0) {  // measured in logical pixels, and brought back
        size.cx = static_cast<LONG>(reference::ScaleCoord(ScaledBack(size.cx, scale), scale));
        size.cy = static_cast<LONG>(reference::ScaleCoord(ScaledBack(size.cy, scale), scale));
    }
    int x = rect.left, y = rect.top;
    if (format & DT_CENTER) x += (rect.right - rect.left - size.cx) / 2;
    if (format & DT_RIGHT) x = rect.right - size.cx;
    if (format & DT_VCENTER) y += (rect.bottom - rect.top - size.cy) / 2;
    if (format & DT_BOTTOM) y = rect.bottom - size.cy;
    if (font.Upward()) y += size.cy;

    RECT clip{0, 0, dest.BackingWidth(), dest.BackingHeight()};
    const bool shown = alpha != 0.0f && (format & DT_NOCLIP || IntersectRect(&clip, &clip, &rect));
    int reach = vertical ? x : y;
    const int start = reach;
    for (const Placed& p : font.Place(text, x, y, format, vertical ? rect.bottom : rect.right, font.Upward())) {
        if (!shown) break;
        const SlowGlyph& g = *p.glyph;
        const int top = font.Upward() ? p.y - g.Height() : p.y;
        const int gx = vertical ? p.x : p.x - g.left;
        const int gy = !vertical ? top : font.Upward() ? top - g.left : top + g.left;
        reach = std::max(reach, vertical ? p.x + g.Width() : top + g.Height());
        SlowGlyphOn(dest, font, look, g, gx, gy, clip, alpha);
    }
    return reach - start;
}

inline int SlowDraw(TestSurface& dest, SlowFont& font, const Look& look, const std::string& text, RECT& rect,
                    UINT format) {
    const int scale = dest.Scale();
    const auto each = [&](auto change) {
        for (LONG* side : {&rect.left, &rect.top, &rect.right, &rect.bottom})
            *side = static_cast<LONG>(change(*side, scale));
    };
    if (scale > 0 && !(look.mode & LICE_BLIT_IGNORE_SCALING)) each(reference::ScaleCoord);
    const bool vertical = font.Has(LICE_FONT_FLAG_VERTICAL);
    int result = 0;
    if (format & DT_CALCRECT) {
        const SIZE size = font.Measure(text, format, vertical ? rect.bottom - rect.top : rect.right - rect.left);
        rect.right = rect.left + size.cx;
        rect.bottom = rect.top + size.cy;
        result = vertical ? size.cx : size.cy;
    } else {
        result = SlowLines(dest, font, look, text, rect, format);
    }
    if (scale > 0) {
        each(ScaledBack);
        result = ScaledBack(result, scale);
    }
    return result;
}
