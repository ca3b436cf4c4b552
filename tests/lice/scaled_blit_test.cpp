#include "lice/scaled_blit.h"

#include "lice/blit.h"
#include "tests/lice/reference.h"
#include "tests/lice/support.h"

constexpr int Filter = LICE_BLIT_FILTER_BILINEAR;

struct Areas {
    int dstx, dsty, dstw, dsth;
    float srcx, srcy, srcw, srch;
};

// The mean of the source pixels around, by weight(dx, dy); a total of 0 means the weights that counted.
template <class Weight>
static LICE_pixel Weighted(TestSurface& src, int64_t column, int64_t row, int reach, int64_t total, Weight weight) {
    int64_t sums[4] = {}, counted = 0;
    for (int dy = -reach; dy <= reach; ++dy) {
        for (int dx = -reach; dx <= reach; ++dx) {
            if (!src.Has(column + dx, row + dy)) continue;
            const LICE_pixel pixel = src.At(static_cast<int>(column + dx), static_cast<int>(row + dy));
            for (int i = 0; i < 4; ++i) sums[i] += weight(dx, dy) * reference::Split(pixel).c[i];
            counted += weight(dx, dy);
        }
    }
    for (int64_t& sum : sums) sum /= total ? total : counted;
    return reference::Join({{sums[0], sums[1], sums[2], sums[3]}});
}

// The surfaces have no draw scale, and the sizes differ.
static void SlowScaledBlit(TestSurface& dest, TestSurface& src, const Areas& s, float alpha, int mode) {
    const int ia = static_cast<int>(alpha * 256.0), modeByte = mode & 0xFF;
    if (ia == 0 || modeByte > 5 || (modeByte == 0 && ia < 0)) return;
    const auto fixed = [](double v) { return static_cast<int64_t>(v * 65536.0); };
    const int64_t xStep = fixed(double{s.srcw} / s.dstw), yStep = fixed(double{s.srch} / s.dsth);
    const double larger = static_cast<double>(std::max(xStep, yStep)) / 65536.0;
    const bool filter = (mode & 0xFF00) == Filter, shrinks = xStep >= 111411 && yStep >= 111411;

    const auto cross = [&](int dx, int dy) -> int64_t {
        if (dx == 0 && dy == 0) return 0x10000;
        const double w = (larger - 1.0) / std::sqrt(dx * dx + dy * dy);
        return w < 0 ? 0 : w > 1.0 ? 0x10000 : static_cast<int64_t>(65536.0 * w);
    };
    for (int y = 0; y < s.dsth; ++y) {
        for (int x = 0; x < s.dstw; ++x) {
            const int64_t sx = fixed(s.srcx) + x * xStep, sy = fixed(s.srcy) + y * yStep;
            const int64_t column = sx >> 16, row = sy >> 16;
            if (!dest.Has(s.dstx + x, s.dsty + y) || !src.Has(column, row)) continue;
            LICE_pixel source = src.At(static_cast<int>(column), static_cast<int>(row));
            if (filter && shrinks) {
                source = Weighted(src, column, row, larger > 3.0 ? 2 : 1, 0, cross);
            } else if (filter) {
                const int64_t xf = src.Has(column + 1, row) ? sx & 0xFFFF : 0;
                const int64_t yf = src.Has(column, row + 1) ? sy & 0xFFFF : 0, w3 = xf * yf >> 16;
                source = Weighted(src, column, row, 1, 65536, [=](int dx, int dy) -> int64_t {
                    if (dx < 0 || dy < 0) return 0;
                    return dx ? (dy ? w3 : xf - w3) : (dy ? yf - w3 : 65536 - yf - xf + w3);
                });
            }
            LICE_pixel& pixel = dest.At(s.dstx + x, s.dsty + y);
            if (mode & LICE_BLIT_USE_ALPHA)
                pixel = reference::CombineAlpha(pixel, source, ia, modeByte);
            else if (modeByte == 0 && ia == 128)
                pixel = (mode & 0x1FFFF) == 0 ? reference::Average(pixel, source) : reference::Mean(pixel, source);
            else
                pixel = reference::Combine(pixel, source, ia, modeByte);
        }
    }
}

TEST(ScaledBlit, EachFamilyAgreesWithAPixelByPixelReference) {
    Random random;
    for (int round = 0; round < 20000; ++round) {
        TestSurface src = TestSurface::Any(random, 24, false, 8);
        TestSurface dest = TestSurface::Any(random, 24, false, 8), expected = dest;
        const bool onItself = random.Chance(8);  // pixel by pixel, each reading what the one before it has left
        Areas s = {random.In(-8, 20),    random.In(-8, 20),    random.In(1, 40),      random.In(1, 40),
                   random.In(-3.f, 9.f), random.In(-3.f, 9.f), random.In(-4.f, 40.f), random.In(0.f, 40.f)};
        if (random.Chance(2)) {  // whole pixels, and sizes in proportion
            s.srcx = std::round(s.srcx), s.srcy = std::round(s.srcy);
            s.srcw = s.dstw * random.Of({0.25f, 0.5f, 1.5f, 1.7f, 3.0f, 4.0f});
            s.srch = s.dsth * random.Of({0.25f, 0.5f, 1.5f, 1.7f, 3.0f, 4.0f});
        }
        if (std::abs(s.srcw - s.dstw) < 0.001f && std::abs(s.srch - s.dsth) < 0.001f) continue;
        const int mode = random.Of({0, 0, 1, 2, 3, 4, 5, 6}) | random.Of({0, Filter, Filter, 0x200}) |
                         (random.Chance(2) ? LICE_BLIT_USE_ALPHA : 0);
        const float alpha = random.Alpha();
        SlowScaledBlit(expected, onItself ? expected : src, s, alpha, mode);
        LICE_ScaledBlit(&dest, onItself ? &dest : &src, s.dstx, s.dsty, s.dstw, s.dsth, s.srcx, s.srcy, s.srcw, s.srch,
                        alpha, mode);
        ASSERT_TRUE(dest.memory == expected.memory)
            << "mode " << mode << " alpha " << alpha << " of " << s.srcx << "," << s.srcy << " " << s.srcw << "x"
            << s.srch << " to " << s.dstx << "," << s.dsty << " " << s.dstw << "x" << s.dsth;
    }
}

TEST(ScaledBlit, EqualSizesAreABlit) {
    Random random;
    TestSurface src({12, 12}, random), dest({12, 12, 0, false, 0, 4}, random);
    const auto blits = [&](float x, float size, int mode, int expectedX) {
        TestSurface scaled = dest, plain = dest;
        LICE_ScaledBlit(&scaled, &src, 1, 2, 6, 6, x, 3.0f, size, 6.0f, 0.5f, mode);
        LICE_BlitRect(&plain, &src, 1, 2, expectedX, 3, 6, 6, 0.5f, mode);
        return scaled.memory == plain.memory;
    };
    EXPECT_TRUE(blits(4.4f, 6.0f, 0, 4));
    EXPECT_TRUE(blits(4.6f, 6.0005f, LICE_BLIT_USE_ALPHA, 5));
    EXPECT_TRUE(blits(4.02f, 6.0f, Filter, 4));
    EXPECT_TRUE(blits(3.98f, 6.0f, Filter | 0xF6, 4));  // channels are copied by blits only
    EXPECT_FALSE(blits(4.4f, 6.0f, Filter, 4));         // bilinear
}

// A blit stretches by the quotient of the scales, and never reads beyond the source.
TEST(ScaledBlit, BlitsBetweenDrawScalesStretch) {
    Random random;
    TestSurface src({6, 6}, random), dest({6, 6, 0, false, 512, 4}, random), back({6, 6, 0, true, 0, 4}, random);
    LICE_Blit(&dest, &src, 1, 0, nullptr, 1.0f, 0);
    LICE_Blit(&back, &dest, 0, 0, nullptr, 1.0f, 0);
    for (int y = 0; y < 12; ++y)
        for (int x = 2; x < 12; ++x) {
            const LICE_pixel pixel = src.At((x - 2) / 2, y / 2);
            ASSERT_EQ(dest.At(x, y), pixel) << x << "," << y;
            ASSERT_EQ(back.At(x / 2, y / 2), pixel) << x << "," << y;
        }
}
