// Bytes that may be UTF-8, in blocks that end with them, measured and drawn with fonts of any flags.
#include <memory>

#include "lice/lice.h"
#include "platform/font.h"
#include "tests/fuzz/byte_eater.h"

namespace {

// Fonts are kept, since making one is slow. Each input has its own cache of glyphs.
HFONT AnyFont(int choice) {
    constexpr int Heights[] = {9, 14, 40, 9, 14, 40, 9, 14, 40, 9, 14, 40, 1, 60, 300, 5000};
    static HFONT fonts[std::size(Heights)] = {};
    const size_t i = choice % std::size(Heights);
    if (!fonts[i]) fonts[i] = CreateInterfaceFont(-Heights[i]);
    return fonts[i];
}

// Characters of one to four bytes, combining marks, line feeds, and bytes that are none of these.
std::string Text(ByteEater& in) {
    std::string text;
    for (int n = in.Byte() % 24; n > 0; --n) {
        const int kind = in.Byte() % 8;
        if (kind == 1)
            text += in.Of({"\n", "\r\n", " ", "e\xCC\x81", "\xC3\xA7", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xCC"});
        else
            text += static_cast<char>(kind == 0 ? in.Byte() : ' ' + in.Byte() % 95);
    }
    return text;
}

// Wine's own DrawText ends the program where a line is to be both broken and shortened, so none is shortened there.
#ifdef _WIN32
constexpr UINT Drawable = ~(DT_END_ELLIPSIS | DT_PATH_ELLIPSIS | DT_WORD_ELLIPSIS);
#else
constexpr UINT Drawable = ~0u;
#endif

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ByteEater in(data, size);
    TestSurface dest = in.Surface();
    const TestSurface before = dest;
    LICE_CachedFont font;
    const int flags = (in.Bool() ? 0 : in.Raw<int16_t>()) & ~(LICE_FONT_FLAG_OWNS_HFONT | LICE_FONT_FLAG_PRECALC);
    font.SetFromHFont(in.Byte() % 16 ? AnyFont(in.Byte()) : nullptr, flags);
    for (int calls = 0; calls < 4 && !in.Empty(); ++calls) {
        font.SetTextColor(in.Pixel());
        font.SetEffectColor(in.Pixel());
        font.SetBkMode(in.Byte() % 3);
        const float alpha = in.Alpha();
        font.SetCombineMode(in.Mode(), alpha);
        font.SetLineSpacing(in.Byte() % 4 ? 0 : in.Int());

        const std::string text = Text(in);
        const bool terminated = in.Bool();
        const std::unique_ptr<char[]> block(new char[text.size() + terminated]);
        memcpy(block.get(), text.c_str(), text.size() + terminated);
        const int count = terminated ? in.Of({-1, -7, 2, 400}) : static_cast<int>(text.size());

        const UINT format = in.Byte() % 4 ? in.Of({0x824u, 0x825u, 0xC20u, 0x10u}) : in.Raw<uint32_t>() & Drawable;
        RECT r = {in.Int(), in.Int(), in.Int(), in.Int()};
        font.DrawText(in.Byte() % 8 ? &dest : nullptr, in.Byte() % 8 ? block.get() : nullptr, count,
                      in.Byte() % 8 ? &r : nullptr, format);
        font.DrawText(nullptr, block.get(), count, &r, format | DT_CALCRECT);
        const int x = in.Int(), y = in.Int();
        font.DrawGlyphAt(&dest, in.Byte() % 4 ? static_cast<unsigned>(in.Byte()) : in.Pixel(), x, y,
                         in.Bool() ? &r : nullptr);
    }
    RequireKeptOutside(dest, before);
    return 0;
}
