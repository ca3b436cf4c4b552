// Fonts in contexts, and DrawText: lines are laid out first, then drawn glyph by glyph.
#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/headless/gdi_objects.h"
#include "platform/headless/text_face.h"

namespace {

using Text = std::vector<char32_t>;

struct Line {
    size_t begin, end;  // characters of the text; the break itself is in no line
    int64_t width;
};

bool IsMark(char32_t code) { return code >= 0x300 && code <= 0x36F; }

Text DecodeUtf16(LPCWSTR text, int count) {
    Text codes;
    for (int i = 0; count < 0 ? text[i] != 0 : i < count; ++i) {
        const char32_t low = count < 0 || i + 1 < count ? text[i + 1] : 0;  // at worst the closing zero
        if ((text[i] & 0xFC00) == 0xD800 && (low & 0xFC00) == 0xDC00) {
            codes.push_back(0x10000 + ((text[i] & 0x3FF) << 10) + (low & 0x3FF));
            ++i;
        } else {
            codes.push_back(text[i]);
        }
    }
    return codes;
}

int Advance(FontFace& face, char32_t code) {
    return IsMark(code) ? 0 : face.Glyph(code).advance;  // a mark stands over the letter before it
}

// Cuts the text at its line ends and, with DT_WORDBREAK, at the last space before the limit.
// A word wider than the limit stays whole.
std::vector<Line> LayOut(FontFace& face, const Text& text, UINT format, int64_t limit) {
    const bool single = format & DT_SINGLELINE;
    const bool wrap = !single && format & DT_WORDBREAK;
    std::vector<Line> lines;
    Line line{0, 0, 0};
    Line untilSpace{0, 0, 0};  // the line as it would be if cut at its last space
    const auto finish = [&](const Line& done, size_t next) {
        lines.push_back(done);
        line = untilSpace = {next, next, 0};
    };
    for (size_t i = 0; i < text.size(); ++i) {
        const char32_t code = text[i];
        if (!single && (code == '\n' || code == '\r')) {
            if (code == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
            finish(line, i + 1);
            continue;
        }
        if (code == ' ') untilSpace = line;
        line.width += Advance(face, code);
        line.end = i + 1;
        if (wrap && code != ' ' && line.width > limit && untilSpace.end > untilSpace.begin) {
            i = untilSpace.end;  // the space is left out, and the rest is laid out again
            finish(untilSpace, i + 1);
        }
    }
    if (line.end > line.begin || lines.empty()) lines.push_back(line);
    return lines;
}

uint32_t PixelOf(COLORREF color) { return (color & 0xFF) << 16 | (color & 0xFF00) | color >> 16; }

struct Painter {
    Surface target;
    RECT clip;
    uint32_t color;

    void Fill(int64_t left, int64_t top, int64_t right, int64_t bottom, uint32_t pixel) const {
        left = std::max<int64_t>(left, clip.left);
        right = std::min<int64_t>(right, clip.right);
        for (int64_t y = std::max<int64_t>(top, clip.top); y < std::min<int64_t>(bottom, clip.bottom); ++y)
            for (int64_t x = left; x < right; ++x) target.Row(static_cast<int>(y))[x] = pixel;
    }

    void Draw(const FaceGlyph& glyph, int64_t x, int64_t y) const {
        const int64_t left = std::max<int64_t>(x, clip.left);
        const int64_t right = std::min<int64_t>(x + glyph.width, clip.right);
        const int64_t bottom = std::min<int64_t>(y + glyph.height, clip.bottom);
        for (int64_t row = std::max<int64_t>(y, clip.top); row < bottom; ++row) {
            uint32_t* pixels = target.Row(static_cast<int>(row));
            for (int64_t column = left; column < right; ++column) {
                const uint8_t coverage = glyph.coverage[(row - y) * glyph.width + column - x];
                if (coverage != 0) pixels[column] = Blend(pixels[column], coverage);
            }
        }
    }

    // The system's text leaves 0 in the alpha byte.
    uint32_t Blend(uint32_t old, int coverage) const {
        uint32_t mixed = 0;
        for (int shift = 0; shift < 24; shift += 8) {
            const int from = old >> shift & 0xFF;
            const int to = color >> shift & 0xFF;
            mixed |= static_cast<uint32_t>((from * (255 - coverage) + to * coverage + 127) / 255) << shift;
        }
        return mixed;
    }
};

// Ink is centred over ink, and lifted where the letter is tall enough to touch it.
void DrawMark(const Painter& painter, const FaceGlyph& letter, const FaceGlyph& mark, int64_t letterX,
              int64_t baseline) {
    const int64_t x = letterX + letter.left + (letter.width - mark.width) / 2;
    const int markBottom = mark.top - mark.height;
    const int lift = markBottom > 0 ? std::max(letter.top + 1 - markBottom, 0) : 0;
    painter.Draw(mark, x, baseline - mark.top - lift);
}

void DrawLine(const Painter& painter, FontFace& face, const Text& text, const Line& line, int64_t x, int64_t baseline) {
    const FaceGlyph* letter = nullptr;
    int64_t letterX = x;
    for (size_t i = line.begin; i < line.end; ++i) {
        const FaceGlyph& glyph = face.Glyph(text[i]);
        if (IsMark(text[i]) && letter) {
            DrawMark(painter, *letter, glyph, letterX, baseline);
            continue;
        }
        painter.Draw(glyph, x + glyph.left, baseline - glyph.top);
        letter = &glyph;
        letterX = x;
        x += Advance(face, text[i]);
    }
}

int Saturate(int64_t value) { return static_cast<int>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX)); }

FontFace& FaceOf(const DeviceContext& context) {
    GdiFont& font = *FindGdi<GdiFont>(context.font);
    if (!font.face) font.face = std::make_unique<FontFace>(font.asked);
    return *font.face;
}

int DrawCodes(const DeviceContext& context, const Text& text, RECT* rect, UINT format) {
    FontFace& face = FaceOf(context);
    const int lineHeight = face.metrics.tmHeight;
    const int64_t room = int64_t{rect->right} - rect->left;
    const std::vector<Line> lines = LayOut(face, text, format, room);
    const int64_t height = static_cast<int64_t>(lines.size()) * lineHeight;
    int64_t y = rect->top;
    if (format & DT_SINGLELINE) {
        if (format & DT_BOTTOM) y = rect->bottom - height;
        if (format & DT_VCENTER) y = rect->top + (int64_t{rect->bottom} - rect->top - height) / 2;
    }
    const int result = Saturate(y - rect->top + height);

    if (format & DT_CALCRECT) {
        int64_t width = 0;
        for (const Line& line : lines) width = std::max(width, line.width);
        rect->right = Saturate(rect->left + width);
        rect->bottom = Saturate(y + height);
        return result;
    }
    RECT clip = context.Drawable();
    if (!(format & DT_NOCLIP)) clip = Intersection(clip, *rect);
    const Painter painter{context.Target(), clip, PixelOf(context.textColor)};
    for (const Line& line : lines) {
        int64_t x = rect->left;
        if (format & DT_CENTER) x += (room - line.width) / 2;
        if (format & DT_RIGHT) x = rect->right - line.width;
        if (context.bkMode == OPAQUE) painter.Fill(x, y, x + line.width, y + lineHeight, PixelOf(context.bkColor));
        DrawLine(painter, face, text, line, x, y + face.metrics.tmAscent);
        y += lineHeight;
    }
    return result;
}

}  // namespace

HFONT CreateFontIndirectA(const LOGFONTA* font) {
    if (!font) return nullptr;
    auto object = std::make_unique<GdiFont>();
    object->asked = *font;
    return static_cast<HFONT>(AddGdiObject(std::move(object)));
}

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics) {
    const DeviceContext* context = FindGdi<DeviceContext>(dc);
    if (!context || !metrics) return FALSE;
    *metrics = FaceOf(*context).metrics;
    return TRUE;
}

COLORREF SetTextColor(HDC dc, COLORREF color) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    return context ? std::exchange(context->textColor, color & 0xFFFFFF) : CLR_INVALID;
}

COLORREF SetBkColor(HDC dc, COLORREF color) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    return context ? std::exchange(context->bkColor, color & 0xFFFFFF) : CLR_INVALID;
}

int SetBkMode(HDC dc, int mode) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    return context && (mode == TRANSPARENT || mode == OPAQUE) ? std::exchange(context->bkMode, mode) : 0;
}

int DrawTextW(HDC dc, LPCWSTR text, int count, RECT* rect, UINT format) {
    const DeviceContext* context = FindGdi<DeviceContext>(dc);
    if (!context || !text || !rect || count < -1) return 0;
    return DrawCodes(*context, DecodeUtf16(text, count), rect, format);
}

int DrawTextA(HDC dc, LPCSTR text, int count, RECT* rect, UINT format) {
    if (!text || count < -1) return 0;
    if (count == -1) count = static_cast<int>(std::strlen(text));
    std::vector<WCHAR> wide(count + 1);
    MultiByteToWideChar(CP_ACP, 0, text, count, wide.data(), count);
    return DrawTextW(dc, wide.data(), count, rect, format);
}
