#include "lice/fill.h"

#include <climits>

#include "tests/lice/brush.h"

// Every pixel asks for itself whether the rectangle has it.
static void FillSlowly(TestSurface& surface, Brush brush, int64_t x, int64_t y, int64_t w, int64_t h) {
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

TEST(FillRect, AgreesWithAPixelByPixelReference) {
    // Sums that no int holds cover the surface, too.
    static constexpr int far[] = {INT_MIN, INT_MIN + 1, -9, 0, 3, INT_MAX - 1, INT_MAX};
    CompareRounds(12000, [](Random& random, Brush brush, TestSurface& drawn, TestSurface& expected) {
        if (random.Chance(3)) brush.mode |= LICE_BLIT_USE_ALPHA;
        const bool absurd = random.Chance(8) && !brush.Scales(drawn);
        const auto any = [&](int low, int high) { return absurd ? random.Of(far) : random.In(low, high); };
        const int x = any(-20, 60), y = any(-20, 60), w = any(-2, 80), h = any(-2, 80);
        LICE_FillRect(&drawn, x, y, w, h, brush.color, brush.alpha, brush.mode);
        FillSlowly(expected, brush, x, y, w, h);
        return Called(x, y, w, h, "with mode", brush.mode);
    });
}

TEST(Clear, StoresTheColourInEveryPixelAndNoOther) {
    CompareRounds(300, [](Random&, const Brush& brush, TestSurface& drawn, TestSurface& expected) {
        for (int y = 0; y < drawn.BackingHeight(); ++y)
            for (int x = 0; x < drawn.BackingWidth(); ++x) expected.At(x, y) = brush.color;
        LICE_Clear(&drawn, brush.color);
        return Called();
    });
}
