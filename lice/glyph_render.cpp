#include "lice/glyph_render.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "lice/blur.h"
#include "lice/fill.h"
#include "lice/font_scratch.h"

namespace {

constexpr int TallestGlyph = 1024;
constexpr UINT DrawOneLine = DT_NOPREFIX | DT_SINGLELINE;
constexpr uint8_t Covered = 255;
constexpr uint8_t Effect = 128;  // what shadow and outline add

// A character as it was drawn on the scratch surface, with its pen at leftMargin.
struct Cell {
    int w, h;
    int advance;
    int leftMargin;
};

Cell DrawCharacter(LICE_SysBitmap& scratch, int lineHeight, HFONT font, unsigned code) {
    const int leftMargin = lineHeight / 16 + 2, rightMargin = lineHeight / 8 + 2;
    const bool marked = code >> MarkShift != 0 && (code & 0xFFFFF) < 128;
    const WCHAR text[] = {static_cast<WCHAR>(code), static_cast<WCHAR>(marked ? code >> MarkShift : 0), 0};
    const int length = marked ? -1 : 1;
    const HDC dc = scratch.getDC();
    const SelectedFont selected(dc, font);
    RECT cell{0, 0, 0, 0};
    DrawTextW(dc, text, length, &cell, DrawOneLine | DT_CALCRECT);
    const int advance = cell.right;
    cell.right += rightMargin + leftMargin;
    LICE_FillRect(&scratch, 0, 0, cell.right, cell.bottom, LICE_RGBA(0, 0, 0, 255), 1.0f, 0);
    cell.left = leftMargin;
    DrawTextW(dc, text, length, &cell, DrawOneLine | DT_NOCLIP);
    GdiFlush();  // the pixels are read next
    return {std::min<int>(cell.right, scratch.getWidth()), std::min<int>(cell.bottom, scratch.getHeight()),
            std::min(advance, scratch.getWidth()), leftMargin};
}

// A mask on its way into the store: rows of w bytes.
struct Mask {
    uint8_t* bytes;
    int w, h;

    uint8_t& At(int x, int y) const { return bytes[static_cast<ptrdiff_t>(y) * w + x]; }

    // Keeps the columns from `first` up to the one before `end`.
    void Crop(int first, int end) {
        const int kept = end - first;
        for (int y = 0; y < h; ++y) std::memmove(bytes + static_cast<ptrdiff_t>(y) * kept, &At(first, y), kept);
        w = kept;
    }

    // `spare` holds at least as many bytes.
    void Rotate(bool bottomUp, uint8_t* spare) {
        std::memcpy(spare, bytes, static_cast<size_t>(w) * h);
        const Mask old{spare, w, h};
        std::swap(w, h);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) At(x, y) = bottomUp ? old.At(h - 1 - y, x) : old.At(y, w - 1 - x);
    }

    void Threshold() const {
        for (ptrdiff_t i = 0; i < static_cast<ptrdiff_t>(w) * h; ++i) bytes[i] = bytes[i] < 131 ? 0 : Covered;
    }

    // Gives uncovered pixels beside covered ones the effect's value, which itself does not count as covered.
    void AddEffect(bool shadow) const {
        const auto covered = [this](int x, int y) { return x >= 0 && y >= 0 && x < w && y < h && At(x, y) == Covered; };
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                if (At(x, y) != 0) continue;
                const bool beside = covered(x - 1, y) || covered(x, y - 1);
                if (beside || (shadow ? covered(x - 1, y - 1) : covered(x, y + 1) || covered(x + 1, y)))
                    At(x, y) = Effect;
            }
    }
};

// The first row with ink, and the one behind the last; equal where there is none.
std::pair<int, int> InkRows(const Mask& mask) {
    const auto blank = [&](int y) {
        return std::all_of(&mask.At(0, y), &mask.At(0, y) + mask.w, [](uint8_t byte) { return byte == 0; });
    };
    int top = 0, end = mask.h;
    while (end > 0 && blank(end - 1)) --end;
    while (top < end && blank(top)) ++top;
    return {top, end};
}

// Copies the cell's coverage and crops it: of a margin only the columns with ink stay. Gives the first column kept.
int CopyCoverage(Mask& mask, const LICE_pixel* row, int span, const Cell& cell, bool invert) {
    int first = cell.leftMargin, end = cell.advance + cell.leftMargin;
    for (int y = 0; y < mask.h; ++y, row += span) {
        const auto red = [row](int x) { return static_cast<uint8_t>(row[x] >> 16); };
        for (int x = 0; x < mask.w; ++x) mask.At(x, y) = red(x) ^ (invert ? 255 : 0);
        for (int x = 0; x < first; ++x)
            if (red(x) != 0) first = x;
        for (int x = mask.w - 1; x >= end; --x)
            if (red(x) != 0) end = x + 1;
    }
    end = std::min(end, mask.w);  // a very wide character fills the surface
    if (end < mask.w || first >= 1) mask.Crop(first, end);
    return first;
}

void Shape(Mask& mask, const TextStyle& style, uint8_t* spare) {
    if (style.Vertical()) mask.Rotate(style.BottomUp(), spare);
    if (style.flags & LICE_FONT_FLAG_MONO || style.HasEffect()) mask.Threshold();
    if (style.HasEffect()) mask.AddEffect(style.flags & LICE_FONT_FLAG_SHADOW);
}

GlyphRecord Rendered(HeapBuffer& masks, const TextStyle& style, HFONT font, unsigned code) {
    const GlyphRecord nothing = {.offset = -1, .code = code};
    LICE_SysBitmap& scratch = MeasureScratch(std::max(style.lineHeight, 1) * 2 + 8);
    const Cell cell = DrawCharacter(scratch, style.lineHeight, font, code);
    if (cell.advance < 1 || cell.h < 1) return nothing;
    if (style.flags & LICE_FONT_FLAG_BLUR) LICE_Blur(&scratch, &scratch, 0, 0, 0, 0, cell.w, cell.h);

    const int start = masks.Size();
    const int64_t wanted = start + int64_t{cell.w} * cell.h;
    masks.resize(static_cast<int>(std::min<int64_t>(wanted, INT32_MAX)), true);
    if (masks.Size() != wanted) return nothing;  // out of memory
    Mask mask{masks.Items<uint8_t>() + start, cell.w, cell.h};
    const int first =
        CopyCoverage(mask, scratch.getBits(), scratch.getRowSpan(), cell, style.flags & LICE_FONT_FLAG_INVERT);
    masks.resize(start + mask.w * mask.h, false);
    Shape(mask, style, reinterpret_cast<uint8_t*>(scratch.getBits()));
    const auto [inkTop, inkEnd] = InkRows(mask);
    return {start + 1, mask.w, mask.h, cell.advance, code, cell.leftMargin - first, inkTop, inkEnd};
}

}  // namespace

void RenderGlyph(GlyphCache& glyphs, const TextStyle& style, HFONT font, unsigned code) {
    const bool closed = style.flags & LICE_FONT_FLAG_PRECALC && code >= 128;
    if (style.lineHeight < TallestGlyph && !closed && glyphs.Add(code))
        glyphs.Set(Rendered(glyphs.Masks(), style, font, code));
}

void RenderMissing(GlyphCache& glyphs, const TextStyle& style, HFONT font, TextReader text, UINT format) {
    while (!text.AtEnd()) {
        unsigned code = text.Next();
        if (code == '\r' || (code == '\n' && !(format & DT_SINGLELINE))) continue;
        if (code == '\n') code = ' ';
        const GlyphRecord* record = glyphs.Find(code);
        if (!record || record->offset == 0) RenderGlyph(glyphs, style, font, code);
    }
}
