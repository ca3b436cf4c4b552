#include "lice/text_flow.h"

#include <algorithm>

// Where the line that goes on at `text` ends: behind its last white space that fits, or behind a line feed. A word
// wider than the room is cut.
const char* TextFlow::NextBreak(TextReader text, int64_t room) const {
    const char* lastBreak = nullptr;
    while (!text.AtEnd()) {
        const unsigned code = text.Next();
        if (code == '\n') break;
        if (const GlyphRecord* record = code == '\r' ? nullptr : glyphs.FindDrawable(code)) {
            room -= record->advance;
            if (room < 0) return lastBreak ? lastBreak : text.at;
        }
        if (code == ' ' || code == '\t' || code == '\r') lastBreak = text.at;
    }
    return text.at;
}

Pen MeasureGlyphs(const GlyphCache& glyphs, const TextStyle& style, TextReader text, UINT format, int64_t room) {
    const bool vertical = style.Vertical();
    Pen end{0, 0};
    TextFlow{glyphs, style, format, {0, 0}, room}.Walk(text, [&](const GlyphRecord& glyph, const Pen& pen) {
        // A text ends with its last advance or its last ink, whichever is further.
        const int64_t inkEnd = int64_t{vertical ? glyph.height : glyph.width} - glyph.leftExtra;
        const int64_t length = std::max<int64_t>(glyph.advance, inkEnd);
        end.x = std::max(end.x, pen.x + (vertical ? glyph.width : length));
        end.y = std::max(end.y, pen.y + (vertical ? length : glyph.height));
    });
    return end;
}
