// Circles and arcs against a slow raster that walks them pixel by pixel and tests every one.
#include "lice/circle.h"

#include "lice/circle_masks.h"
#include "lice/glyph.h"
#include "tests/lice/brush.h"

struct Round {
    float cx, cy, r;
    static Round Any(Random& random, int size) {
        const float edge = static_cast<float>(size);
        Round any{random.In(-0.3f * edge, 1.3f * edge), random.In(-0.3f * edge, 1.3f * edge), random.In(0.0f, edge)};
        if (random.Chance(2)) any.cx = std::floor(any.cx) + random.Of({0.0f, 0.5f, 0.25f});
        if (random.Chance(2)) any.cy = std::floor(any.cy) + random.Of({0.0f, 0.5f, 0.75f});
        if (random.Chance(3)) any.r = std::floor(any.r * 2) / 2;
        if (random.Chance(4)) any.r = random.Of({1.0f, 1.5f, 2.0f, 2.5f, 3.0f, 3.5f, 4.0f, 5.0f, 6.0f, 7.0f, 35.0f});
        if (random.Chance(150)) {  // huge, with its edge on the surface
            const float angle = random.In(0.0f, 6.3f);
            any.r = random.In(300.0f, 30000.0f);
            any.cx = edge / 2 + std::floor(any.r * std::sin(angle));
            any.cy = edge / 2 + std::floor(any.r * std::cos(angle));
        }
        return any;
    }
    bool Huge() const { return r > 200; }
    Round Scaled(int scale) const {
        const auto scaled = [scale](float value) { return static_cast<float>(value * double{1} * scale / 256.0); };
        return {scaled(cx), scaled(cy), scaled(r)};
    }
};

// Draws boxes and single points step by step, each cut to the clip pixel by pixel.
class SlowRaster {
  public:
    SlowRaster(TestSurface& surface, RECT clip, const Brush& brush, bool aa)
        : surface_(surface), clip_(clip), brush_(brush), ia_(brush.Ia()), aa_(aa) {}

    void Draw(const Round& c, bool fill) {
        xc_ = static_cast<int>(std::floor(0.5 + c.cx));
        yc_ = static_cast<int>(std::floor(0.5 + c.cy));
        fill_ = fill;
        aa_ ? Smooth(c.r) : Plain(static_cast<int>(0.5 + c.r));
    }

  private:
    // Places count from the middle.
    void Point(int x, int y, int weight) {
        x += xc_, y += yc_;
        if (x >= clip_.left && x < clip_.right && y >= clip_.top && y < clip_.bottom)
            brush_.Blend(surface_, x, y, weight, aa_ ? CopyForms::General : CopyForms::SolidHalf);
    }
    void Box(int left, int top, int right, int bottom) {
        for (int y = top; y <= bottom; ++y)
            for (int x = left; x <= right; ++x) Point(x, y, ia_);
    }
    void Four(int x, int y, int weight) {
        for (int side : {-x, x}) Point(side, -y, weight), Point(side, y, weight);
    }
    void Ends(int r, int weight) {
        for (int reach : {-r, r}) Point(0, reach, weight), Point(reach, 0, weight);
    }
    void Cross(int r) {
        Box(0, -r, 0, -1);
        Box(0, 1, 0, r);
        Box(-r, 0, r, 0);
    }
    void Wedges(int i, int reach) {
        for (int at : {-i, i}) {
            Box(at, -reach, at, -i - 1);
            Box(at, i + 1, at, reach);
            Box(-reach, at, -i, at);
            Box(i, at, reach, at);
        }
    }

    void Plain(int r) {
        fill_ ? Cross(r) : Ends(r, ia_);
        for (int d = -r, i = 1, y = r; i < y; ++i) {
            int step = i;
            if (d >= 0) step = i - --y;
            d += step * 2 + 1;
            if (fill_) {
                Wedges(i, y);
            } else {
                Four(i, y, ia_);
                if (i != y) Four(y, i, ia_);
            }
        }
    }

    void Smooth(float r) {
        const int whole = static_cast<int>(r);
        const auto share = [this](double value) { return static_cast<int>(ia_ * (value - std::floor(value))); };
        Ends(whole + 1, share(r));
        fill_ ? Cross(whole) : Ends(whole, ia_ - share(r));
        for (int i = 1;; ++i) {
            const double f = std::sqrt(static_cast<double>(r) * r - static_cast<double>(i) * i);
            if (!(i <= 0.5 + f)) return;  // nor for NaN
            const int limit = static_cast<int>(0.5 + f), k = static_cast<int>(f), inside = ia_ - share(f);
            Four(i, k + 1, share(f));
            if (i != limit) Four(k + 1, i, share(f));
            if (fill_) {
                Wedges(i, k);
                continue;
            }
            for (int sign : {-1, 1}) {
                Point(sign * k, -i, inside);
                Point(sign * i, k, inside);
                if (i == limit) continue;
                Point(sign * i, -k, inside);
                Point(sign * k, i, inside);
            }
        }
    }

    TestSurface& surface_;
    RECT clip_;
    Brush brush_;
    int ia_;
    bool aa_;
    int xc_ = 0, yc_ = 0;
    bool fill_ = false;
};

static void DrawSlowly(TestSurface& surface, const Brush& brush, Round c, bool aa, bool fill) {
    if (brush.Scales(surface)) c = c.Scaled(surface.Scale());
    if (const CircleMask mask = SmallCircleMask(c.r, fill, aa); mask.coverage) {
        LICE_DrawGlyph(&surface, static_cast<int>(c.cx - c.r), static_cast<int>(c.cy - c.r), brush.color, mask.coverage,
                       mask.size, mask.size, brush.alpha, brush.mode | LICE_BLIT_IGNORE_SCALING);
        return;
    }
    const RECT all{0, 0, surface.BackingWidth(), surface.BackingHeight()};
    if (surface.isFlipped()) c.cy = static_cast<float>(all.bottom - 1) - c.cy;
    SlowRaster(surface, all, brush, aa).Draw(c, fill);
}

TEST(Circle, RingsAndDiscsAreThoseOfTheWalkedRaster) {
    CompareRounds(12000, [](Random& random, const Brush& brush, TestSurface& drawn, TestSurface& expected) {
        const Round c = Round::Any(random, drawn.getWidth());
        const bool aa = random.Chance(2), fill = !c.Huge() && random.Chance(2);
        (fill ? LICE_FillCircle : LICE_Circle)(&drawn, c.cx, c.cy, c.r, brush.color, brush.alpha, brush.mode, aa);
        DrawSlowly(expected, brush, c, aa, fill);
        return Called(fill ? "disc" : "ring", c.cx, c.cy, c.r, "aa", aa);
    });
}

// The whole circle is drawn in a box for each quadrant, around the arc's two ends there.
static void DrawArcSlowly(TestSurface& surface, const Brush& brush, Round c, float low, float high, bool aa) {
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
        SlowRaster(surface, box, brush, aa).Draw(c, false);
        start = next;
    }
}

TEST(Arc, ShowsTheCircleInABoxForEachQuadrant) {
    CompareRounds(12000, [](Random& random, const Brush& brush, TestSurface& drawn, TestSurface& expected) {
        const Round c = Round::Any(random, 30);
        float low = random.In(-14.0f, 14.0f), high = random.In(-14.0f, 14.0f);
        if (random.Chance(2)) {
            low = static_cast<float>(random.In(-4, 4)) * 1.5707964f;
            high = low + static_cast<float>(random.In(-4, 4)) * 1.5707964f;
        }
        const bool aa = random.Chance(2);
        LICE_Arc(&drawn, c.cx, c.cy, c.r, low, high, brush.color, brush.alpha, brush.mode, aa);
        DrawArcSlowly(expected, brush, c, low, high, aa);
        return Called(c.cx, c.cy, c.r, "from", low, "to", high, "aa", aa);
    });
}

// One number stands for all coverage of a radius.
TEST(CircleMasks, AreThoseThatWereDrawn) {
    const std::tuple<float, bool, uint32_t> rows[] = {
        {1.0f, true, 0x50BABBCF},  {1.5f, true, 0xD576D940}, {2.0f, true, 0x376F0A82}, {2.5f, true, 0x7D3AEF80},
        {3.0f, true, 0x05FCFF2A},  {3.5f, true, 0x75B0D800}, {4.0f, true, 0xE4740EC6}, {5.0f, false, 0x368BAC3F},
        {6.0f, false, 0x006930FF}, {7.0f, false, 0x16D138F7}};
    for (const auto& [r, plain, wanted] : rows) {  // whether plain ones are held
        uint32_t fingerprint = 0;
        for (int kind = 0; kind < 4; ++kind) {  // outline and fill, anti-aliased and plain
            const CircleMask mask = SmallCircleMask(r, kind & 1, kind < 2);
            ASSERT_EQ(mask.coverage != nullptr, kind < 2 || plain) << r;
            for (int i = 0; mask.coverage && i < mask.size * mask.size; ++i)
                fingerprint = fingerprint * 31 + mask.coverage[i];
        }
        EXPECT_EQ(fingerprint, wanted) << r;
    }
    EXPECT_EQ(SmallCircleMask(4.5f, true, true).coverage, nullptr);
    EXPECT_EQ(SmallCircleMask(std::nextafter(2.0f, 3.0f), true, true).coverage, nullptr);
}
