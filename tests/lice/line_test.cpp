// Lines by the place of their n-th pixel, where the drawing itself walks with running sums.
#include "lice/line.h"

#include <climits>
#include <cmath>

#include "tests/lice/brush.h"

namespace {

// Moves the ends of a line onto the surface. `out` is the first place beyond, `moved` where a point beyond goes.
template <class Number>
bool Clip(Number& x1, Number& y1, Number& x2, Number& y2, const Number (&out)[2], const Number (&moved)[2]) {
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

struct LineBrush {
    LICE_pixel color;
    float alpha;
    int mode;

    template <CopyForms forms>
    void Blend(TestSurface& surface, int64_t x, int64_t row, int weight) const {
        if (surface.Has(x, row))
            Brush<forms>{color, alpha, mode}.Blend(surface, static_cast<int>(x), static_cast<int>(row), weight);
    }
    int Ia() const { return static_cast<int>(256 * alpha); }
    void BlendPair(TestSurface& surface, bool tall, int64_t major, int64_t minor, int64_t side, int64_t moved) const {
        const int h = static_cast<int>(moved) >> 8, ia = Ia();
        const int near = ia == 256 ? 255 - h : ia * (255 - h) >> 8, beside = ia == 256 ? h : ia * h >> 8;
        Blend<CopyForms::General>(surface, tall ? minor : major, tall ? major : minor, near);
        Blend<CopyForms::General>(surface, tall ? minor + side : major, tall ? major : minor + side, beside);
    }
};

void DrawSlowly(TestSurface& surface, const LineBrush& brush, const int (&ends)[4], bool aa) {
    int64_t p[4];
    for (int i = 0; i < 4; ++i) {
        p[i] = ends[i];
        if (surface.Scale() > 0 && !(brush.mode & LICE_BLIT_IGNORE_SCALING))
            p[i] = reference::ScaleCoord(p[i], surface.Scale());
        if (i % 2 && surface.isFlipped()) p[i] = surface.BackingHeight() - 1 - p[i];
    }
    auto& [x1, y1, x2, y2] = p;
    const int64_t W = surface.BackingWidth(), H = surface.BackingHeight();
    if (!Clip(x1, y1, x2, y2, {W, H}, {W - 1, H - 1})) return;

    const int64_t across = std::abs(x2 - x1), down = std::abs(y2 - y1);
    const int ia = brush.Ia();
    if (across == 0 || down == 0 || across == down) {
        const int64_t n = std::max(across, down), xStep = (x2 > x1) - (x2 < x1), yStep = (y2 > y1) - (y2 < y1);
        const bool diagonal = across == down && n > 0, fast = std::fmod(brush.alpha, 0.25f) == 0;
        for (int64_t i = 0; i <= n; ++i) {
            const int64_t x = x1 + i * xStep, y = y1 + i * yStep;
            if (diagonal && aa && brush.mode % 256 == 0 && brush.alpha == 1.0f) {
                LineBrush core = brush, fringe = brush;
                core.alpha = 0.75f, fringe.alpha = 0.25f;
                core.Blend<CopyForms::Fast>(surface, x, y, 192);
                if (i < n) fringe.Blend<CopyForms::Fast>(surface, x + xStep, y, 64);
                if (i < n) fringe.Blend<CopyForms::Fast>(surface, x, y + yStep, 64);
            } else if (diagonal && aa) {
                brush.Blend<CopyForms::General>(surface, x, y, ia * 3 / 4);
                if (i < n) brush.Blend<CopyForms::General>(surface, x + xStep, y, ia / 4);
                if (i < n) brush.Blend<CopyForms::General>(surface, x, y + yStep, ia / 4);
            } else if (!diagonal && fast) {
                brush.Blend<CopyForms::Fast>(surface, x, y, ia);
            } else {
                brush.Blend<CopyForms::SolidHalf>(surface, x, y, ia);
            }
        }
        return;
    }

    const bool tall = across < down;
    if (tall) std::swap(x1, y1), std::swap(x2, y2);  // from here on x is the longer axis
    if (x2 < x1) std::swap(x1, x2), std::swap(y1, y2);
    const int64_t n = x2 - x1, side = y2 < y1 ? -1 : 1;
    const int64_t step =
        static_cast<int64_t>(65536.0 * static_cast<double>(std::abs(y2 - y1)) / static_cast<double>(n));
    const auto plain = [&](int64_t major, int64_t minor) {
        brush.Blend<CopyForms::SolidHalf>(surface, tall ? minor : major, tall ? major : minor, ia);
    };
    for (int64_t i = 0; 2 * i <= n; ++i) {
        const bool middle = 2 * i == n;
        if (!aa) {
            const int64_t moved = side * ((i * step + 0x8000) >> 16);
            plain(x1 + i, y1 + moved);
            if (!middle) plain(x2 - i, y2 - moved);
        } else if (i == 0) {
            for (const auto& [x, y] : {std::pair(x1, y1), std::pair(x2, y2)})
                brush.Blend<CopyForms::General>(surface, tall ? y : x, tall ? x : y, ia);
        } else {
            const int64_t moved = side * (i * step >> 16);
            brush.BlendPair(surface, tall, x1 + i, y1 + moved, side, i * step & 0xFFFF);
            if (!middle) brush.BlendPair(surface, tall, x2 - i, y2 - moved, -side, i * step & 0xFFFF);
        }
    }
}

void DrawSlowly(TestSurface& surface, const LineBrush& brush, const float (&ends)[4]) {
    float p[4];
    for (int i = 0; i < 4; ++i) {
        p[i] = i % 2 && surface.isFlipped() ? static_cast<float>(surface.getHeight() - 1) - ends[i] : ends[i];
        if (surface.Scale() > 0 && !(brush.mode & LICE_BLIT_IGNORE_SCALING))
            p[i] = static_cast<float>(double{p[i]} * surface.Scale() / 256.0);
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
        brush.BlendPair(surface, tall, x, minor, side, moved - 0x10000 * steps);
    }
}

LineBrush AnyBrush(Random& random) {
    const auto any = Brush<CopyForms::General>::Any(random);
    return {any.color, any.alpha, any.mode};
}

// Near the surface or far off, whole diagonals and level lines more often than chance has them.
template <class Number>
void AnyEnds(Random& random, Number (&p)[4]) {
    const Number far = random.Of({Number{10}, Number{30}, Number{30}, Number{3000}});
    for (Number& v : p) v = random.In(-far, far + 15);
    const int kind = random.In(0, 7);
    if (kind == 0) p[3] = p[1];
    if (kind == 1) p[2] = p[0];
    if (kind == 2) p[3] = p[1] + (p[2] - p[0]) * random.Of({-1, 1});
}

}  // namespace

TEST(Line, AgreesWithTheClosedFormOfItsPixels) {
    Random random;
    for (int i = 0; i < 25000; ++i) {
        TestSurface drawn = TestSurface::Any(random, 30, true, random.Of({0, 40}));
        TestSurface expected = drawn;
        const LineBrush brush = AnyBrush(random);
        int p[4];
        AnyEnds(random, p);
        const bool aa = random.Chance(2);
        LICE_Line(&drawn, p[0], p[1], p[2], p[3], brush.color, brush.alpha, brush.mode, aa);
        DrawSlowly(expected, brush, p, aa);
        ASSERT_EQ(drawn.memory, expected.memory)
            << p[0] << ' ' << p[1] << ' ' << p[2] << ' ' << p[3] << " aa " << aa << " mode " << brush.mode << " alpha "
            << brush.alpha << " scale " << drawn.Scale();
    }
}

TEST(FLine, AgreesWithTheClosedFormOfItsPixels) {
    Random random;
    for (int i = 0; i < 25000; ++i) {
        TestSurface drawn = TestSurface::Any(random, 30, true, random.Of({0, 40}));
        TestSurface expected = drawn;
        const LineBrush brush = AnyBrush(random);
        float p[4];
        AnyEnds(random, p);
        if (random.Chance(3))
            for (float& v : p) v = std::floor(v * 2) / 2;
        if (random.Chance(8)) {  // down to a corner from less than a pixel away, where rounding may carry it past
            p[2] = std::floor(p[2]), p[3] = 0;
            p[0] = p[2] - random.In(0.0f, 1.0f), p[1] = random.In(0.0f, 1.0f);
        }
        LICE_FLine(&drawn, p[0], p[1], p[2], p[3], brush.color, brush.alpha, brush.mode, true);
        DrawSlowly(expected, brush, p);
        ASSERT_EQ(drawn.memory, expected.memory)
            << p[0] << ' ' << p[1] << ' ' << p[2] << ' ' << p[3] << " mode " << brush.mode << " alpha " << brush.alpha
            << " scale " << drawn.Scale();
    }
}

TEST(DrawRect, IsFourLinesInOrder) {
    Random random;
    for (int i = 0; i < 5000; ++i) {
        TestSurface drawn = TestSurface::Any(random, 30, true, 40);
        TestSurface expected = drawn;
        const LineBrush brush = AnyBrush(random);
        const int x = random.In(-9, 30), y = random.In(-9, 30), w = random.In(-3, 30), h = random.In(-3, 30);
        LICE_DrawRect(&drawn, x, y, w, h, brush.color, brush.alpha, brush.mode);
        const bool scaled = drawn.Scale() > 0 && !(brush.mode & LICE_BLIT_IGNORE_SCALING);
        const double o = scaled ? 1.0 - 256.0 / drawn.Scale() : 0;
        const double corners[5][2] = {
            {x + o, y + o}, {x + w - o, y + o}, {x + w - o, y + h - o}, {x + o, y + h - o}, {x + o, y + o}};
        for (int side = 0; side < 4; ++side) {
            const auto& from = corners[side];
            const auto& to = corners[side + 1];
            if (scaled) {
                DrawSlowly(expected, brush,
                           {static_cast<float>(from[0]), static_cast<float>(from[1]), static_cast<float>(to[0]),
                            static_cast<float>(to[1])});
            } else {
                DrawSlowly(expected, brush,
                           {static_cast<int>(from[0]), static_cast<int>(from[1]), static_cast<int>(to[0]),
                            static_cast<int>(to[1])},
                           false);
            }
        }
        ASSERT_EQ(drawn.memory, expected.memory) << x << ' ' << y << ' ' << w << ' ' << h << " scale " << drawn.Scale();
    }
}

TEST(Line, AbsurdArgumentsStayInside) {
    Random random;
    const int ints[] = {INT_MIN, INT_MIN + 1, -70000, -1, 0, 3, 8, 70000, INT_MAX - 1, INT_MAX};
    const float floats[] = {-INFINITY, -3e38f, -1e10f, -1.0f, -1e-30f,  0.0f, 1e-30f,
                            3.999999f, 7.5f,   1e10f,  3e38f, INFINITY, NAN};
    for (int i = 0; i < 15000; ++i) {
        TestSurface surface = TestSurface::Any(random, 9, true, 30);
        const TestSurface before = surface;
        const float alpha = random.Of({0.3f, 1.0f, 1e30f, -1e30f, INFINITY, NAN});
        const auto whole = [&] { return random.Of(ints); };
        const auto real = [&] { return random.Chance(2) ? random.Of(floats) : random.In(-1.0f, 9.0f); };
        const int mode = random.In(0, 0x3FFFF);
        LICE_Line(&surface, whole(), whole(), whole(), whole(), random.Pixel(), alpha, mode, random.Chance(2));
        LICE_FLine(&surface, real(), real(), real(), real(), random.Pixel(), alpha, mode, random.Chance(4));
        LICE_DrawRect(&surface, whole(), whole(), whole(), whole(), random.Pixel(), alpha, mode);
        ASSERT_TRUE(surface.KeptOutside(before));
    }
}
