// Lines by the place of their n-th pixel, where the library walks with running sums.
#include "lice/line.h"

#include "tests/lice/brush.h"

// Moves the ends of a line onto the surface. `out` is the first place beyond, `moved` where a point beyond goes.
template <class Number>
static bool Clip(Number& x1, Number& y1, Number& x2, Number& y2, const Number (&out)[2], const Number (&moved)[2]) {
    using Real = std::conditional_t<std::is_integral_v<Number>, double, float>;
    const auto code = [&](Number x, Number y) { return (x < 0) + 2 * (x >= out[0]) + 4 * (y < 0) + 8 * (y >= out[1]); };
    for (int pass = 0; pass < 33; ++pass) {
        const int a = code(x1, y1), b = code(x2, y2);
        if (a == 0 && b == 0) return true;
        if (a & b) return false;
        const int c = a ? a : b;
        const bool vertical = c >= 4;
        const Number to = c >= 8 ? moved[1] : c >= 4 ? 0 : c >= 2 ? moved[0] : 0;
        const Real x = static_cast<Real>(x1), y = static_cast<Real>(y1), t = static_cast<Real>(to);
        const Real dx = static_cast<Real>(x2 - x1), dy = static_cast<Real>(y2 - y1);
        const Number other =
            vertical ? x1 + static_cast<Number>(dx * (t - y) / dy) : y1 + static_cast<Number>(dy * (t - x) / dx);
        (a ? x1 : x2) = vertical ? other : to;
        (a ? y1 : y2) = vertical ? to : other;
    }
    return false;
}

// The line between two neighbours has come `moved` of the way to the second, in 1/65536.
static void BlendPair(TestSurface& surface, const Brush& brush, bool tall, int64_t major, int64_t minor, int64_t side,
                      int64_t moved) {
    const int h = static_cast<int>(moved) >> 8, ia = brush.Ia();
    for (const auto& [at, part] : {std::pair(minor, 255 - h), std::pair(minor + side, h)})
        brush.Blend(surface, tall ? at : major, tall ? major : at, ia == 256 ? part : ia * part >> 8,
                    CopyForms::General);
}

// Level, upright or diagonal: every pixel is met.
static void StraightSlowly(TestSurface& surface, const Brush& brush, const int64_t (&ends)[4], bool aa) {
    const auto& [x1, y1, x2, y2] = ends;
    const int64_t across = std::abs(x2 - x1), down = std::abs(y2 - y1);
    const int ia = brush.Ia();
    const int64_t n = std::max(across, down), xStep = (x2 > x1) - (x2 < x1), yStep = (y2 > y1) - (y2 < y1);
    const bool soft = aa && across == down && n > 0, level = across != down || n == 0;
    const bool whole = soft && brush.mode % 256 == 0 && brush.alpha == 1.0f;
    const Brush core{brush.color, whole ? 0.75f : brush.alpha, brush.mode};
    const Brush fringe{brush.color, whole ? 0.25f : brush.alpha, brush.mode};
    const CopyForms forms = whole || (level && std::fmod(brush.alpha, 0.25f) == 0) ? CopyForms::Fast
                            : soft                                                 ? CopyForms::General
                                                                                   : CopyForms::SolidHalf;
    for (int64_t i = 0; i <= n; ++i) {
        const int64_t x = x1 + i * xStep, y = y1 + i * yStep;
        core.Blend(surface, x, y, soft ? ia * 3 / 4 : ia, forms);
        if (!soft || i == n) continue;
        fringe.Blend(surface, x + xStep, y, ia / 4, forms);
        fringe.Blend(surface, x, y + yStep, ia / 4, forms);
    }
}

static void DrawSlowly(TestSurface& surface, const Brush& brush, const int (&ends)[4], bool aa) {
    int64_t p[4];
    for (int i = 0; i < 4; ++i) {
        p[i] = brush.Scaled(ends[i], surface);
        if (i % 2 && surface.isFlipped()) p[i] = surface.BackingHeight() - 1 - p[i];
    }
    auto& [x1, y1, x2, y2] = p;
    const int64_t W = surface.BackingWidth(), H = surface.BackingHeight();
    if (!Clip(x1, y1, x2, y2, {W, H}, {W - 1, H - 1})) return;

    const int64_t across = std::abs(x2 - x1), down = std::abs(y2 - y1);
    if (across == 0 || down == 0 || across == down) return StraightSlowly(surface, brush, p, aa);

    const bool tall = across < down;
    if (tall) std::swap(x1, y1), std::swap(x2, y2);  // from here on x is the longer axis
    if (x2 < x1) std::swap(x1, x2), std::swap(y1, y2);
    const int64_t n = x2 - x1, side = y2 < y1 ? -1 : 1;
    const int64_t step =
        static_cast<int64_t>(65536.0 * static_cast<double>(std::abs(y2 - y1)) / static_cast<double>(n));
    for (int64_t i = 0; 2 * i <= n; ++i) {
        const bool soft = aa && i > 0;  // the ends are whole
        const int64_t moved = side * ((i * step + (aa ? 0 : 0x8000)) >> 16);
        for (const int sign : {1, -1}) {
            const int64_t major = sign > 0 ? x1 + i : x2 - i, minor = sign > 0 ? y1 + moved : y2 - moved;
            if (sign < 0 && 2 * i == n) continue;
            if (soft)
                BlendPair(surface, brush, tall, major, minor, sign * side, i * step & 0xFFFF);
            else
                brush.Blend(surface, tall ? minor : major, tall ? major : minor, brush.Ia(),
                            aa ? CopyForms::General : CopyForms::SolidHalf);
        }
    }
}

static void DrawSlowly(TestSurface& surface, const Brush& brush, const float (&ends)[4]) {
    float p[4];
    for (int i = 0; i < 4; ++i) {
        p[i] = i % 2 && surface.isFlipped() ? static_cast<float>(surface.getHeight() - 1) - ends[i] : ends[i];
        if (brush.Scales(surface)) p[i] = static_cast<float>(double{p[i]} * surface.Scale() / 256.0);
    }
    auto& [x1, y1, x2, y2] = p;
    const float W = static_cast<float>(surface.BackingWidth()), H = static_cast<float>(surface.BackingHeight());
    if (!Clip(x1, y1, x2, y2, {W - 1, H - 1}, {W - 2, H - 2}) || (x1 == x2 && y1 == y2)) return;
    const bool tall = std::abs(x2 - x1) <= std::abs(y2 - y1);
    if (tall) std::swap(x1, y1), std::swap(x2, y2);
    if (x2 < x1) std::swap(x1, x2), std::swap(y1, y2);
    const int side = y2 < y1 ? -1 : 1;
    const float slope = (y2 - y1) / (x2 - x1), m = (std::ceil(x1) - x1) * slope + y1;
    int64_t moved = static_cast<int64_t>(65536.0f * (m - std::floor(m)));
    if (side < 0) moved = 65535 - moved;
    const int64_t step = static_cast<int64_t>(65536.0f * std::abs(slope));
    const int64_t first = static_cast<int64_t>(std::ceil(x1)), last = static_cast<int64_t>(std::floor(x2));
    for (int64_t x = first; x <= last; ++x, moved += step) {
        // Rounding may start it at -1, which is no step back.
        const int64_t steps = std::max<int64_t>(moved >> 16, 0);
        const int64_t minor = static_cast<int64_t>(m) + (side < 0) + side * steps;
        BlendPair(surface, brush, tall, x, minor, side, moved - 0x10000 * steps);
    }
}

// Ends near the surface or far off, with many diagonals and level lines.
template <class Number>
static void AnyEnds(Random& random, Number (&p)[4]) {
    const Number far = random.Of({Number{10}, Number{30}, Number{30}, Number{3000}});
    for (Number& v : p) v = random.In(-far, far + 15);
    const int kind = random.In(0, 7);
    if (kind == 0) p[3] = p[1];
    if (kind == 1) p[2] = p[0];
    if (kind == 2) p[3] = p[1] + (p[2] - p[0]) * random.Of({-1, 1});
}

TEST(Line, AgreesWithTheClosedFormOfItsPixels) {
    CompareRounds(25000, [](Random& random, const Brush& brush, TestSurface& drawn, TestSurface& expected) {
        int p[4];
        AnyEnds(random, p);
        const bool aa = random.Chance(2);
        LICE_Line(&drawn, p[0], p[1], p[2], p[3], brush.color, brush.alpha, brush.mode, aa);
        DrawSlowly(expected, brush, p, aa);
        return Called(p[0], p[1], p[2], p[3], "aa", aa);
    });
}

TEST(FLine, AgreesWithTheClosedFormOfItsPixels) {
    CompareRounds(25000, [](Random& random, const Brush& brush, TestSurface& drawn, TestSurface& expected) {
        float p[4];
        AnyEnds(random, p);
        if (random.Chance(3))
            for (float& v : p) v = std::floor(v * 2) / 2;
        if (random.Chance(8)) {  // less than a pixel from a corner, past which rounding may carry the line
            p[2] = std::floor(p[2]), p[3] = 0;
            p[0] = p[2] - random.In(0.0f, 1.0f), p[1] = random.In(0.0f, 1.0f);
        }
        LICE_FLine(&drawn, p[0], p[1], p[2], p[3], brush.color, brush.alpha, brush.mode, true);
        DrawSlowly(expected, brush, p);
        return Called(p[0], p[1], p[2], p[3]);
    });
}

TEST(DrawRect, IsFourLinesInOrder) {
    CompareRounds(5000, [](Random& random, const Brush& brush, TestSurface& drawn, TestSurface& expected) {
        const int x = random.In(-9, 30), y = random.In(-9, 30), w = random.In(-3, 30), h = random.In(-3, 30);
        LICE_DrawRect(&drawn, x, y, w, h, brush.color, brush.alpha, brush.mode);
        const int corners[5][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}};
        const double o = brush.Scales(drawn) ? 1.0 - 256.0 / drawn.Scale() : 0;
        for (int side = 0; side < 4; ++side) {
            int whole[4];
            float inset[4];
            for (int k = 0; k < 4; ++k) {
                const int far = corners[side + k / 2][k % 2];
                whole[k] = k % 2 ? y + far * h : x + far * w;
                inset[k] = static_cast<float>(whole[k] + (far ? -o : o));
            }
            brush.Scales(drawn) ? DrawSlowly(expected, brush, inset) : DrawSlowly(expected, brush, whole, false);
        }
        return Called(x, y, w, h);
    });
}
