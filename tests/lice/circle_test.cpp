// Circles and arcs against a slow raster that walks them pixel by pixel and tests every one.
#include "lice/circle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "lice/circle_masks.h"
#include "lice/glyph.h"
#include "lice/line.h"
#include "tests/lice/brush.h"

namespace {

// Step by step: runs up and down, runs across, single points, each cut to the clip pixel by pixel.
template <class AnyBrush>
class SlowRaster {
  public:
    SlowRaster(TestSurface& surface, RECT clip, const AnyBrush& brush)
        : surface_(surface), clip_(clip), brush_(brush), ia_(brush.Ia()) {}

    void Draw(float cx, float cy, float r, bool aa, bool fill) {
        xc_ = static_cast<int>(std::floor(0.5 + cx));
        yc_ = static_cast<int>(std::floor(0.5 + cy));
        fill_ = fill;
        if (aa) {
            Smooth(r);
        } else {
            Plain(static_cast<int>(0.5 + r));
        }
    }

  private:
    void Point(int x, int y, int weight) {
        if (x >= clip_.left && x < clip_.right && y >= clip_.top && y < clip_.bottom)
            brush_.Blend(surface_, x, y, weight);
    }
    void Across(int y, int first, int last) {
        for (int x = first; x <= last; ++x) Point(xc_ + x, yc_ + y, ia_);
    }
    void Down(int x, int first, int last) {
        for (int y = first; y <= last; ++y) Point(xc_ + x, yc_ + y, ia_);
    }
    void Four(int x, int y, int weight) {
        for (int sign : {-1, 1}) {
            Point(xc_ + sign * x, yc_ - y, weight);
            Point(xc_ + sign * x, yc_ + y, weight);
        }
    }
    void Middle(int r, int weight) {
        if (fill_) {
            Down(0, -r, -1);
            Down(0, 1, r);
            Across(0, -r, r);
            return;
        }
        Point(xc_, yc_ - r, weight);
        Point(xc_ + r, yc_, weight);
        Point(xc_, yc_ + r, weight);
        Point(xc_ - r, yc_, weight);
    }
    void Wedges(int i, int reach) {
        for (int x : {-i, i}) {
            Down(x, -reach, -i - 1);
            Down(x, i + 1, reach);
        }
        for (int y : {-i, i}) {
            Across(y, -reach, -i);
            Across(y, i, reach);
        }
    }

    void Plain(int r) {
        Middle(r, ia_);
        for (int d = -r, i = 1, y = r; i < y; ++i) {
            int step = i;
            if (d >= 0) step = i - --y;
            d += step * 2 + 1;
            if (fill_) {
                Wedges(i, y);
                continue;
            }
            Four(i, y, ia_);
            if (i != y) Four(y, i, ia_);
        }
    }

    void Smooth(float r) {
        const int whole = static_cast<int>(r);
        const auto share = [this](double value) { return static_cast<int>(ia_ * (value - std::floor(value))); };
        Point(xc_, yc_ - whole - 1, share(r));
        Point(xc_, yc_ + whole + 1, share(r));
        Point(xc_ - whole - 1, yc_, share(r));
        Point(xc_ + whole + 1, yc_, share(r));
        Middle(whole, ia_ - share(r));
        for (int i = 1;; ++i) {
            const double square = static_cast<double>(r) * r - static_cast<double>(i) * i;
            if (square < 0) return;
            const double f = std::sqrt(square);
            const int limit = static_cast<int>(0.5 + f), k = static_cast<int>(f), inside = ia_ - share(f);
            if (i > limit) return;
            Four(i, k + 1, share(f));
            if (i != limit) Four(k + 1, i, share(f));
            if (fill_) {
                Wedges(i, k);
                continue;
            }
            for (int sign : {-1, 1}) {
                Point(xc_ + sign * k, yc_ - i, inside);
                Point(xc_ + sign * i, yc_ + k, inside);
            }
            for (int sign : {-1, 1}) {
                if (i == limit) break;
                Point(xc_ + sign * i, yc_ - k, inside);
                Point(xc_ + sign * k, yc_ + i, inside);
            }
        }
    }

    TestSurface& surface_;
    RECT clip_;
    AnyBrush brush_;
    int ia_;
    int xc_ = 0, yc_ = 0;
    bool fill_ = false;
};

using SmoothBrush = Brush<CopyForms::General>;
using PlainBrush = Brush<CopyForms::SolidHalf>;

struct Round {
    float cx, cy, r;
    static Round Any(Random& random, int size) {
        const float edge = static_cast<float>(size);
        Round any{random.In(-0.3f * edge, 1.3f * edge), random.In(-0.3f * edge, 1.3f * edge), random.In(0.0f, edge)};
        if (random.Chance(2)) any.cx = std::floor(any.cx) + random.Of({0.0f, 0.5f, 0.25f});
        if (random.Chance(2)) any.cy = std::floor(any.cy) + random.Of({0.0f, 0.5f, 0.75f});
        if (random.Chance(3)) any.r = std::floor(any.r * 2) / 2;
        if (random.Chance(4)) any.r = random.Of({1.0f, 1.5f, 2.0f, 2.5f, 3.0f, 3.5f, 4.0f, 5.0f, 6.0f, 7.0f, 35.0f});
        return any;
    }
    Round Scaled(int scale) const {
        const auto scaled = [scale](float value) { return static_cast<float>(value * double{1} * scale / 256.0); };
        return {scaled(cx), scaled(cy), scaled(r)};
    }
};

template <class AnyBrush>
void DrawSlowly(TestSurface& surface, const AnyBrush& brush, Round c, bool aa, bool fill) {
    if (brush.Scales(surface)) c = c.Scaled(surface.Scale());
    if (const CircleMask mask = SmallCircleMask(c.r, fill, aa); mask.coverage) {
        LICE_DrawGlyph(&surface, static_cast<int>(c.cx - c.r), static_cast<int>(c.cy - c.r), brush.color, mask.coverage,
                       mask.size, mask.size, brush.alpha, brush.mode | LICE_BLIT_IGNORE_SCALING);
        return;
    }
    const RECT all{0, 0, surface.BackingWidth(), surface.BackingHeight()};
    if (surface.isFlipped()) c.cy = static_cast<float>(all.bottom - 1) - c.cy;
    SlowRaster(surface, all, brush).Draw(c.cx, c.cy, c.r, aa, fill);
}

template <class AnyBrush>
void CompareCircles(Random& random, bool aa, int size) {
    TestSurface drawn = TestSurface::Any(random, size, true, random.Of({0, 50}));
    TestSurface expected = drawn;
    const AnyBrush brush = AnyBrush::Any(random);
    const Round c = Round::Any(random, size);
    const bool fill = random.Chance(2);
    (fill ? LICE_FillCircle : LICE_Circle)(&drawn, c.cx, c.cy, c.r, brush.color, brush.alpha, brush.mode, aa);
    DrawSlowly(expected, brush, c, aa, fill);
    ASSERT_EQ(drawn.memory, expected.memory)
        << (fill ? "disc " : "ring ") << c.cx << ' ' << c.cy << ' ' << c.r << (aa ? " aa" : " plain") << " mode "
        << brush.mode << " alpha " << brush.alpha << " scale " << drawn.Scale();
}

TEST(Circle, RingsAndDiscsAreThoseOfTheWalkedRaster) {
    Random random;
    for (int i = 0; i < 6000 && !testing::Test::HasFailure(); ++i) {
        CompareCircles<SmoothBrush>(random, true, i % 100 ? 30 : 150);
        CompareCircles<PlainBrush>(random, false, i % 100 ? 30 : 150);
    }
}

// Only what can reach the surface is worked out; it must still be the same pixels.
TEST(Circle, OfAHugeCircleTheRightPixelsAreDrawn) {
    Random random;
    for (int i = 0; i < 60; ++i) {
        TestSurface drawn({40, 40, 1, false, 0, 50}, random), expected = drawn;
        const bool aa = random.Chance(2);
        const float r = random.In(300.0f, 30000.0f), angle = random.In(0.0f, 6.3f);
        const Round c{20 + std::floor(r * std::sin(angle)), 20 + std::floor(r * std::cos(angle)), r};
        LICE_Circle(&drawn, c.cx, c.cy, c.r, 0xFFFFFFFF, 0.7f, 0, aa);
        DrawSlowly(expected, SmoothBrush{0xFFFFFFFF, 0.7f, 0}, c, aa, false);
        ASSERT_EQ(drawn.memory, expected.memory) << c.cx << ' ' << c.cy << ' ' << c.r << ' ' << aa;
    }
}

// One box for each quadrant that the arc reaches, around its two ends there, and the whole circle drawn in each.
template <class AnyBrush>
void DrawArcSlowly(TestSurface& surface, const AnyBrush& brush, Round c, float low, float high, bool aa) {
    constexpr float turn = 6.2831855f;
    const Round asked = c;
    if (surface.isFlipped()) {
        c.cy = static_cast<float>(surface.getHeight() - 1) - c.cy;
        low = 3.1415927f - low;
        high = 3.1415927f - high;
    }
    if (high < low) std::swap(low, high);
    if (high - low >= turn) return DrawSlowly(surface, brush, asked, aa, false);
    const float turns = high >= turn ? high - std::fmod(high, turn) : low <= -turn ? low - std::fmod(low, turn) : 0;
    high -= turns;
    low -= turns;
    if (brush.Scales(surface)) c = c.Scaled(surface.Scale());
    const double from = low + 6.2831854820251465, to = high + 6.2831854820251465, quarter = 1.5707963705062866;
    const auto x = [&c](double angle) { return static_cast<int>(std::floor(c.r * std::sin(angle) + c.cx + 0.5)); };
    const auto y = [&c](double angle) { return static_cast<int>(std::floor(c.cy - c.r * std::cos(angle) + 0.5)); };
    double start = from, next = from - std::fmod(from, quarter);
    while (to > start) {
        next = std::min(next + quarter, to);
        LONG left = x(start), right = x(next), top = y(start), bottom = y(next);
        if (right < left) std::swap(left, right);
        if (bottom < top) std::swap(top, bottom);
        if (static_cast<float>(right) != c.cx) ++right;
        if (static_cast<float>(bottom) != c.cy) ++bottom;
        const RECT box{std::max<LONG>(left, 0), std::max<LONG>(top, 0),
                       std::min<LONG>(right + 1, surface.BackingWidth()),
                       std::min<LONG>(bottom + 1, surface.BackingHeight())};
        SlowRaster(surface, box, brush).Draw(c.cx, c.cy, c.r, aa, false);
        start = next;
    }
}

template <class AnyBrush>
void CompareArcs(Random& random, bool aa) {
    TestSurface drawn = TestSurface::Any(random, 30, true, random.Of({0, 50}));
    TestSurface expected = drawn;
    const AnyBrush brush = AnyBrush::Any(random);
    const Round c = Round::Any(random, 30);
    float low = random.In(-14.0f, 14.0f), high = random.In(-14.0f, 14.0f);
    if (random.Chance(2)) {
        low = static_cast<float>(random.In(-4, 4)) * 1.5707964f;
        high = low + static_cast<float>(random.In(-4, 4)) * 1.5707964f;
    }
    LICE_Arc(&drawn, c.cx, c.cy, c.r, low, high, brush.color, brush.alpha, brush.mode, aa);
    DrawArcSlowly(expected, brush, c, low, high, aa);
    ASSERT_EQ(drawn.memory, expected.memory)
        << "arc " << c.cx << ' ' << c.cy << ' ' << c.r << " from " << low << " to " << high << (aa ? " aa" : " plain")
        << " mode " << brush.mode << " alpha " << brush.alpha << " scale " << drawn.Scale();
}

TEST(Arc, ShowsTheCircleInABoxForEachQuadrant) {
    Random random;
    for (int i = 0; i < 6000 && !testing::Test::HasFailure(); ++i) {
        CompareArcs<SmoothBrush>(random, true);
        CompareArcs<PlainBrush>(random, false);
    }
}

// What lies on a black surface of the given size: a digit for each pixel's blue, in sixteenths.
std::vector<std::string> Shown(int w, int h, const std::function<void(LICE_IBitmap*)>& draw) {
    Random random;
    TestSurface surface({w, h}, random);
    std::fill(surface.memory.begin(), surface.memory.end(), 0);
    draw(&surface);
    std::vector<std::string> rows(h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) rows[y] += ".123456789ABCDEF"[(surface.At(x, y) & 0xFF) >> 4];
    return rows;
}

TEST(RoundRect, SidesAndCornersMeet) {
    const auto shown = [](float w, float h, int radius, float alpha, bool aa) {
        return Shown(14, 9,
                     [=](LICE_IBitmap* bm) { LICE_RoundRect(bm, 1, 1, w, h, radius, 0xFFFFFFFF, alpha, 0, aa); });
    };
    const std::vector<std::string> plain = {
        "..............",  //
        "...FFFFFFFF...",  //
        "..F........F..",  //
        ".F..........F.",  //
        ".F..........F.",  //
        ".F..........F.",  //
        "..F........F..",  //
        "...FFFFFFFF...",  //
        "..............",  //
    };
    EXPECT_EQ(shown(11, 6, 3, 1.0f, false), plain);
    EXPECT_EQ(shown(11, 6, 100, 1.0f, false), plain) << "the radius is cut to half of the height";
}

// On any surface it is what lines and arcs make of it, blended twice where they meet.
TEST(RoundRect, IsFourSidesAndFourQuadrants) {
    Random random;
    for (int i = 0; i < 4000; ++i) {
        TestSurface drawn = TestSurface::Any(random, 30, true, random.Of({0, 50}));
        TestSurface expected = drawn;
        const SmoothBrush b = SmoothBrush::Any(random);
        const float x = random.In(-20.0f, 30.0f), y = random.In(-20.0f, 30.0f), w = random.In(4.0f, 40.0f),
                    h = random.In(4.0f, 40.0f);
        const int radius = random.Of({2, 3, 4, 5, 9, 100});
        const bool aa = random.Chance(2);
        LICE_RoundRect(&drawn, x, y, w, h, radius, b.color, b.alpha, b.mode, aa);

        const double o = b.Scales(expected) ? 1.0 - 256.0 / expected.Scale() : 0.0;
        const auto whole = [](float value) { return std::floor(value + 0.5); };
        const double left = whole(x), top = whole(y), right = left + whole(w), bottom = top + whole(h);
        const double r = std::floor(std::min({radius * 1.0, whole(w) / 2, whole(h) / 2}));
        const auto side = [&](double x1, double y1, double x2, double y2) {
            if (b.Scales(expected)) {
                LICE_FLine(&expected, x1, y1, x2, y2, b.color, b.alpha, b.mode, aa);
            } else {
                LICE_Line(&expected, x1, y1, x2, y2, b.color, b.alpha, b.mode, aa);
            }
        };
        side(left + r + o, top + o, right - r - o, top + o);
        side(left + r - 1 + o, bottom - o, right - r - o, bottom - o);
        side(right - o, top + r + o, right - o, bottom - r - o);
        side(left + o, top + r - 1 + o, left + o, bottom - r - o);
        const auto quadrant = [&](double cx, double cy, float low, float high) {
            LICE_Arc(&expected, cx, cy, r, low, high, b.color, b.alpha, b.mode, aa);
        };
        quadrant(left + r + o, top + r + o, -1.5707964f, 0);
        quadrant(right - r - o, top + r + o, 0, 1.5707964f);
        quadrant(right - r - o, bottom - r - o, 1.5707964f, 3.1415927f);
        quadrant(left + r + o, bottom - r - o, 3.1415927f, 4.712389f);
        ASSERT_EQ(drawn.memory, expected.memory) << x << ' ' << y << ' ' << w << ' ' << h << ' ' << radius << " mode "
                                                 << b.mode << " alpha " << b.alpha << " scale " << drawn.Scale();
    }
}

TEST(RoundRect, WithoutRoomForACornerIsARectangle) {
    for (int radius : {-5, 0, 1, 50}) {
        const float h = radius == 50 ? 3 : 6;
        const auto rect = Shown(
            14, 9, [h](LICE_IBitmap* bm) { LICE_DrawRect(bm, 1, 1, 11, static_cast<int>(h), 0xFFFFFFFF, 0.5f, 0); });
        const auto round = Shown(14, 9, [=](LICE_IBitmap* bm) {
            LICE_RoundRect(bm, 0.6f, 1.4f, 11.4f, h, radius, 0xFFFFFFFF, 0.5f, 0, true);
        });
        EXPECT_EQ(round, rect) << radius;
    }
}

TEST(CircleMasks, AreWholeSymmetricAndOneKindToAnother) {
    const auto masks = [](float r, bool aa) {
        return std::pair(SmallCircleMask(r, false, aa), SmallCircleMask(r, true, aa));
    };
    for (float r : {1.0f, 1.5f, 2.0f, 2.5f, 3.0f, 3.5f, 4.0f, 5.0f, 6.0f, 7.0f}) {
        const auto [smooth, smoothFill] = masks(r, true);
        const auto [plain, plainFill] = masks(r, false);
        ASSERT_TRUE(smooth.coverage && smoothFill.coverage);
        ASSERT_EQ(plain.coverage != nullptr, r < 5);
        ASSERT_EQ(plainFill.coverage != nullptr, r < 5);
        const int n = static_cast<int>(2 * r) + 1;
        for (const CircleMask& mask : {smooth, smoothFill, plain, plainFill}) {
            if (!mask.coverage) continue;
            ASSERT_EQ(mask.size, n);
            for (int y = 0; y < n; ++y)
                for (int x = 0; x < n; ++x) {
                    EXPECT_EQ(mask.coverage[y * n + x], mask.coverage[y * n + n - 1 - x]) << r;
                    EXPECT_EQ(mask.coverage[y * n + x], mask.coverage[(n - 1 - y) * n + x]) << r;
                }
        }
        if (r < 3.5f) continue;  // those above are drawn by hand
        // The ring is the plain raster's, here one of almost the same radius and, for the half, of the radius below,
        // parted in the middle. Beyond it an outline and a disc agree; within it a disc is full.
        const auto ring =
            Shown(15, 15, [r](LICE_IBitmap* bm) { LICE_Circle(bm, 7, 7, std::floor(r) + 0.25f, 0xFF, 1, 0, false); });
        const auto disc = Shown(
            15, 15, [r](LICE_IBitmap* bm) { LICE_FillCircle(bm, 7, 7, std::floor(r) + 0.25f, 0xFF, 1, 0, false); });
        for (int y = 0; y < n; ++y)
            for (int x = 0; x < n; ++x) {
                const auto from = [n](int at) { return at * 2 < n ? at + 7 - (n - 1) / 2 : at + 7 - n / 2; };
                const bool onRing = ring[from(y)][from(x)] == 'F', inside = disc[from(y)][from(x)] == 'F';
                const int at = y * n + x;
                EXPECT_EQ(smooth.coverage[at] == 255, onRing) << r << ' ' << x << ' ' << y;
                EXPECT_EQ(smoothFill.coverage[at], inside ? 255 : smooth.coverage[at]) << r << ' ' << x << ' ' << y;
                if (!plain.coverage) continue;
                EXPECT_EQ(plain.coverage[at], onRing ? 255 : 0) << r;
                EXPECT_EQ(plainFill.coverage[at], inside ? 255 : 0) << r;
            }
    }
    EXPECT_EQ(SmallCircleMask(4.5f, true, true).coverage, nullptr);
    EXPECT_EQ(SmallCircleMask(std::nextafter(2.0f, 3.0f), true, true).coverage, nullptr);
}

// Whatever the arguments: nothing outside of the surface, no end that is not reached, nothing undefined.
TEST(Circle, AbsurdArgumentsStayInside) {
    Random random;
    constexpr float inf = std::numeric_limits<float>::infinity(), nan = std::numeric_limits<float>::quiet_NaN();
    const auto real = [&random] {
        return random.Chance(3) ? random.In(-30.0f, 30.0f)
                                : random.Of({-inf, -1e30f, -2147483648.0f, -1073741760.0f, -1e9f, -0.5f, 0.0f, 1e-40f,
                                             4.0f, 1e6f, 16777217.0f, 1073741760.0f, 2147483648.0f, 1e30f, inf, nan});
    };
    for (int i = 0; i < 20000; ++i) {
        TestSurface surface = TestSurface::Any(random, 12, true, 40);
        const std::vector<LICE_pixel> before = surface.memory;
        const PlainBrush brush = PlainBrush::Any(random);
        const float alpha = random.Of({brush.alpha, 1e30f, -1e30f, nan});
        const bool aa = random.Chance(2);
        LICE_Circle(&surface, real(), real(), real(), brush.color, alpha, brush.mode, aa);
        LICE_FillCircle(&surface, real(), real(), real(), brush.color, alpha, brush.mode, aa);
        LICE_Arc(&surface, real(), real(), real(), real(), real(), brush.color, alpha, brush.mode, aa);
        LICE_RoundRect(&surface, real(), real(), real(), real(), random.Of({-1, 2, 5, 1 << 30, 0x7FFFFFFF}),
                       brush.color, alpha, brush.mode, aa);
        ASSERT_TRUE(std::equal(before.begin(), before.begin() + 40, surface.memory.begin()));
        ASSERT_TRUE(std::equal(before.end() - 40, before.end(), surface.memory.end() - 40));
    }
}

}  // namespace
