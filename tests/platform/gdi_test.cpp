// Drawing as the module leans on it. The same promises hold for the headless stand-in and for the system's own GDI.

#include <cstring>
#include <utility>

#include "tests/lice/support.h"
#include "tests/platform/canvas.h"

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
    Random random;
    for (int round = 0; round < 400; ++round) {
        Canvas to(13, 9, random.Chance(2));
        Canvas other(11, 12, random.Chance(2));
        const bool same = random.Chance(4);
        Canvas& from = same ? to : other;
        for (Canvas* c : {&to, &other})
            for (int i = 0; i < c->w * c->h; ++i) c->bits[i] = random.Pixel();
        const int x = random.In(-5, 13), y = random.In(-5, 10), w = random.In(0, 16), h = random.In(0, 14);
        const int fromX = random.In(-4, 12), fromY = random.In(-4, 12);
        const bool clipped = random.Chance(2);
        const RECT clip = clipped ? RECT{random.In(-3, 4), random.In(-3, 4), random.In(5, 16), random.In(5, 12)}
                                  : RECT{0, 0, to.w, to.h};
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

TEST(Gdi, BytesBecomeWideCharacters) {
    const std::pair<const char*, std::vector<unsigned>> rows[] = {
        {"a\xC3\xA3o", {'a', 0xE3, 'o'}},
        {"\xE2\x82\xAC", {0x20AC}},
        {"\xF0\x9F\x8E\xB5", {0xD83C, 0xDFB5}},
        {"\xC0\x80", {}},          // overlong
        {"\xED\xA0\x80", {}},      // a surrogate
        {"\xF4\x90\x80\x80", {}},  // beyond the last character
        {"a\xC3", {}},             // cut short
        {"\x80", {}},
    };
    for (const auto& [bytes, strict] : rows) {  // empty: refused
        WCHAR wide[16] = {};
        const int count = static_cast<int>(std::strlen(bytes));
        const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes, count, wide, 16);
        EXPECT_EQ(std::vector<unsigned>(wide, wide + length), strict) << bytes;
        EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes, -1, nullptr, 0), length ? length + 1 : 0);
        EXPECT_GT(MultiByteToWideChar(CP_UTF8, 0, bytes, count, wide, 16), 0) << "replaced when not strict";
    }
    WCHAR two[2];
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 3, two, 2), 0) << "no room";
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 0, two, 2), 0);
}
