// Rendering: GDI draws a character white on black, and its coverage is cropped, shaped by the font's flags and kept.
#include <algorithm>
#include <cstring>

#include "lice/blur.h"
#include "lice/fill.h"
#include "lice/font.h"
#include "lice/font_scratch.h"
#include "lice/text_reader.h"

namespace {

constexpr int TallestGlyph = 1024;
constexpr UINT DrawOneLine = DT_NOPREFIX | DT_SINGLELINE;
constexpr uint8_t Covered = 255;
constexpr uint8_t Effect = 128;  // what shadow and outline add

bool ByCode(const GlyphRecord& a, const GlyphRecord& b) {
    return a.code < b.code;
}

// A mask on its way into the store: rows of w bytes.
struct Mask {
    uint8_t* bytes;
    int w, h;

    uint8_t& At(int x, int y) const { return bytes[static_cast<ptrdiff_t>(y) * w + x]; }

    // Keeps columns first to last.
    void Crop(int first, int last) {
        const int kept = last - first;
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

    // Gives the uncovered pixels beside covered ones the effect's value. What it adds is never taken for covered.
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

}  // namespace

GlyphRecord* LICE_CachedFont::FindExtended(unsigned code) {
    GlyphRecord* const first = ExtendedGlyphs.Items<GlyphRecord>();
    GlyphRecord* const end = first + ExtendedGlyphs.Count<GlyphRecord>();
    GlyphRecord* const found = std::lower_bound(first, end, GlyphRecord{.code = code}, ByCode);
    return found != end && found->code == code ? found : nullptr;
}

// Behind the others, to be sorted in when it is rendered. Null when there may be no more.
GlyphRecord* LICE_CachedFont::AddRecord(unsigned code) {
    if (flags_ & LICE_FONT_FLAG_PRECALC) return nullptr;
    const int size = ExtendedGlyphs.Size();
    ExtendedGlyphs.resize(size + static_cast<int>(sizeof(GlyphRecord)), true);
    if (ExtendedGlyphs.Size() == size) return nullptr;  // out of memory: the character stays unknown
    GlyphRecord* const added = ExtendedGlyphs.Items<GlyphRecord>() + ExtendedGlyphs.Count<GlyphRecord>() - 1;
    *added = GlyphRecord{.code = code};
    return added;
}

void LICE_CachedFont::RenderGlyph(unsigned code) {
    if (lineHeight_ >= TallestGlyph) return;
    GlyphRecord* record = FindRecord(code);
    const bool isNew = !record;
    if (isNew) record = AddRecord(code);
    if (!record) return;
    record->code = code;

    LICE_SysBitmap& scratch = MeasureScratch(std::max(lineHeight_, 1) * 2 + 8);
    const int rightMargin = lineHeight_ / 8 + 2;
    const int leftMargin = lineHeight_ / 16 + 2;
    const bool marked = code >> MarkShift != 0 && (code & 0xFFFFF) < 128;
    const WCHAR text[] = {static_cast<WCHAR>(code), static_cast<WCHAR>(marked ? code >> MarkShift : 0), 0};
    const int length = marked ? -1 : 1;
    RECT cell{0, 0, 0, 0};
    int advance;
    {
        const SelectedFont selected(scratch.getDC(), font_);
        DrawTextW(scratch.getDC(), text, length, &cell, DrawOneLine | DT_CALCRECT);
        advance = cell.right;
        cell.right += rightMargin + leftMargin;
        LICE_FillRect(&scratch, 0, 0, cell.right, cell.bottom, LICE_RGBA(0, 0, 0, 255), 1.0f, 0);
        cell.left = leftMargin;
        DrawTextW(scratch.getDC(), text, length, &cell, DrawOneLine | DT_NOCLIP);
        GdiFlush();  // the pixels are read next
    }
    advance = std::min(advance, scratch.getWidth());
    const int w = std::min<int>(cell.right, scratch.getWidth());
    const int h = std::min<int>(cell.bottom, scratch.getHeight());
    if (advance < 1 || h < 1) {
        *record = {.offset = -1, .code = code};
    } else {
        if (flags_ & LICE_FONT_FLAG_BLUR) LICE_Blur(&scratch, &scratch, 0, 0, 0, 0, w, h);
        StoreMask(*record, advance, w, h, leftMargin);
    }
    if (isNew && ExtendedGlyphs.Count<GlyphRecord>() > 1) {
        GlyphRecord* const first = ExtendedGlyphs.Items<GlyphRecord>();
        std::sort(first, first + ExtendedGlyphs.Count<GlyphRecord>(), ByCode);
    }
}

// Takes w by h pixels of the scratch surface, in which the pen stood at leftMargin.
void LICE_CachedFont::StoreMask(GlyphRecord& record, int advance, int w, int h, int leftMargin) {
    const int start = GlyphStore.Size();
    const int wanted = static_cast<int>(std::min<int64_t>(start + int64_t{w} * h, INT32_MAX));
    GlyphStore.resize(wanted, true);
    if (GlyphStore.Size() != start + int64_t{w} * h) {
        record = {.offset = -1, .code = record.code};
        return;
    }
    Mask mask{GlyphStore.Items<uint8_t>() + start, w, h};

    // Between the margins every column is kept; in a margin, those up to the ink.
    int firstCol = leftMargin, lastCol = advance + leftMargin;
    const uint8_t invert = flags_ & LICE_FONT_FLAG_INVERT ? 255 : 0;
    for (int y = 0; y < h; ++y) {
        const LICE_pixel* row = ScratchMeasure->getBits() + static_cast<ptrdiff_t>(y) * ScratchMeasure->getRowSpan();
        const auto red = [row](int x) { return static_cast<uint8_t>(row[x] >> 16); };
        for (int x = 0; x < w; ++x) mask.At(x, y) = red(x) ^ invert;
        for (int x = 0; x < firstCol; ++x)
            if (red(x) != 0) firstCol = x;
        for (int x = w - 1; x >= lastCol; --x)
            if (red(x) != 0) lastCol = x + 1;
    }
    lastCol = std::min(lastCol, w);  // a very wide character fills the surface
    if (lastCol < w || firstCol >= 1) mask.Crop(firstCol, lastCol);
    GlyphStore.resize(start + mask.w * mask.h, false);

    if (Vertical()) mask.Rotate(BottomUp(), reinterpret_cast<uint8_t*>(ScratchMeasure->getBits()));
    const bool hasEffect = flags_ & (LICE_FONT_FLAG_SHADOW | LICE_FONT_FLAG_OUTLINE);
    if (flags_ & LICE_FONT_FLAG_MONO || hasEffect) mask.Threshold();
    if (hasEffect) mask.AddEffect(flags_ & LICE_FONT_FLAG_SHADOW);
    record = {start + 1, mask.w, mask.h, advance, record.code, leftMargin - firstCol};
}

void LICE_CachedFont::PrepareGlyphs(TextReader text) {
    while (!text.AtEnd()) {
        unsigned code = text.Next();
        if (code == '\r') continue;
        if (code == '\n') code = ' ';
        const GlyphRecord* record = FindRecord(code);
        if (!record || record->offset == 0) RenderGlyph(code);
    }
}
