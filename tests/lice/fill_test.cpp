#include "lice/fill.h"

#include <climits>

#include "tests/lice/brush.h"

namespace {

// Every pixel asks for itself whether the rectangle has it.
void FillSlowly(TestSurface& surface, Brush brush, int64_t x, int64_t y, int64_t w, int64_t h) {
    x = brush.Scaled(x, surface);
    y = brush.Scaled(y, surface);
    for (int64_t* side : {&w, &h})
        if (brush.Scales(surface)) *side = *side * surface.Scale() >> 8;
    if (brush.mode & LICE_BLIT_USE_ALPHA) brush.alpha = static_cast<float>(brush.alpha * ((brush.color >> 24) / 255.0));
    const int rows = surface.BackingHeight();
    for (int row = 0; row < rows; ++row) {
        const int line = surface.isFlipped() ? rows - 1 - row : row;
        for (int column = 0; column < surface.BackingWidth(); ++column)
            if (column >= x && column < x + w && line >= y && line < y + h)
                brush.Blend(surface, column, row, brush.Ia(), CopyForms::Fast);
    }
}

}  // namespace

TEST(FillRect, AgreesWithAPixelByPixelReference) {
    Random random;
    const int far[] = {INT_MIN, INT_MIN + 1, -9, 0, 3, INT_MAX - 1, INT_MAX};  // sums that no int holds cover, too
    for (int i = 0; i < 8000; ++i) {
        TestSurface drawn = TestSurface::Any(random, random.Of({5, 20, 90}), true, random.Of({0, 40}));
        TestSurface expected = drawn;
        Brush brush = Brush::Any(random);
        if (random.Chance(3)) brush.mode |= LICE_BLIT_USE_ALPHA;
        const bool absurd = random.Chance(8) && !brush.Scales(drawn);
        const auto any = [&](int low, int high) { return absurd ? random.Of(far) : random.In(low, high); };
        const int x = any(-20, 60), y = any(-20, 60), w = any(-2, 80), h = any(-2, 80);
        LICE_FillRect(&drawn, x, y, w, h, brush.color, brush.alpha, brush.mode);
        FillSlowly(expected, brush, x, y, w, h);
        ASSERT_TRUE(drawn.memory == expected.memory) << Told(brush, drawn, x, y, w, h);
    }
}

TEST(Clear, StoresTheColourInEveryPixelAndNoOther) {
    Random random;
    for (int i = 0; i < 300; ++i) {
        TestSurface drawn = TestSurface::Any(random, 90, true, 40), expected = drawn;
        for (int y = 0; y < drawn.BackingHeight(); ++y)
            for (int x = 0; x < drawn.BackingWidth(); ++x) expected.At(x, y) = 0x12345678;
        LICE_Clear(&drawn, 0x12345678);
        ASSERT_TRUE(drawn.memory == expected.memory);
    }
}
