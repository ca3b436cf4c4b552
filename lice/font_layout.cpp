// Where the characters of a text stand: measuring, wrapping, aligning, and the walk that all of them share.
#include <algorithm>
#include <cstring>

#include "lice/font.h"
#include "lice/safe_math.h"
#include "lice/target.h"
#include "lice/text_reader.h"

namespace {

RECT ScaledRect(const RECT& r, int scale) {
    return {LICE_ScaleCoord(r.left, scale), LICE_ScaleCoord(r.top, scale), LICE_ScaleCoord(r.right, scale),
            LICE_ScaleCoord(r.bottom, scale)};
}

int Unscaled(int value, int scale) {
    return HeldInInt(int64_t{value} * 256 / scale);
}

}  // namespace

// The pen runs along the line: to the right, or in a vertical font down, or up. Its place is kept in 64 bits, since no
// text is too long.
struct LICE_CachedFont::Flow {
    struct Pen {
        int64_t x, y;
    };
    Pen start;
    int64_t limit;  // where a line ends, on the axis that it runs along
    UINT format;
    bool upward = false;
};

// Calls place(record, pen) for each character that takes room, with the pen where it stands before it.
template <class Place>
void LICE_CachedFont::Walk(TextReader text, const Flow& flow, Place place) {
    const bool vertical = Vertical();
    Flow::Pen pen = flow.start;
    int64_t& along = vertical ? pen.y : pen.x;
    int64_t& across = vertical ? pen.x : pen.y;
    const int64_t lineStart = along;
    const char* wrapAt = nullptr;  // the next line begins here
    const auto stepToNextLine = [&] {
        across += int64_t{lineHeight_} + lineSpacing_;
        along = lineStart;
        wrapAt = nullptr;
    };
    while (!text.AtEnd()) {
        unsigned code = text.Next();
        if (code == '\r') continue;
        if (code == '\n') {
            if (!(flow.format & DT_SINGLELINE)) {
                stepToNextLine();
                continue;
            }
            code = ' ';
        }
        if (const GlyphRecord* record = FindDrawable(code)) {
            const int advance = record->advance;
            place(*record, pen);
            along += flow.upward ? -advance : advance;
        }
        if (flow.format & DT_WORDBREAK) {
            if (wrapAt && text.at >= wrapAt) stepToNextLine();
            if (!wrapAt) wrapAt = NextBreak(text, flow.limit - along);
        }
    }
}

// Where the line that goes on at `text` ends: behind the last white space before the room is used up, or within a word
// that is wider than it, or behind a line feed.
const char* LICE_CachedFont::NextBreak(TextReader text, int64_t room) {
    const char* lastBreak = nullptr;
    while (!text.AtEnd()) {
        const unsigned code = text.Next();
        if (code == '\n') break;
        if (const GlyphRecord* record = code == '\r' ? nullptr : FindDrawable(code)) {
            room -= record->advance;
            if (room < 0) return lastBreak ? lastBreak : text.at;
        }
        if (code == ' ' || code == '\t' || code == '\r') lastBreak = text.at;
    }
    return text.at;
}

int LICE_CachedFont::MeasureGlyphs(TextReader text, RECT* rect, UINT format) {
    const bool vertical = Vertical();
    int64_t maxX = 0, maxY = 0;
    PrepareGlyphs(text);
    const Flow flow{{0, 0}, vertical ? HeightOf(*rect) : WidthOf(*rect), format};
    Walk(text, flow, [&](const GlyphRecord& glyph, const Flow::Pen& pen) {
        // The text ends where the last advance or the last ink does, whichever is further.
        const int64_t inkEnd = int64_t{vertical ? glyph.height : glyph.width} - glyph.leftExtra;
        const int64_t length = std::max<int64_t>(glyph.advance, inkEnd);
        maxX = std::max(maxX, pen.x + (vertical ? glyph.width : length));
        maxY = std::max(maxY, pen.y + (vertical ? length : glyph.height));
    });
    rect->right = HeldInInt(rect->left + maxX);
    rect->bottom = HeldInInt(rect->top + maxY);
    return HeldInInt(vertical ? maxX : maxY);
}

int LICE_CachedFont::DrawText(LICE_IBitmap* bitmap, const char* text, int count, RECT* rect, UINT format) {
    if (!rect || (!bitmap && !(format & DT_CALCRECT))) return 0;
    const int scale = Target(bitmap).scale;
    if (scale > 0 && !(combineMode_ & LICE_BLIT_IGNORE_SCALING)) *rect = ScaledRect(*rect, scale);

    const bool noNative = format & LICE_DT_NO_NATIVE;
    format &= ~LICE_DT_NO_NATIVE;
    if (format & DT_SINGLELINE) format &= ~DT_WORDBREAK;

    const TextReader reader{text ? text : "", count};
    int result;
    if (WantsNative(bitmap, format, noNative)) {
        result = DrawNative(bitmap, reader, rect, format);
    } else if (format & DT_CALCRECT) {
        result = MeasureGlyphs(reader, rect, format);
    } else {
        const float alpha = alpha_;
        if (format & LICE_DT_USE_TEXT_ALPHA) alpha_ = static_cast<float>(alpha_ * ((textColor_ >> 24) / 255.0));
        result = alpha_ == 0.0f ? 0 : DrawGlyphs(bitmap, reader, *rect, format, noNative);
        alpha_ = alpha;
    }
    if (scale > 0) {
        *rect = {Unscaled(rect->left, scale), Unscaled(rect->top, scale), Unscaled(rect->right, scale),
                 Unscaled(rect->bottom, scale)};
        result = Unscaled(result, scale);
    }
    return result;
}

int LICE_CachedFont::DrawGlyphs(LICE_IBitmap* bitmap, TextReader text, const RECT& rect, UINT format, bool noNative) {
    constexpr UINT Alignments = DT_CENTER | DT_RIGHT | DT_VCENTER | DT_BOTTOM;
    const Target target(bitmap);
    const bool vertical = Vertical(), upward = BottomUp();
    int64_t x = rect.left, y = rect.top;
    if (format & Alignments || upward) {
        RECT size{0, 0, 0, 0};
        const UINT how = (format & DT_SINGLELINE) | DT_CALCRECT | (noNative ? LICE_DT_NO_NATIVE : 0);
        DrawText(bitmap, text.at, text.left, &size, how);
        if (target.scale > 0) size = ScaledRect(size, target.scale);
        if (format & DT_CENTER) x += (WidthOf(rect) - size.right) / 2;
        if (format & DT_RIGHT) x = int64_t{rect.right} - size.right;
        if (format & DT_VCENTER) y += (HeightOf(rect) - size.bottom) / 2;
        if (format & DT_BOTTOM) y = int64_t{rect.bottom} - size.bottom;
        if (upward) y += size.bottom;
    }

    RECT clip{0, 0, target.width, target.height};
    if (!(format & DT_NOCLIP)) {
        clip = {std::max<LONG>(rect.left, 0), std::max<LONG>(rect.top, 0), std::min(rect.right, clip.right),
                std::min(rect.bottom, clip.bottom)};
        if (clip.left >= clip.right || clip.top >= clip.bottom) return 0;
    }

    PrepareGlyphs(text);
    const int64_t startX = x, startY = y;
    int64_t maxX = x, maxY = y;
    const Flow flow{{x, y}, vertical ? rect.bottom : rect.right, format, upward};
    Walk(text, flow, [&](const GlyphRecord& glyph, const Flow::Pen& pen) {
        const int64_t top = upward ? pen.y - glyph.height : pen.y;
        if (!DrawGlyphAt(bitmap, glyph.code, HeldInInt(pen.x), HeldInInt(top), &clip)) return;
        maxX = std::max(maxX, pen.x + glyph.width);
        maxY = std::max(maxY, top + glyph.height);
    });
    return HeldInInt(vertical ? maxX - startX : maxY - startY);
}
