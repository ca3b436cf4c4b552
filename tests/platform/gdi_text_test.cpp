// Fonts and text as the module leans on them, for the headless stand-in and for the system's own GDI.

#include <cstdlib>

#include "tests/platform/canvas.h"

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

static bool Within(const RECT& outer, const RECT& inner) {
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
