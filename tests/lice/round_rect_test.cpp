#include "lice/round_rect.h"

#include "lice/circle.h"
#include "lice/line.h"
#include "tests/lice/brush.h"

// Where lines and arcs meet, pixels are blended twice. Without room for a corner it is a rectangle.
TEST(RoundRect, IsFourSidesAndFourQuadrants) {
    CompareRounds(5000, [](Random& random, const Brush& b, TestSurface& drawn, TestSurface& expected) {
        const float x = random.In(-20.0f, 30.0f), y = random.In(-20.0f, 30.0f);
        const float w = random.In(-1.0f, 40.0f), h = random.In(-1.0f, 40.0f);
        const int radius = random.Of({-5, 1, 2, 3, 4, 5, 9, 100});
        const bool aa = random.Chance(2);
        LICE_RoundRect(&drawn, x, y, w, h, radius, b.color, b.alpha, b.mode, aa);

        const double o = b.Scales(expected) ? 1.0 - 256.0 / expected.Scale() : 0.0;
        const auto whole = [](float value) { return std::floor(value + 0.5); };
        const double left = whole(x), top = whole(y), right = left + whole(w), bottom = top + whole(h);
        const double r = std::floor(std::min({radius * 1.0, whole(w) / 2, whole(h) / 2}));
        const auto side = [&](double x1, double y1, double x2, double y2) {
            b.Scales(expected) ? LICE_FLine(&expected, x1, y1, x2, y2, b.color, b.alpha, b.mode, aa)
                               : LICE_Line(&expected, x1, y1, x2, y2, b.color, b.alpha, b.mode, aa);
        };
        const auto quadrant = [&](double cx, double cy, float low, float high) {
            LICE_Arc(&expected, cx, cy, r, low, high, b.color, b.alpha, b.mode, aa);
        };
        if (r < 2) {
            LICE_DrawRect(&expected, left, top, right - left, bottom - top, b.color, b.alpha, b.mode);
        } else {
            side(left + r + o, top + o, right - r - o, top + o);
            side(left + r - 1 + o, bottom - o, right - r - o, bottom - o);
            side(right - o, top + r + o, right - o, bottom - r - o);
            side(left + o, top + r - 1 + o, left + o, bottom - r - o);
            quadrant(left + r + o, top + r + o, -1.5707964f, 0);
            quadrant(right - r - o, top + r + o, 0, 1.5707964f);
            quadrant(right - r - o, bottom - r - o, 1.5707964f, 3.1415927f);
            quadrant(left + r + o, bottom - r - o, 3.1415927f, 4.712389f);
        }
        return Called(x, y, w, h, "radius", radius, "aa", aa);
    });
}
