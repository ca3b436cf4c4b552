#include "lice/fill.h"

#include <climits>
#include <cmath>

#include "tests/lice/brush.h"

namespace {

using FastBrush = Brush<CopyForms::Fast>;

// Every pixel asks for itself whether the rectangle has it.
void FillSlowly(TestSurface& surface, FastBrush brush, int64_t x, int64_t y, int64_t w, int64_t h) {
    if (brush.Scales(surface)) {
        x = reference::ScaleCoord(x, surface.Scale());
        y = reference::ScaleCoord(y, surface.Scale());
        w = w * surface.Scale() >> 8;
        h = h * surface.Scale() >> 8;
    }
    if (brush.mode & LICE_BLIT_USE_ALPHA) brush.alpha = static_cast<float>(brush.alpha * ((brush.color >> 24) / 255.0));
    const int rows = surface.BackingHeight();
    for (int row = 0; row < rows; ++row) {
        const int line = surface.isFlipped() ? rows - 1 - row : row;
        for (int column = 0; column < surface.BackingWidth(); ++column)
            if (column >= x && column < x + w && line >= y && line < y + h)
                brush.Blend(surface, column, row, brush.Ia());
    }
}

}  // namespace

TEST(FillRect, AgreesWithAPixelByPixelReference) {
    Random random;
    for (int i = 0; i < 8000; ++i) {
        TestSurface drawn = TestSurface::Any(random, random.Of({5, 20, 90}), true, random.Of({0, 40}));
        TestSurface expected = drawn;
        FastBrush brush = FastBrush::Any(random);
        if (random.Chance(3)) brush.mode |= LICE_BLIT_USE_ALPHA;
        const int x = random.In(-20, 60), y = random.In(-20, 60), w = random.In(-2, 80), h = random.In(-2, 80);
        LICE_FillRect(&drawn, x, y, w, h, brush.color, brush.alpha, brush.mode);
        FillSlowly(expected, brush, x, y, w, h);
        ASSERT_EQ(drawn.memory, expected.memory) << x << ' ' << y << ' ' << w << ' ' << h << " mode " << brush.mode
                                                 << " alpha " << brush.alpha << " scale " << drawn.Scale();
    }
}

TEST(Clear, StoresTheColourInEveryPixelAndNoOther) {
    Random random;
    for (int i = 0; i < 300; ++i) {
        TestSurface surface = TestSurface::Any(random, 90, true, 40);
        const TestSurface before = surface;
        LICE_Clear(&surface, 0x12345678);
        for (int y = 0; y < surface.BackingHeight(); ++y)
            for (int x = 0; x < surface.BackingWidth(); ++x) ASSERT_EQ(surface.At(x, y), 0x12345678u);
        ASSERT_TRUE(surface.KeptOutside(before));
    }
    LICE_Clear(nullptr, 0);
}

// A rectangle whose far sides no int holds still covers the surface; everything else about absurd ones is to do no
// harm.
TEST(FillRect, AbsurdArgumentsStayInside) {
    Random random;
    TestSurface whole({5, 4}, random);
    LICE_FillRect(&whole, -1, INT_MIN + 1, INT_MAX, INT_MAX, 0x01020304, 1.0f, 0);  // ends above the first row
    LICE_FillRect(&whole, INT_MIN, INT_MIN, INT_MIN, INT_MIN + 9, 0x01020304, 1.0f, 0);
    for (const LICE_pixel pixel : whole.memory) EXPECT_NE(pixel, 0x01020304u);
    LICE_FillRect(&whole, -9, 0, INT_MAX, INT_MAX, 0x01020304, 1.0f, 0);
    for (const LICE_pixel pixel : whole.memory) EXPECT_EQ(pixel, 0x01020304u);
    LICE_FillRect(nullptr, 0, 0, 1, 1, 0, 1.0f, 0);

    const int ints[] = {INT_MIN, INT_MIN + 1, -70000, -1, 0, 3, 70000, INT_MAX - 1, INT_MAX};
    for (int i = 0; i < 8000; ++i) {
        TestSurface surface = TestSurface::Any(random, 9, true, 30);
        const TestSurface before = surface;
        const float alpha = random.Of({0.3f, 1.0f, 1e30f, -1e30f, INFINITY, NAN});
        LICE_FillRect(&surface, random.Of(ints), random.Of(ints), random.Of(ints), random.Of(ints), random.Pixel(),
                      alpha, random.In(0, 0x3FFFF));
        ASSERT_TRUE(surface.KeptOutside(before));
    }
}
