#include "platform/headless/text_face.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>

namespace {

constexpr int LargestEm = 4096;  // keeps a glyph's bitmap within some 16 megabytes
constexpr int DefaultCell = 16;
constexpr int DefaultWeight = 400;

// Every name gets the first, so that text looks the same whatever else is installed. Without it the next stands in.
const char* const Families[] = {"Open Sans", "Noto Sans", "DejaVu Sans", "sans-serif"};

struct FaceFile {
    std::string path;  // empty: none is installed
    int index = 0;
};

using FaceKey = std::pair<int, bool>;  // weight, italic

FaceFile AskFontconfig(const FaceKey& key) {
    const auto [weight, italic] = key;
    FcConfig* config = FcInitLoadConfigAndFonts();  // our own, since hardly ever a second face is looked for
    FcPattern* pattern = FcPatternCreate();
    for (const char* name : Families) FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(name));
    FcPatternAddInteger(pattern, FC_WEIGHT, FcWeightFromOpenType(weight));
    FcPatternAddInteger(pattern, FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
    FcPatternAddBool(pattern, FC_VARIABLE, FcFalse);  // a named instance rather than a range
    FcConfigSubstitute(config, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);

    FaceFile file;
    FcResult result;
    if (FcPattern* match = FcFontMatch(config, pattern, &result)) {
        FcChar8* path = nullptr;
        if (FcPatternGetString(match, FC_FILE, 0, &path) == FcResultMatch) {
            file.path = reinterpret_cast<const char*>(path);
            FcPatternGetInteger(match, FC_INDEX, 0, &file.index);
        }
        FcPatternDestroy(match);
    }
    FcPatternDestroy(pattern);
    FcConfigDestroy(config);
    return file;
}

// A look-up takes milliseconds, and the same face is asked for at every size.
const FaceFile& FileOfFace(const LOGFONTA& asked) {
    static std::map<FaceKey, FaceFile>& known = *new std::map<FaceKey, FaceFile>;
    const int weight = asked.lfWeight == 0 ? DefaultWeight : std::clamp<int>(asked.lfWeight, 1, 1000);
    const auto [place, added] = known.try_emplace({weight, asked.lfItalic});
    if (added) place->second = AskFontconfig(place->first);
    return place->second;
}

FT_Library FreeType() {
    static const FT_Library library = [] {
        FT_Library made = nullptr;
        return FT_Init_FreeType(&made) == 0 ? made : nullptr;
    }();
    return library;
}

// The cell and the em that it is counted in, in the units of the face.
struct Proportions {
    int ascent = 1069;
    int descent = 293;
    int em = 1000;
};

Proportions ProportionsOf(FT_Face face) {
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    const int em = std::max<int>(face->units_per_EM, 1);
    if (os2 && os2->usWinAscent + os2->usWinDescent > 0) return {os2->usWinAscent, os2->usWinDescent, em};
    return {std::max<int>(face->ascender, 1), std::max<int>(-face->descender, 0), em};
}

// A face without a combining mark often has the same mark with room of its own.
char32_t SpacingMark(char32_t mark) {
    static const std::map<char32_t, char32_t> spacing = {
        {0x300, 0x60}, {0x301, 0xB4},  {0x302, 0x2C6}, {0x303, 0x2DC}, {0x304, 0xAF}, {0x306, 0x2D8}, {0x307, 0x2D9},
        {0x308, 0xA8}, {0x30A, 0x2DA}, {0x30B, 0x2DD}, {0x30C, 0x2C7}, {0x327, 0xB8}, {0x328, 0x2DB}};
    const auto found = spacing.find(mark);
    return found == spacing.end() ? mark : found->second;
}

bool IsControl(char32_t code) { return code < 32 || code == 127; }

}  // namespace

struct FontFace::Engine {
    FT_Face face = nullptr;

    ~Engine() {
        if (face) FT_Done_Face(face);
    }

    bool Load(char32_t code) {
        if (FT_Get_Char_Index(face, code) == 0) code = SpacingMark(code);
        return FT_Load_Char(face, code, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP | FT_LOAD_RENDER) == 0;
    }
};

FontFace::FontFace(const LOGFONTA& asked) {
    const FaceFile& file = FileOfFace(asked);
    engine = std::make_unique<Engine>();
    if (!FreeType() || file.path.empty() || FT_New_Face(FreeType(), file.path.c_str(), file.index, &engine->face) != 0)
        engine.reset();
    const Proportions units = engine ? ProportionsOf(engine->face) : Proportions{};

    // A positive height is the cell's and is met exactly; a negative one is the em's.
    const double cellOfEm = static_cast<double>(units.ascent + units.descent) / units.em;
    const double height = asked.lfHeight == 0 ? DefaultCell : asked.lfHeight;
    const double em = std::clamp(height < 0 ? -height : height / cellOfEm, 1.0, double{LargestEm});
    const auto pixels = [&](int faceUnits) { return static_cast<int>(std::lround(faceUnits * em / units.em)); };
    if (engine) FT_Set_Char_Size(engine->face, 0, std::lround(em * 64), 72, 72);

    metrics.tmAscent = pixels(units.ascent);
    metrics.tmHeight = asked.lfHeight < 0 ? metrics.tmAscent + pixels(units.descent) : std::lround(em * cellOfEm);
    metrics.tmDescent = metrics.tmHeight - metrics.tmAscent;
    metrics.tmInternalLeading = metrics.tmHeight - static_cast<int>(std::lround(em));
    metrics.tmAveCharWidth = Glyph('x').advance;
    metrics.tmMaxCharWidth = Glyph('W').advance;
    metrics.tmWeight = asked.lfWeight == 0 ? DefaultWeight : asked.lfWeight;
    metrics.tmDigitizedAspectX = metrics.tmDigitizedAspectY = 96;
    metrics.tmFirstChar = metrics.tmBreakChar = ' ';
    metrics.tmLastChar = 255;
    metrics.tmDefaultChar = '?';
    metrics.tmItalic = asked.lfItalic;
    metrics.tmCharSet = ANSI_CHARSET;
}

FontFace::~FontFace() = default;

const FaceGlyph& FontFace::Glyph(char32_t code) {
    const auto [place, added] = glyphs.try_emplace(code);
    FaceGlyph& glyph = place->second;
    if (!added || IsControl(code)) return glyph;
    if (!engine) {
        glyph.advance = std::max((metrics.tmHeight - metrics.tmInternalLeading) * 5 / 9, 1);
        return glyph;
    }
    if (!engine->Load(code)) return glyph;
    const FT_GlyphSlot slot = engine->face->glyph;
    glyph.left = slot->bitmap_left;
    glyph.top = slot->bitmap_top;
    glyph.width = static_cast<int>(slot->bitmap.width);
    glyph.height = static_cast<int>(slot->bitmap.rows);
    glyph.advance = static_cast<int>((slot->advance.x + 32) >> 6);
    glyph.coverage.resize(static_cast<size_t>(glyph.width) * glyph.height);
    for (int y = 0; y < glyph.height; ++y)
        std::copy_n(slot->bitmap.buffer + static_cast<ptrdiff_t>(y) * slot->bitmap.pitch, glyph.width,
                    glyph.coverage.data() + static_cast<ptrdiff_t>(y) * glyph.width);
    return glyph;
}
