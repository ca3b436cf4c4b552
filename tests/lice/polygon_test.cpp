// Trapezoids row by row as their rules say, and convex polygons by the corners around them.
#include "lice/polygon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "tests/lice/brush.h"

namespace {

using FastBrush = Brush<CopyForms::Fast>;

struct Row {
    double left, right;
    int y;
};

void DrawSlowly(TestSurface& surface, const FastBrush& brush, Row top, Row bottom) {
    if (top.y > bottom.y) std::swap(top, bottom);
    for (Row* row : {&top, &bottom}) {
        if (row->left > row->right) std::swap(row->left, row->right);
        if (!brush.Scales(surface)) continue;
        row->left = row->left * surface.Scale() / 256.0;
        row->right = row->right * surface.Scale() / 256.0;
        row->y = static_cast<int>(int64_t{row->y} * surface.Scale() / 256);
    }
    const int W = surface.BackingWidth(), H = surface.BackingHeight();
    if (std::max(top.right, bottom.right) < 0 || std::min(top.left, bottom.left) >= W) return;
    if (bottom.y < 0 || top.y >= H) return;
    if (std::max(top.left, bottom.left) <= 0) top.left = bottom.left = 0;
    if (std::min(top.right, bottom.right) >= W - 1) top.right = bottom.right = W - 1;

    // A side as one number of 1/65536 pixels that grows in its own direction, folded into whole pixels afresh each row.
    const double perRow = top.y == bottom.y ? 0 : 65536.0 / (bottom.y - top.y);
    struct Side {
        int whole, sign;
        int64_t fraction, step;
        Side(double from, double to, double inverse) : whole(static_cast<int>(std::floor(from))) {
            step = static_cast<int64_t>(std::floor(std::min(std::max((to - from) * inverse, -0x1p29), 0x1p29) + 0.5));
            sign = step < 0 ? -1 : 1;
            step *= sign;
            fraction = static_cast<int64_t>(std::floor((from - whole) * 65536.0 * sign + 0.5));
        }
        int64_t At(int64_t rows) const { return whole + sign * ((fraction + step * rows) >> 16); }
    } left(top.left, bottom.left, perRow), right(top.right, bottom.right, perRow);

    const int q = brush.Scales(surface) ? surface.Scale() / 256 - 1 : 0;
    const int last = std::min(bottom.y, H - 1 - q) + q;
    for (int y = std::max(top.y, 0); y <= last; ++y)
        for (int64_t x = std::max<int64_t>(left.At(y - top.y), 0); x <= std::min<int64_t>(right.At(y - top.y), W - 1);
             ++x)
            brush.Blend(surface, static_cast<int>(x), y, brush.Ia());
}

TEST(Trapezoid, CoversTheRowsBetweenItsSides) {
    Random random;
    for (int i = 0; i < 20000; ++i) {
        TestSurface drawn = TestSurface::Any(random, 40, true, random.Of({0, 60}));
        TestSurface expected = drawn;
        const FastBrush brush = FastBrush::Any(random);
        const int far = random.Of({60, 60, 60, 3000});
        const bool whole = random.Chance(3), upright = random.Chance(4);
        const auto x = [&] {
            const float any = random.In(-1.0f * static_cast<float>(far), static_cast<float>(far));
            return static_cast<double>(whole ? std::floor(any) : any);
        };
        const Row top{x(), x(), random.In(-far, far)};
        Row bottom{x(), x(), random.Chance(4) ? top.y : random.In(-far, far)};
        if (upright) bottom = {top.left, top.right, bottom.y};
        LICE_FillTrapezoid(&drawn, top.left, top.right, top.y, bottom.left, bottom.right, bottom.y, brush.color,
                           brush.alpha, brush.mode);
        DrawSlowly(expected, brush, top, bottom);
        ASSERT_EQ(drawn.memory, expected.memory)
            << top.left << ' ' << top.right << ' ' << top.y << ' ' << bottom.left << ' ' << bottom.right << ' '
            << bottom.y << " mode " << brush.mode << " alpha " << brush.alpha << " scale " << drawn.Scale();
    }
}

struct Corner {
    int x, y;
    auto operator<=>(const Corner& other) const { return std::pair(y, x) <=> std::pair(other.y, other.x); }
    bool operator==(const Corner&) const = default;
};

// One side of the hull, top to bottom: each next corner leans furthest out, and of those on one line is the last.
std::vector<Corner> Chain(const std::vector<Corner>& sorted, Corner from, int direction) {
    std::vector<Corner> chain = {from};
    for (;;) {
        const Corner a = chain.back();
        const Corner* best = nullptr;
        for (const Corner& c : sorted) {
            if (c.y <= a.y) continue;
            const int64_t lean =
                best ? (int64_t{c.x} - a.x) * (best->y - a.y) - (int64_t{best->x} - a.x) * (c.y - a.y) : 0;
            if (lean * direction >= 0) best = &c;
        }
        if (!best) return chain;
        chain.push_back(*best);
    }
}

double Across(const std::vector<Corner>& chain, size_t edge, int y) {
    const Corner a = chain[edge], b = chain[std::min(edge + 1, chain.size() - 1)];
    if (y <= a.y) return a.x;
    if (y >= b.y) return b.x;
    return static_cast<double>(y - a.y) * (static_cast<double>(b.x - a.x) / static_cast<double>(b.y - a.y)) + a.x;
}

void DrawSlowly(TestSurface& surface, FastBrush brush, std::vector<Corner> corners) {
    const int W = surface.BackingWidth(), H = surface.BackingHeight();
    for (Corner& c : corners) {
        if (brush.Scales(surface)) c = {c.x * surface.Scale() / 256, c.y * surface.Scale() / 256};
        if (surface.isFlipped()) c.y = H - 1 - c.y;
    }
    brush.mode |= LICE_BLIT_IGNORE_SCALING;
    std::sort(corners.begin(), corners.end());
    const int first = corners.front().y;
    if (first == corners.back().y) {
        const double left = std::min(corners.front().x, W), right = std::max(corners.back().x, 0);
        if (first >= 0 && first < H && left <= right)
            DrawSlowly(surface, brush, {left, right, first}, {left, right, first});
        return;
    }
    const auto below = std::find_if(corners.begin(), corners.end(), [first](Corner c) { return c.y > first; });
    const auto left = Chain(corners, corners.front(), -1), right = Chain(corners, below[-1], 1);
    size_t l = 0, r = 0;
    for (int y = first; l + 1 < left.size() || r + 1 < right.size();) {
        const int end = std::min(left[std::min(l + 1, left.size() - 1)].y, right[std::min(r + 1, right.size() - 1)].y);
        DrawSlowly(surface, brush, {Across(left, l, y), Across(right, r, y), y},
                   {Across(left, l, end), Across(right, r, end), end});
        if (l + 1 < left.size() && left[l + 1].y == end) ++l;
        if (r + 1 < right.size() && right[r + 1].y == end) ++r;
        y = end + 1;
    }
}

void ComparePolygons(Random& random, int count, int near) {
    TestSurface drawn = TestSurface::Any(random, 40, true, random.Of({0, 60}));
    TestSurface expected = drawn;
    const FastBrush brush = FastBrush::Any(random);
    std::vector<Corner> corners(count);
    for (Corner& c : corners) c = {random.In(-near, near + 30), random.In(-near, near + 30)};
    if (random.Chance(3)) corners[1].y = corners[0].y;
    if (random.Chance(4)) corners[1].x = corners[0].x;
    if (random.Chance(20))
        for (Corner& c : corners) c.y = corners[0].y;
    std::vector<int> x(count), y(count);
    for (int i = 0; i < count; ++i) {
        x[i] = corners[i].x;
        y[i] = corners[i].y;
    }
    if (count == 3) {
        LICE_FillTriangle(&drawn, x[0], y[0], x[1], y[1], x[2], y[2], brush.color, brush.alpha, brush.mode);
    } else {
        LICE_FillConvexPolygon(&drawn, x.data(), y.data(), count, brush.color, brush.alpha, brush.mode);
    }
    DrawSlowly(expected, brush, corners);
    std::string points;
    for (int i = 0; i < std::min(count, 12); ++i) points += " " + std::to_string(x[i]) + "," + std::to_string(y[i]);
    ASSERT_EQ(drawn.memory, expected.memory) << count << " points" << points << " mode " << brush.mode << " alpha "
                                             << brush.alpha << " scale " << drawn.Scale();
}

TEST(Polygon, IsFilledBetweenTheTwoSidesOfItsHull) {
    Random random;
    for (int i = 0; i < 6000 && !HasFailure(); ++i) {
        ComparePolygons(random, 3, random.Of({1, 5, 30, 30, 1000}));
        ComparePolygons(random, random.In(4, 12), random.Of({2, 5, 30, 30, 1000}));
        if (i % 300 == 0) ComparePolygons(random, random.Of({511, 512, 513, 700}), 30);
    }
}

std::vector<std::string> Triangle(int x1, int y1, int x2, int y2, int x3, int y3) {
    Random random;
    TestSurface surface({10, 5}, random);
    std::fill(surface.memory.begin(), surface.memory.end(), 0);
    LICE_FillTriangle(&surface, x1, y1, x2, y2, x3, y3, 0xFFFFFFFF, 1.0f, 0);
    std::vector<std::string> rows(5);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 10; ++x) rows[y] += surface.At(x, y) ? '#' : '.';
    return rows;
}

TEST(Polygon, FlatTopsAndSingleRowsReachBothEnds) {
    using Rows = std::vector<std::string>;
    EXPECT_EQ(Triangle(1, 0, 8, 0, 4, 4), (Rows{".########.", ".#######..", "..#####...", "...###....", "....#....."}));
    // A side that falls outward enters a pixel only when it is all the way there.
    EXPECT_EQ(Triangle(4, 0, 1, 4, 8, 4), (Rows{"....#.....", "....##....", "...####...", "..######..", ".########."}));
    EXPECT_EQ(Triangle(7, 2, 1, 2, 4, 2), (Rows{"..........", "..........", ".#######..", "..........", ".........."}));
}

// Whatever the arguments: nothing outside of the surface, no end that is not reached, nothing undefined.
TEST(Polygon, AbsurdArgumentsStayInside) {
    Random random;
    constexpr int big = std::numeric_limits<int>::max(), small = std::numeric_limits<int>::min();
    constexpr double inf = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
    const auto whole = [&random] { return random.Of({small, small + 1, -70000, -1, 0, 3, 9, 70000, big - 1, big}); };
    const auto real = [&random] {
        return random.Of({-inf, -1e300, -1e30, -2147483648.5, -1.0, 0.0, 4.5, 3e9, 1e300, inf, nan});
    };
    for (int i = 0; i < 20000; ++i) {
        TestSurface surface = TestSurface::Any(random, 12, true, 40);
        const std::vector<LICE_pixel> before = surface.memory;
        const FastBrush brush = FastBrush::Any(random);
        const float alpha = random.Of({brush.alpha, 1e30f, -1e30f, std::numeric_limits<float>::quiet_NaN()});
        LICE_FillTrapezoid(&surface, real(), real(), whole(), real(), real(), whole(), brush.color, alpha, brush.mode);
        LICE_FillTrapezoid(&surface, whole(), whole(), whole(), whole(), whole(), whole(), brush.color, alpha,
                           brush.mode);
        LICE_FillTriangle(&surface, whole(), whole(), whole(), whole(), whole(), whole(), brush.color, alpha,
                          brush.mode);
        ASSERT_TRUE(std::equal(before.begin(), before.begin() + 40, surface.memory.begin()));
        ASSERT_TRUE(std::equal(before.end() - 40, before.end(), surface.memory.end() - 40));
    }
}

}  // namespace
