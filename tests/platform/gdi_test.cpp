// Drawing as the module leans on it. The same promises hold for the headless stand-in and for the system's own GDI.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "platform/font.h"
#include "tests/support/rects.h"

namespace {

// A memory context with a section in it.
struct Canvas {
    int w, h;
    bool topDown;
    HDC dc = CreateCompatibleDC(nullptr);
    uint32_t* bits = nullptr;
    HBITMAP section = nullptr;
    HGDIOBJ previous = nullptr;

    Canvas(int width, int height, bool top = true) : w(width), h(height), topDown(top) {
        BITMAPINFO info{};
        info.bmiHeader = {40, width, top ? -height : height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* pixels = nullptr;
        section = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
        bits = static_cast<uint32_t*>(pixels);
        previous = SelectObject(dc, section);
    }
    Canvas(const Canvas&) = delete;
    ~Canvas() {
        SelectObject(dc, previous);
        DeleteObject(section);
        DeleteDC(dc);
    }
    uint32_t& At(int x, int y) { return bits[(topDown ? y : h - 1 - y) * w + x]; }
    void Fill(uint32_t pixel) { std::fill_n(bits, w * h, pixel); }

    // The smallest rectangle around everything that isn't background.
    RECT Ink(uint32_t background) {
        GdiFlush();
        RECT box{w, h, 0, 0};
        for (LONG y = 0; y < h; ++y)
            for (LONG x = 0; x < w; ++x)
                if ((At(x, y) & 0xFFFFFF) != background)
                    box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                           std::max(box.bottom, y + 1)};
        return box;
    }
};

struct Font {
    HFONT handle;
    explicit Font(int height) : handle(CreateInterfaceFont(height)) {}
    ~Font() { DeleteObject(handle); }
};

}  // namespace

TEST(Gdi, SelectionIsExclusiveAndRestored) {
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    {
        Canvas canvas(8, 8);
        ASSERT_NE(canvas.previous, nullptr);
        const HDC other = CreateCompatibleDC(nullptr);
        EXPECT_EQ(SelectObject(other, canvas.section), nullptr) << "it is in another context already";
        EXPECT_EQ(SelectObject(canvas.dc, canvas.previous), canvas.section);
        const HGDIOBJ theirs = SelectObject(other, canvas.section);
        EXPECT_NE(theirs, nullptr);
        EXPECT_TRUE(DeleteDC(other)) << "gives the section back";
        EXPECT_NE(SelectObject(canvas.dc, canvas.section), nullptr);
        DeleteObject(canvas.section);  // refused or put off, but not done
        canvas.Fill(0);
        EXPECT_TRUE(BitBlt(canvas.dc, 0, 0, 4, 4, canvas.dc, 4, 4, SRCCOPY));
    }
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before);
}

TEST(Gdi, BadHandlesAndRecordsFail) {
    const HDC dead = CreateCompatibleDC(nullptr);
    ASSERT_TRUE(DeleteDC(dead));
    const Font font(-12);
    RECT rect{0, 0, 10, 10};
    TEXTMETRICA metrics;
    const WCHAR text[] = {'a', 0};
    for (const HDC dc : {HDC{nullptr}, dead}) {
        EXPECT_FALSE(DeleteDC(dc));
        EXPECT_EQ(SelectObject(dc, font.handle), nullptr);
        EXPECT_FALSE(GetTextMetricsA(dc, &metrics));
        EXPECT_EQ(SetTextColor(dc, 0), CLR_INVALID);
        EXPECT_EQ(SetBkColor(dc, 0), CLR_INVALID);
        EXPECT_EQ(SetBkMode(dc, TRANSPARENT), 0);
        EXPECT_EQ(IntersectClipRect(dc, 0, 0, 1, 1), ERROR);
        EXPECT_EQ(DrawTextW(dc, text, 1, &rect, DT_SINGLELINE), 0);
        EXPECT_FALSE(BitBlt(dc, 0, 0, 1, 1, dc, 0, 0, SRCCOPY));
    }
    EXPECT_FALSE(DeleteObject(nullptr));
    EXPECT_EQ(CreateFontIndirectA(nullptr), nullptr);

    Canvas canvas(4, 4);
    EXPECT_EQ(SelectObject(canvas.dc, nullptr), nullptr);
    for (const auto& [w, h] : {std::pair{0, 4}, {-4, 4}, {4, 0}, {0x7FFFFFF0, 0x7FFFFFF0}}) {
        BITMAPINFO info{};
        info.bmiHeader = {40, w, h, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = &info;
        EXPECT_EQ(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0), nullptr) << w << " x " << h;
    }
}

TEST(Gdi, CopiesAreCutAndMayOverlap) {
    std::mt19937 random(20240917);
    const auto between = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    for (int round = 0; round < 400; ++round) {
        Canvas to(13, 9, between(0, 1));
        Canvas other(11, 12, between(0, 1));
        const bool same = between(0, 3) == 0;
        Canvas& from = same ? to : other;
        for (Canvas* c : {&to, &other})
            for (int i = 0; i < c->w * c->h; ++i) c->bits[i] = random();
        const int x = between(-5, 13), y = between(-5, 10), w = between(0, 16), h = between(0, 14);
        const int fromX = between(-4, 12), fromY = between(-4, 12);
        const bool clipped = between(0, 1);
        const RECT clip =
            clipped ? RECT{between(-3, 4), between(-3, 4), between(5, 16), between(5, 12)} : RECT{0, 0, to.w, to.h};
        if (clipped) IntersectClipRect(to.dc, clip.left, clip.top, clip.right, clip.bottom);

        std::vector<uint32_t> wanted;
        for (int row = 0; row < to.h; ++row)
            for (int column = 0; column < to.w; ++column) {
                const int sx = column - x + fromX, sy = row - y + fromY;
                const bool hit = column >= std::max<int>(x, clip.left) && column < std::min<int>(x + w, clip.right) &&
                                 row >= std::max<int>(y, clip.top) && row < std::min<int>(y + h, clip.bottom) &&
                                 sx >= 0 && sx < from.w && sy >= 0 && sy < from.h;
                wanted.push_back(hit ? from.At(sx, sy) : to.At(column, row));
            }
        EXPECT_TRUE(BitBlt(to.dc, x, y, w, h, from.dc, fromX, fromY, SRCCOPY));
        GdiFlush();
        for (int i = 0; i < to.w * to.h; ++i) ASSERT_EQ(to.At(i % to.w, i / to.w), wanted[i]) << "round " << round;
    }
}

TEST(Gdi, ClipRegionsAreCopiesThatShrink) {
    Canvas canvas(20, 20);
    const HRGN region = CreateRectRgn(9, 8, 1, 2);  // corners in any order
    EXPECT_EQ(GetClipRgn(canvas.dc, region), 0);
    EXPECT_EQ(SelectClipRgn(canvas.dc, region), SIMPLEREGION);
    EXPECT_EQ(IntersectClipRect(canvas.dc, 3, 3, 12, 12), SIMPLEREGION);
    EXPECT_EQ(GetClipRgn(canvas.dc, region), 1);
    EXPECT_EQ(GetClipRgn(canvas.dc, nullptr), -1);
    EXPECT_EQ(IntersectClipRect(canvas.dc, 9, 0, 12, 30), NULLREGION);
    EXPECT_EQ(SelectClipRgn(canvas.dc, region), SIMPLEREGION) << "3 3 9 8, as asked above";
    EXPECT_TRUE(DeleteObject(region)) << "the context keeps a copy";
    Canvas white(20, 20);
    white.Fill(0xFFFFFF);
    BitBlt(canvas.dc, 0, 0, 20, 20, white.dc, 0, 0, SRCCOPY);
    GdiFlush();
    EXPECT_EQ(std::count(canvas.bits, canvas.bits + 400, 0xFFFFFFu), 6 * 5);
    EXPECT_TRUE(canvas.At(3, 3) && canvas.At(8, 7));
    EXPECT_EQ(SelectClipRgn(canvas.dc, nullptr), SIMPLEREGION);
}

TEST(Gdi, HeightsOfFonts) {
    Canvas canvas(4, 4);
    for (const int height : {-9, -12, -16, -40, -200, 12, 17, 40}) {
        const Font font(height);
        const HGDIOBJ previous = SelectObject(canvas.dc, font.handle);
        TEXTMETRICA m;
        ASSERT_TRUE(GetTextMetricsA(canvas.dc, &m));
        EXPECT_EQ(m.tmAscent + m.tmDescent, m.tmHeight);
        EXPECT_NEAR(height < 0 ? m.tmHeight - m.tmInternalLeading : m.tmHeight, std::abs(height), 1)
            << "negative is the em, positive the cell";
        EXPECT_EQ(SelectObject(canvas.dc, previous), font.handle);
    }
}

bool Within(const RECT& outer, const RECT& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

class GdiText : public testing::Test {
  protected:
    GdiText() {
        SetTextColor(canvas.dc, RGB(255, 255, 255));
        SetBkMode(canvas.dc, TRANSPARENT);
        previous = SelectObject(canvas.dc, font.handle);
        GetTextMetricsA(canvas.dc, &metrics);
    }
    ~GdiText() override { SelectObject(canvas.dc, previous); }

    RECT Measure(const char* text, UINT format = 0, int width = 0) {
        RECT r{0, 0, width, 0};
        EXPECT_EQ(DrawTextA(canvas.dc, text, -1, &r, format | DT_CALCRECT | DT_NOPREFIX), r.bottom);
        return r;
    }
    RECT Draw(const char* text, RECT r, UINT format) {
        canvas.Fill(0);
        DrawTextA(canvas.dc, text, -1, &r, format | DT_NOPREFIX);
        return canvas.Ink(0);
    }

    Canvas canvas{200, 120};
    Font font{-20};
    TEXTMETRICA metrics;
    HGDIOBJ previous;
};

TEST_F(GdiText, MeasuresLinesOfTheFontsHeight) {
    const LONG line = metrics.tmHeight;
    const LONG h = Measure("H").right;
    EXPECT_EQ(Measure("H").bottom, line);
    EXPECT_NEAR(Measure("HHHHH", DT_SINGLELINE).right, 5 * h, 1);
    EXPECT_EQ(Measure("H\nHH\r\nH").bottom, 3 * line);
    EXPECT_EQ(Measure("H\nHH\r\nH").right, Measure("HH").right);
    EXPECT_EQ(Measure("H\nH", DT_SINGLELINE).bottom, line);
    EXPECT_EQ(Measure("HHH HHH", DT_WORDBREAK, 5 * h).bottom, 2 * line);
    EXPECT_EQ(Measure("HHHHHHH", DT_WORDBREAK, 3 * h).right, Measure("HHHHHHH").right) << "a word stays whole";
    EXPECT_EQ(Measure("", DT_SINGLELINE).right, 0);
    EXPECT_GT(Measure("a&b").right, Measure("ab").right);

    const WCHAR accented[] = {'e', 0x301, 0};
    RECT both{}, mark{};
    DrawTextW(canvas.dc, accented, -1, &both, DT_CALCRECT | DT_NOPREFIX | DT_SINGLELINE);
    DrawTextW(canvas.dc, accented + 1, -1, &mark, DT_CALCRECT | DT_NOPREFIX | DT_SINGLELINE);
    EXPECT_GE(both.right, Measure("e").right);
    EXPECT_LE(both.right, Measure("e").right + mark.right) << "a mark takes no more room than on its own";
}

TEST_F(GdiText, AlignsWithinTheRectangle) {
    const RECT box{30, 20, 170, 100};
    const RECT measured = Measure("Hoje");
    const RECT plain = Draw("Hoje", box, DT_SINGLELINE);
    EXPECT_TRUE(Within({28, 20, 170, 20 + metrics.tmHeight}, plain));
    const LONG spareX = 140 - measured.right, spareY = 80 - measured.bottom;
    for (const UINT format :
         {DT_CENTER, DT_RIGHT, DT_VCENTER, DT_BOTTOM, DT_RIGHT | DT_BOTTOM, DT_CENTER | DT_VCENTER}) {
        const LONG dx = format & DT_CENTER ? spareX / 2 : format & DT_RIGHT ? spareX : 0;
        const LONG dy = format & DT_VCENTER ? spareY / 2 : format & DT_BOTTOM ? spareY : 0;
        const RECT ink = Draw("Hoje", box, format | DT_SINGLELINE);
        EXPECT_NEAR(ink.left - plain.left, dx, 1) << format;
        EXPECT_NEAR(ink.top - plain.top, dy, 1) << format;
        EXPECT_EQ(ink.right - ink.left, plain.right - plain.left);
        EXPECT_EQ(ink.bottom - ink.top, plain.bottom - plain.top);
    }
    EXPECT_EQ(Show(Draw("Hoje", box, DT_VCENTER)), Show(plain)) << "without a single line there is none";
}

TEST_F(GdiText, StaysInTheRectangleTheRegionAndTheSurface) {
    const RECT narrow{50, 40, 60, 48};
    EXPECT_TRUE(Within(narrow, Draw("HHHHHH", narrow, DT_SINGLELINE)));
    EXPECT_GT(Draw("HHHHHH", narrow, DT_SINGLELINE | DT_NOCLIP).right, 80);
    IntersectClipRect(canvas.dc, 52, 0, 58, 200);
    EXPECT_TRUE(Within({52, 0, 58, 200}, Draw("HHHHHH", narrow, DT_SINGLELINE | DT_NOCLIP)));
    SelectClipRgn(canvas.dc, nullptr);
    for (const RECT outside : {RECT{-30, -12, 20, 8}, RECT{190, 110, 400, 300}, RECT{-100000, 0, 100000, 20}})
        Draw("HHHHHHHH", outside, DT_SINGLELINE | DT_CENTER | DT_NOCLIP);
}

TEST_F(GdiText, ColoursTheCoveredPixelsOnly) {
    SetTextColor(canvas.dc, RGB(255, 0, 0));
    SetBkColor(canvas.dc, RGB(0, 0, 255));
    const RECT at{10, 10, 190, 60};
    Draw("Il", at, DT_SINGLELINE);
    int strongest = 0;
    for (int i = 0; i < canvas.w * canvas.h; ++i) {
        ASSERT_EQ(canvas.bits[i] & 0x00FFFF, 0u) << "nothing but red";
        strongest = std::max<int>(strongest, canvas.bits[i] >> 16 & 0xFF);
    }
    EXPECT_GT(strongest, 200);

    EXPECT_EQ(SetBkMode(canvas.dc, OPAQUE), TRANSPARENT);
    const RECT measured = Measure("Il");
    const RECT ink = Draw("Il", at, DT_SINGLELINE);
    EXPECT_EQ(Show(ink), Show({10, 10, 10 + measured.right, 10 + measured.bottom})) << "the background is the cell";
    EXPECT_EQ(canvas.At(10 + measured.right - 1, 10) & 0xFFFFFF, 0x0000FFu);
    EXPECT_EQ(SetTextColor(canvas.dc, 0), RGB(255, 0, 0));
    EXPECT_EQ(SetBkColor(canvas.dc, 0), RGB(0, 0, 255));
}

TEST(Gdi, BytesBecomeWideCharacters) {
    const struct {
        const char* bytes;
        std::vector<unsigned> strict;  // empty: refused
    } rows[] = {
        {"a\xC3\xA3o", {'a', 0xE3, 'o'}},
        {"\xE2\x82\xAC", {0x20AC}},
        {"\xF0\x9F\x8E\xB5", {0xD83C, 0xDFB5}},
        {"\xC0\x80", {}},          // overlong
        {"\xED\xA0\x80", {}},      // a surrogate
        {"\xF4\x90\x80\x80", {}},  // beyond the last character
        {"a\xC3", {}},             // cut short
        {"\x80", {}},
    };
    for (const auto& row : rows) {
        WCHAR wide[16] = {};
        const int count = static_cast<int>(std::strlen(row.bytes));
        const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, row.bytes, count, wide, 16);
        EXPECT_EQ(std::vector<unsigned>(wide, wide + length), row.strict) << row.bytes;
        EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, row.bytes, -1, nullptr, 0),
                  length ? length + 1 : 0);
        EXPECT_GT(MultiByteToWideChar(CP_UTF8, 0, row.bytes, count, wide, 16), 0) << "replaced when not strict";
    }
    WCHAR two[2];
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 3, two, 2), 0) << "no room";
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 0, two, 2), 0);
}
