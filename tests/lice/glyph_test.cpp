#include "lice/glyph.h"

#include <climits>
#include <cmath>

#include "tests/lice/brush.h"

namespace {

using PlainBrush = Brush<CopyForms::General>;

struct Mask {
    int width, height, span;
    std::vector<unsigned char> bytes;

    static Mask Any(Random& random) {
        Mask mask = {random.In(1, 19), random.In(1, 12), 0, {}};
        mask.span = (mask.width + random.In(0, 2)) * (random.Chance(4) ? -1 : 1);
        mask.bytes.resize(std::abs(mask.span) * (mask.height - 1) + mask.width);
        for (unsigned char& byte : mask.bytes)
            byte = static_cast<unsigned char>(random.Of({0, 0, 255, random.In(0, 255)}));
        return mask;
    }
    int At(int x, int y) const { return bytes[(span < 0 ? height - 1 - y : y) * std::abs(span) + x]; }
};

// How many pixels the first `cells` of a mask that is stretched by the scale take.
int Stretched(int cells, int scale) {
    return static_cast<int>(int64_t{cells} * scale / 256);
}

void DrawSlowly(TestSurface& surface, const PlainBrush& brush, int x, int y, const Mask& mask) {
    const bool scales = brush.Scales(surface);
    const int scale = scales ? surface.Scale() : 256;
    const int W = scales ? surface.getWidth() : surface.BackingWidth();
    const int H = scales ? surface.getHeight() : surface.BackingHeight();
    const int left = std::max(x, 0), top = std::max(y, 0);
    for (int my = top - y; my < mask.height && y + my < H; ++my) {
        for (int mx = left - x; mx < mask.width && x + mx < W; ++mx) {
            if (mask.At(mx, my) == 0) continue;
            for (int line = Stretched(y + my - top, scale); line < Stretched(y + my - top + 1, scale); ++line) {
                for (int column = Stretched(x + mx - left, scale); column < Stretched(x + mx - left + 1, scale);
                     ++column) {
                    const int shown = Stretched(top, scale) + line;
                    brush.Blend(surface, Stretched(left, scale) + column,
                                surface.isFlipped() ? surface.BackingHeight() - 1 - shown : shown,
                                mask.At(mx, my) * brush.Ia() / 256);
                }
            }
        }
    }
}

}  // namespace

TEST(Glyph, AgreesWithAPixelByPixelReference) {
    Random random;
    for (int i = 0; i < 10000; ++i) {
        TestSurface drawn = TestSurface::Any(random, 25, true, random.Of({0, 40}));
        TestSurface expected = drawn;
        const PlainBrush brush = PlainBrush::Any(random);
        const Mask mask = Mask::Any(random);
        const int x = random.In(-20, 30), y = random.In(-12, 30);
        LICE_DrawGlyph(&drawn, x, y, brush.color, mask.bytes.data(), mask.width, mask.span, mask.height, brush.alpha,
                       brush.mode);
        DrawSlowly(expected, brush, x, y, mask);
        ASSERT_EQ(drawn.memory, expected.memory)
            << x << ' ' << y << " mask " << mask.width << " by " << mask.height << " span " << mask.span << " mode "
            << brush.mode << " alpha " << brush.alpha << " scale " << drawn.Scale();
    }
}

TEST(Glyph, AbsurdArgumentsStayInside) {
    Random random;
    const int ints[] = {INT_MIN, INT_MIN + 1, -5, -1, 0, 3, INT_MAX - 1, INT_MAX};
    for (int i = 0; i < 10000; ++i) {
        TestSurface surface = TestSurface::Any(random, 9, true, 30);
        const TestSurface before = surface;
        const Mask mask = Mask::Any(random);
        const float alpha = random.Of({0.3f, 1.0f, 1e30f, -1e30f, INFINITY, NAN});
        LICE_DrawGlyph(&surface, random.Of(ints), random.Of(ints), random.Pixel(), mask.bytes.data(), mask.width,
                       mask.span, random.Of({mask.height, 0, -1, INT_MIN}), alpha, random.In(0, 0x3FFFF));
        LICE_DrawGlyph(&surface, random.In(-9, 9), random.In(-9, 9), random.Pixel(), mask.bytes.data(),
                       random.Of({mask.width, 0, INT_MIN}), mask.span, mask.height, alpha, random.In(0, 0x3FFFF));
        ASSERT_TRUE(surface.KeptOutside(before));
    }
}
