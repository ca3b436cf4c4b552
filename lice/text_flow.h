// lice/text_flow.h
// Where the characters of a text stand: the walk along its lines, which measuring and drawing share.
// The pen runs to the right, or in a vertical font down, or up.
#pragma once
#include "lice/glyph_cache.h"
#include "lice/text_reader.h"
#include "lice/text_style.h"

// In 64-bit numbers, since no text is too long.
struct Pen {
    int64_t x, y;
};

struct TextFlow {
    const GlyphCache& glyphs;
    const TextStyle& style;
    UINT format;
    Pen start;
    int64_t limit;  // where a line ends, on the axis that it runs along
    bool upward = false;

    // Calls visit(record, pen) for each character that takes room, with the pen where it stands before it.
    template <class Visit>
    void Walk(TextReader text, Visit visit) const {
        const bool vertical = style.Vertical();
        Pen pen = start;
        int64_t& along = vertical ? pen.y : pen.x;
        int64_t& across = vertical ? pen.x : pen.y;
        const int64_t lineStart = along;
        const char* wrapAt = nullptr;  // the next line begins here
        const auto stepToNextLine = [&] {
            across += int64_t{style.lineHeight} + style.lineSpacing;
            along = lineStart;
            wrapAt = nullptr;
        };
        while (!text.AtEnd()) {
            unsigned code = text.Next();
            if (code == '\r') continue;
            if (code == '\n') {
                if (!(format & DT_SINGLELINE)) {
                    stepToNextLine();
                    continue;
                }
                code = ' ';
            }
            if (const GlyphRecord* record = glyphs.FindDrawable(code)) {
                const int advance = record->advance;
                visit(*record, pen);
                along += upward ? -advance : advance;
            }
            if (format & DT_WORDBREAK) {
                if (wrapAt && text.at >= wrapAt) stepToNextLine();
                if (!wrapAt) wrapAt = NextBreak(text, limit - along);
            }
        }
    }

  private:
    const char* NextBreak(TextReader text, int64_t room) const;
};

// The size of a text whose glyphs are rendered; `room` is where lines are to be wrapped.
Pen MeasureGlyphs(const GlyphCache& glyphs, const TextStyle& style, TextReader text, UINT format, int64_t room);
