// Trapezoids row by row as their rules say, and convex polygons by the corners around them.
#include "lice/polygon.h"

#include "tests/lice/brush.h"

struct Row {
    double left, right;
    int y;
};

static void DrawSlowly(TestSurface& surface, const Brush& brush, Row top, Row bottom) {
    if (top.y > bottom.y) std::swap(top, bottom);
    for (Row* row : {&top, &bottom}) {
        if (row->left > row->right) std::swap(row->left, row->right);
        row->y = static_cast<int>(brush.Scaled(row->y, surface));
        for (double* x : {&row->left, &row->right})
            if (brush.Scales(surface)) *x = *x * surface.Scale() / 256.0;
    }
    const int W = surface.BackingWidth(), H = surface.BackingHeight();
    if (std::max(top.right, bottom.right) < 0 || std::min(top.left, bottom.left) >= W) return;
    if (bottom.y < 0 || top.y >= H) return;
    if (std::max(top.left, bottom.left) <= 0) top.left = bottom.left = 0;
    if (std::min(top.right, bottom.right) >= W - 1) top.right = bottom.right = W - 1;

    // A side is one number, in 1/65536 of a pixel, that grows in its own direction.
    const double perRow = top.y == bottom.y ? 0 : 65536.0 / (bottom.y - top.y);
    const auto edge = [perRow](double from, double to, int64_t rows) {
        const double step = std::floor(std::clamp((to - from) * perRow, -0x1p29, 0x1p29) + 0.5);
        const int sign = step < 0 ? -1 : 1;
        const auto fraction = static_cast<int64_t>(std::floor((from - std::floor(from)) * 65536.0 * sign + 0.5));
        const int64_t moved = fraction + static_cast<int64_t>(std::abs(step)) * rows;
        return static_cast<int64_t>(std::floor(from)) + sign * (moved >> 16);
    };
    const int q = brush.Scales(surface) ? surface.Scale() / 256 - 1 : 0;
    for (int y = std::max(top.y, 0); y <= std::min(bottom.y, H - 1 - q) + q; ++y) {
        const int64_t left = edge(top.left, bottom.left, y - top.y), right = edge(top.right, bottom.right, y - top.y);
        for (int64_t x = std::max<int64_t>(left, 0); x <= std::min<int64_t>(right, W - 1); ++x)
            brush.Blend(surface, x, y, brush.Ia(), CopyForms::Fast);
    }
}

TEST(Trapezoid, CoversTheRowsBetweenItsSides) {
    CompareRounds(20000, [](Random& random, const Brush& brush, TestSurface& drawn, TestSurface& expected) {
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
        return Called(top.left, top.right, top.y, bottom.left, bottom.right, bottom.y);
    });
}

struct Corner {
    int y, x;
    auto operator<=>(const Corner&) const = default;  // from the top, then from the left
};

// One side of the hull, from the top: the next corner leans furthest out, the last of several on one line.
static std::vector<Corner> Chain(const std::vector<Corner>& sorted, Corner from, int direction) {
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

static Corner Next(const std::vector<Corner>& chain, size_t at) { return chain[std::min(at + 1, chain.size() - 1)]; }

static double Across(const std::vector<Corner>& chain, size_t edge, int y) {
    const Corner a = chain[edge], b = Next(chain, edge);
    if (y <= a.y) return a.x;
    if (y >= b.y) return b.x;
    return static_cast<double>(y - a.y) * (static_cast<double>(b.x - a.x) / static_cast<double>(b.y - a.y)) + a.x;
}

static void DrawSlowly(TestSurface& surface, Brush brush, std::vector<Corner> corners) {
    const int W = surface.BackingWidth(), H = surface.BackingHeight();
    for (Corner& c : corners) {
        c = {static_cast<int>(brush.Scaled(c.y, surface)), static_cast<int>(brush.Scaled(c.x, surface))};
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
        const int end = std::min(Next(left, l).y, Next(right, r).y);
        DrawSlowly(surface, brush, {Across(left, l, y), Across(right, r, y), y},
                   {Across(left, l, end), Across(right, r, end), end});
        l += l + 1 < left.size() && left[l + 1].y == end;
        r += r + 1 < right.size() && right[r + 1].y == end;
        y = end + 1;
    }
}

TEST(Polygon, IsFilledBetweenTheTwoSidesOfItsHull) {
    CompareRounds(12000, [](Random& random, const Brush& brush, TestSurface& drawn, TestSurface& expected) {
        const int count = random.Chance(600) ? random.Of({511, 512, 513, 700}) : random.Of({3, random.In(4, 12)});
        const int near = random.Of({1, 5, 30, 30, 1000});
        std::vector<int> x(count), y(count);
        for (int& v : x) v = random.In(-near, near + 30);
        for (int& v : y) v = random.In(-near, near + 30);
        if (random.Chance(3)) y[1] = y[0];
        if (random.Chance(4)) x[1] = x[0];
        if (random.Chance(20)) y.assign(count, y[0]);
        if (count == 3)
            LICE_FillTriangle(&drawn, x[0], y[0], x[1], y[1], x[2], y[2], brush.color, brush.alpha, brush.mode);
        else
            LICE_FillConvexPolygon(&drawn, x.data(), y.data(), count, brush.color, brush.alpha, brush.mode);
        std::vector<Corner> corners;
        for (int k = 0; k < count; ++k) corners.push_back({y[k], x[k]});
        DrawSlowly(expected, brush, corners);
        return Called(count, "points", testing::PrintToString(x), testing::PrintToString(y));
    });
}
