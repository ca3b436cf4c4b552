#include "lice/glyph.h"

#include "tests/lice/brush.h"

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

static void DrawSlowly(TestSurface& surface, const Brush& brush, int x, int y, const Mask& mask) {
    const bool scales = brush.Scales(surface);
    const int W = scales ? surface.getWidth() : surface.BackingWidth();
    const int H = scales ? surface.getHeight() : surface.BackingHeight();
    const int left = std::max(x, 0), top = std::max(y, 0);
    // How many pixels the first `cells` of the mask take.
    const auto stretched = [&](int cells) { return brush.Scaled(cells, surface); };
    for (int my = top - y; my < mask.height && y + my < H; ++my) {
        for (int mx = left - x; mx < mask.width && x + mx < W; ++mx) {
            if (mask.At(mx, my) == 0) continue;
            for (int64_t line = stretched(y + my - top); line < stretched(y + my - top + 1); ++line) {
                const int64_t row = stretched(top) + line;
                for (int64_t column = stretched(x + mx - left); column < stretched(x + mx - left + 1); ++column)
                    brush.Blend(surface, stretched(left) + column,
                                surface.isFlipped() ? surface.BackingHeight() - 1 - row : row,
                                mask.At(mx, my) * brush.Ia() / 256, CopyForms::General);
            }
        }
    }
}

TEST(Glyph, AgreesWithAPixelByPixelReference) {
    CompareRounds(10000, [](Random& random, const Brush& brush, TestSurface& drawn, TestSurface& expected) {
        const Mask mask = Mask::Any(random);
        const int x = random.In(-20, 30), y = random.In(-12, 30);
        LICE_DrawGlyph(&drawn, x, y, brush.color, mask.bytes.data(), mask.width, mask.span, mask.height, brush.alpha,
                       brush.mode);
        DrawSlowly(expected, brush, x, y, mask);
        return Called(x, y, "mask", mask.width, "by", mask.height, "span", mask.span);
    });
}
