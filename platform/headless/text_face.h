// platform/headless/text_face.h
// A typeface at one size: metrics in whole pixels, and glyphs as 8-bit coverage.
// Every family name gets the same installed face. Without any, text is blank but has plausible sizes.
// Nothing is hinted, so that a glyph looks the same wherever it stands.
#pragma once
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/headless/win32_gdi.h"

struct FaceGlyph {
    int left = 0;  // from the pen to the first column
    int top = 0;   // from the baseline up to the first row
    int width = 0;
    int height = 0;
    int advance = 0;
    std::vector<uint8_t> coverage;  // width * height
};

struct FontFace {
    explicit FontFace(const LOGFONTA& asked);
    ~FontFace();

    TEXTMETRICA metrics{};
    const FaceGlyph& Glyph(char32_t code);  // stays where it is as long as the face lives

  private:
    struct Engine;
    std::unique_ptr<Engine> engine;  // null: no face was found
    std::unordered_map<char32_t, FaceGlyph> glyphs;
};
