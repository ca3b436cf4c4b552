// Text against a slow composer; and what that cannot see: ownership, memory, and GDI's own text.
#include "lice/font.h"

#include <optional>

#include "lice/font_scratch.h"
#include "lice/lice.h"
#include "lice/text_reader.h"
#include "tests/lice/brush.h"
#include "tests/lice/slow_text.h"
#include "tests/support/rects.h"

static std::string AnyText(Random& random) {
    std::string text;
    for (int i = random.In(0, 12); i > 0; --i)
        text += random.Of({"A",        "j",         "Wa",           "fi",           " ",
                           " ",        "\n",        "\r",           "\t",           ".",
                           "\xC3\xA9", "e\xCC\x81", "\xE2\x82\xAC", "\xE0\x81\xA5", "\xF0\x9F\x8E\xB5",
                           "\xFF",     "\xC3",      "\xE2\x82",     "\x01",         "\xCC\x81"});
    return text;
}

static Look AnyLook(Random& random) {
    return {random.Pixel(),
            random.Pixel(),
            random.Pixel(),
            random.Chance(4) ? OPAQUE : TRANSPARENT,
            random.Of({0, 0, 0, 1, 2, 3, 4, 5, 6}) | random.Of({0, 0, LICE_BLIT_USE_ALPHA, LICE_BLIT_IGNORE_SCALING}),
            random.Alpha()};
}

static UINT AnyFormat(Random& random) {
    UINT format = random.In(0, 63) & random.In(0, 63);
    if (random.Chance(3)) format |= DT_NOCLIP;
    for (const UINT flag : {UINT{DT_CALCRECT}, UINT{LICE_DT_USE_TEXT_ALPHA}, UINT{LICE_DT_NO_NATIVE}})
        if (random.Chance(4)) format |= flag;
    return format;
}

// Any text in any look, with the font and slowly.
static void CompareText(Random& random, LICE_CachedFont& font, SlowFont& slow, const std::string& called) {
    const Look look = AnyLook(random);
    font.SetTextColor(look.text);
    font.SetBkColor(look.back);
    font.SetEffectColor(look.effect);
    font.SetBkMode(look.bkMode);
    font.SetCombineMode(look.mode, look.alpha);
    font.SetLineSpacing(slow.lineSpacing = random.Of({0, 0, 3, -5}));

    const std::string text = AnyText(random);
    const UINT format = AnyFormat(random);
    RECT rect{random.In(-30, 40), random.In(-30, 40), 0, 0};
    rect.right = rect.left + random.In(-3, 140);
    rect.bottom = rect.top + random.In(-3, 140);
    TestSurface drawn = TestSurface::Any(random, 120, true, 16);
    if (!drawn.Has(0, 0)) return;  // scaled to nothing
    TestSurface wanted = drawn;
    RECT wantedRect = rect;
    SCOPED_TRACE(called + Called("mode", look.mode, "alpha", look.alpha, "scale", drawn.Scale(), "format", format,
                                 "text", testing::PrintToString(text), "at", Show(rect)));
    const int wantedResult = SlowDraw(wanted, slow, look, text, wantedRect, format);
    // The block has no closing zero, so that a sanitizer sees reading ahead.
    const std::vector<char> bytes(text.begin(), text.end());
    const bool counted = random.Chance(2) && !bytes.empty();
    EXPECT_EQ(font.DrawText(&drawn, counted ? bytes.data() : text.c_str(),
                            counted ? static_cast<int>(bytes.size()) : -1, &rect, format),
              wantedResult);
    EXPECT_EQ(Show(rect), Show(wantedRect));
    ASSERT_TRUE(drawn.memory == wanted.memory);
}

TEST(Font, AgreesWithASlowComposer) {
    Random random;
    constexpr int V = LICE_FONT_FLAG_VERTICAL, Up = LICE_FONT_FLAG_VERTICAL_BOTTOMUP;
    for (const int height : {-7, -12, 19, -34})
        for (const int flags : {0, V, V | Up, Up, LICE_FONT_FLAG_PRECALC, LICE_FONT_FLAG_BLUR, LICE_FONT_FLAG_INVERT,
                                LICE_FONT_FLAG_MONO, LICE_FONT_FLAG_SHADOW, LICE_FONT_FLAG_OUTLINE,
                                LICE_FONT_FLAG_OUTLINE | V, LICE_FONT_FLAG_BLUR | LICE_FONT_FLAG_INVERT | V | Up}) {
            SlowFont slow(height, flags);
            LICE_CachedFont font;
            font.SetFromHFont(CreateInterfaceFont(height), flags | LICE_FONT_FLAG_OWNS_HFONT);
            ASSERT_EQ(font.GetLineHeight(), slow.lineHeight);
            for (int round = 0; round < 60 && !testing::Test::HasFatalFailure(); ++round)
                CompareText(random, font, slow, Called("height", height, "flags", flags));
        }
}

TEST(Font, ReadsOnlyWhatItWasGiven) {
    const std::tuple<const char*, int, std::vector<unsigned>> rows[] = {
        {"e\xCC\x81x", -1, {0x65 | 0x301u << 20, 'x'}},
        {"e\xCC\x81", 3, {0x65 | 0x301u << 20}},
        {"e\xCC\x81", 2, {'e', 0xCC}},  // what is left of the mark reads as bytes
        {"e\xCC\x81", 1, {'e'}},
        {"1\xCC\x81", -1, {'1', 0x301}},  // only letters carry marks
        {"\xC3\xA9\xC3", -1, {0xE9, 0xC3}},
        {"\xF4\x8F\xBF\xBF!", -1, {' ', '!'}},
        {"ab", 9, {'a', 'b'}},
        {"ab", 0, {}}};
    for (const auto& [text, count, wanted] : rows) {
        TextReader reader{text, count};
        std::vector<unsigned> codes;
        while (!reader.AtEnd()) codes.push_back(reader.Next());
        EXPECT_EQ(codes, wanted) << testing::PrintToString(text) << " " << count;
    }
}

TEST(Font, OwnsItsHandleAndSharesItsScratch) {
    ASSERT_EQ(ScratchUsers, 0);
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const HFONT kept = CreateInterfaceFont(-12), owned = CreateInterfaceFont(-40);
    {
        LICE_CachedFont first;
        first.SetFromHFont(owned, LICE_FONT_FLAG_OWNS_HFONT);
        first.SetFromHFont(owned, LICE_FONT_FLAG_OWNS_HFONT);  // the same: not deleted
        RECT size{};
        first.DrawText(nullptr, "abc", -1, &size, DT_CALCRECT);
        EXPECT_GT(size.right, 40);
        std::unique_ptr<LICE_IFont> second = std::make_unique<LICE_CachedFont>();
        second->SetFromHFont(kept, 0);
        second.reset();
        EXPECT_NE(ScratchMeasure, nullptr) << "the first is still there";
        first.SetFromHFont(kept, 0);
        EXPECT_FALSE(DeleteObject(owned)) << "gone when it was replaced";
    }
    EXPECT_EQ(ScratchUsers, 0);
    EXPECT_EQ(ScratchMeasure, nullptr);
    EXPECT_TRUE(DeleteObject(kept));
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before);
}

// Whatever was rendered can be drawn, blank or not.
TEST(Font, RendersNoSpaceForALineFeedThatIsSkipped) {
    for (const UINT format : {UINT{0}, UINT{DT_SINGLELINE}}) {
        LICE_CachedFont font;
        font.SetFromHFont(CreateInterfaceFont(-12), LICE_FONT_FLAG_OWNS_HFONT);
        RECT size{};
        font.DrawText(nullptr, "a\n\rb", -1, &size, format | DT_CALCRECT);
        LICE_MemBitmap surface(20, 20);
        std::string drawn;
        for (const char letter : {'a', '\n', '\r', ' ', 'b'})
            if (font.DrawGlyphAt(&surface, letter, 0, 0, nullptr)) drawn += letter;
        EXPECT_EQ(drawn, format & DT_SINGLELINE ? "a b" : "ab");
    }
}

const std::pair<UINT, std::wstring> TallRows[] = {{0, L"\xE3n"},  // n has no ink right of its room
                                                  {DT_RIGHT, L"\xE3n"},
                                                  {DT_CENTER | DT_BOTTOM, L"\xE3n"},
                                                  {DT_NOCLIP, L"jn"},  // ink left of the pen
                                                  {DT_END_ELLIPSIS, L"nnnnn"},
                                                  {DT_END_ELLIPSIS, L"nnnn\xE3"},
                                                  {DT_END_ELLIPSIS | DT_MODIFYSTRING, L"nnnnn"}};

// GDI gets every bit of the format but the one that lets it write into the text. Only Windows heeds the ellipsis.
TEST(Font, TallTextIsTheSystemsOwn) {
    const HFONT handle = CreateInterfaceFont(290);
    LICE_CachedFont font;
    font.SetFromHFont(handle, 0);
    ASSERT_GE(font.GetLineHeight(), 256);
    font.SetTextColor(0xFF4080C0);
    LICE_SysBitmap direct(420, 330), plain(420, 330);
    LICE_MemBitmap without(420, 330);
    for (const auto& [asked, letters] : TallRows) {
        const UINT format = asked | DT_SINGLELINE;
        std::string text;
        for (const wchar_t c : letters) text += c < 128 ? std::string(1, static_cast<char>(c)) : "\xC3\xA3";
        const std::string given = text;
        for (LICE_IBitmap* surface : {(LICE_IBitmap*)&direct, (LICE_IBitmap*)&plain, (LICE_IBitmap*)&without})
            LICE_Clear(surface, 0);
        const RECT box{30, 10, 400, 300};
        RECT rect = box, theirs = box;
        const int height = font.DrawText(&direct, text.c_str(), -1, &rect, format);
        EXPECT_EQ(Show(rect), Show(box));
        font.DrawText(&without, text.c_str(), -1, &rect, format);
        EXPECT_EQ(text, given);

        std::vector<WCHAR> wide(letters.begin(), letters.end());
        wide.push_back(0);
        const SelectedFont selected(plain.getDC(), handle);
        ::SetTextColor(plain.getDC(), RGB(0x40, 0x80, 0xC0));
        ::SetBkMode(plain.getDC(), TRANSPARENT);
        EXPECT_EQ(DrawTextW(plain.getDC(), wide.data(), -1, &theirs, (format & ~DT_MODIFYSTRING) | DT_NOPREFIX),
                  height);
        GdiFlush();
        for (int y = 0; y < 330; ++y) {
            const auto line = [y](LICE_IBitmap& b) { return b.getBits() + y * b.getRowSpan(); };
            ASSERT_TRUE(std::equal(line(plain), line(plain) + 420, line(direct))) << format << " row " << y;
            ASSERT_TRUE(std::equal(line(plain), line(plain) + 420, line(without))) << format << " row " << y;
        }
    }
    RECT with{5, 5, 0, 0}, none{5, 5, 0, 0};
    EXPECT_EQ(font.DrawText(&direct, "nm", -1, &with, DT_CALCRECT),
              font.DrawText(nullptr, "nm", -1, &none, DT_CALCRECT));
    EXPECT_EQ(Show(with), Show(none));
    DeleteObject(handle);
}

// Each step goes on with the buffer of the one before, or begins a new one.
TEST(HeapBuffer, GrowsByHalvesInPagesAndShrinksWhenAskedTo) {
    constexpr int TooLarge = std::numeric_limits<int>::max();
    const struct {
        int granularity;  // of a new buffer, or 0
        int size;
        bool mayShrink;
        int used, allocated;
    } steps[] = {{65536, 1, true, 1, 65440},
                 {0, 65440, true, 65440, 65440},
                 {0, 65441, true, 65441, 130976},
                 {0, 1000, true, 1000, 130976},
                 {0, 300000, true, 300000, 446368},
                 {0, 184224, true, 184224, 446368},  // four granules may stay idle
                 {0, 184223, true, 184223, 270240},
                 {0, 0, true, 0, 0},
                 {4096, 100000, false, 100000, 147360},
                 {0, 1000, false, 1000, 147360},
                 {0, 1000, true, 1000, 147360},
                 {0, 999, true, 999, 4000},
                 {0, -5, false, 0, 4000},
                 {4096, 20000000, false, 20000000, 24190880},  // never more than four megabytes to spare
                 {256, 10, true, 10, 266},
                 {0, 300, true, 300, 556},
                 {0, TooLarge, true, 300, 556}};
    std::optional<HeapBuffer> buffer;
    for (const auto& [granularity, size, mayShrink, used, allocated] : steps) {
        if (granularity) buffer.emplace(granularity);
        if (buffer->Size() > 0) buffer->Items<char>()[0] = 'k';
        const bool had = buffer->Size() > 0 && size > 0;
        EXPECT_EQ(buffer->resize(size, mayShrink) == nullptr, used == 0);
        EXPECT_EQ(buffer->Size(), used);
        EXPECT_EQ(buffer->Allocated(), allocated) << size;
        EXPECT_TRUE(!had || buffer->Items<char>()[0] == 'k');
    }
}
