#include "lice/scaled_blit.h"

#include <cmath>

#include "lice/blit.h"
#include "tests/lice/reference.h"
#include "tests/lice/support.h"

namespace {

constexpr int Filter = LICE_BLIT_FILTER_BILINEAR;

struct Stretch {
    int dstx, dsty, dstw, dsth;
    float srcx, srcy, srcw, srch;
};

std::ostream& operator<<(std::ostream& out, const Stretch& s) {
    return out << s.srcx << "," << s.srcy << " " << s.srcw << "x" << s.srch << " -> " << s.dstx << "," << s.dsty << " "
               << s.dstw << "x" << s.dsth;
}

// The sum of all source pixels, each times weight(dx, dy) by its distance from column and row.
template <class Weight>
LICE_pixel Weighted(TestSurface& src, int64_t column, int64_t row, int reach, int64_t fixedTotal, Weight weight) {
    int64_t sums[4] = {}, total = 0;
    for (int dy = -reach; dy <= reach; ++dy) {
        for (int dx = -reach; dx <= reach; ++dx) {
            if (!src.Has(column + dx, row + dy)) continue;
            const int64_t w = weight(dx, dy);
            const reference::Channels k =
                reference::Split(src.At(static_cast<int>(column + dx), static_cast<int>(row + dy)));
            for (int i = 0; i < 4; ++i) sums[i] += w * k.c[i];
            total += w;
        }
    }
    const int64_t divisor = fixedTotal ? fixedTotal : total;
    return reference::Join({{sums[0] / divisor, sums[1] / divisor, sums[2] / divisor, sums[3] / divisor}});
}

// For surfaces without draw scale, at sizes that are not those of the source.
void SlowScaledBlit(TestSurface& dest, TestSurface& src, const Stretch& s, float alpha, int mode) {
    const int ia = static_cast<int>(alpha * 256.0), modeByte = mode & 0xFF;
    if (s.dstw <= 0 || s.dsth <= 0 || ia == 0 || modeByte > 5 || (modeByte == 0 && ia < 0)) return;
    const auto fixed = [](double v) { return static_cast<int64_t>(v * 65536.0); };
    const int64_t xStep = fixed(double{s.srcw} / s.dstw), yStep = fixed(double{s.srch} / s.dsth);
    const double larger = static_cast<double>(std::max(xStep, yStep)) / 65536.0;
    const bool filter = (mode & 0xFF00) == Filter, shrinks = xStep >= 111411 && yStep >= 111411;
    const bool alphaForm = (mode & LICE_BLIT_USE_ALPHA) != 0, nearest = (mode & 0x1FFFF) == 0;

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
            if (alphaForm) {
                pixel = reference::CombineAlpha(pixel, source, ia, modeByte);
            } else if (modeByte == 0 && ia == 128) {
                pixel = nearest ? reference::Average(pixel, source) : reference::Mean(pixel, source);
            } else {
                pixel = reference::Combine(pixel, source, ia, modeByte);
            }
        }
    }
}

}  // namespace

TEST(ScaledBlit, EachFamilyAgreesWithAPixelByPixelReference) {
    Random random;
    for (int round = 0; round < 20000; ++round) {
        TestSurface src = TestSurface::Any(random, 24, false, 0);
        TestSurface dest = TestSurface::Any(random, 24, false, 8);
        TestSurface expected = dest;
        Stretch s = {random.In(-8, 20),    random.In(-8, 20),    random.In(1, 40),      random.In(1, 40),
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
        SlowScaledBlit(expected, src, s, alpha, mode);
        LICE_ScaledBlit(&dest, &src, s.dstx, s.dsty, s.dstw, s.dsth, s.srcx, s.srcy, s.srcw, s.srch, alpha, mode);
        ASSERT_EQ(dest.memory, expected.memory)
            << "round " << round << " mode " << std::hex << mode << " alpha " << alpha << " " << s;
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

// Surfaces of different scale: a blit stretches by their quotient, and never reads past what the source has.
TEST(ScaledBlit, BlitsBetweenDrawScalesStretch) {
    Random random;
    TestSurface src({6, 6}, random), dest({6, 6, 0, false, 512, 4}, random);
    LICE_Blit(&dest, &src, 1, 0, nullptr, 1.0f, 0);
    for (int y = 0; y < 12; ++y) {
        for (int x = 2; x < 12; ++x) ASSERT_EQ(dest.At(x, y), src.At((x - 2) / 2, y / 2)) << x << "," << y;
    }
    TestSurface back({6, 6, 0, true, 0, 4}, random);
    LICE_Blit(&back, &dest, 0, 0, nullptr, 1.0f, 0);
    for (int y = 0; y < 6; ++y) {
        for (int x = 1; x < 6; ++x) ASSERT_EQ(back.At(x, y), src.At(x - 1, y)) << x << "," << y;
    }
}

TEST(ScaledBlit, OverlapIsWalkedPixelByPixel) {
    Random random;
    for (int round = 0; round < 2000; ++round) {
        TestSurface both = TestSurface::Any(random, 20, false, 8), expected = both;
        const Stretch s = {random.In(0, 6), random.In(0, 6), random.In(1, 20), random.In(1, 20), 0.25f, 0, 7.5f, 9.0f};
        const int mode = random.Of({0, Filter}) | (random.Chance(2) ? LICE_BLIT_USE_ALPHA : 0);
        SlowScaledBlit(expected, expected, s, 0.75f, mode);
        LICE_ScaledBlit(&both, &both, s.dstx, s.dsty, s.dstw, s.dsth, s.srcx, s.srcy, s.srcw, s.srch, 0.75f, mode);
        ASSERT_EQ(both.memory, expected.memory) << "round " << round << " mode " << std::hex << mode << " " << s;
    }
}

TEST(ScaledBlit, AbsurdArgumentsStayInside) {
    Random random;
    const int ints[] = {INT_MIN, INT_MIN + 1, -70000, -1, 0, 1, 5, 70000, INT_MAX - 1, INT_MAX};
    const float floats[] = {0.0f, -1.0f, 1e-30f, 1e-5f, 65536.0f, 2147483648.0f, 1e30f, HUGE_VALF, -HUGE_VALF, NAN};
    for (int round = 0; round < 20000; ++round) {
        TestSurface src = TestSurface::Any(random, 9, true, 0), dest = TestSurface::Any(random, 9, true, 0);
        const auto any = [&] { return random.Chance(3) ? random.Of(ints) : random.In(-3, 12); };
        const auto anyFloat = [&] { return random.Chance(3) ? random.Of(floats) : random.In(-3.f, 12.f); };
        LICE_ScaledBlit(&dest, &src, any(), any(), any(), any(), anyFloat(), anyFloat(), anyFloat(), anyFloat(),
                        random.Chance(8) ? anyFloat() : 1.0f, random.Of({0, 1, Filter, 0xF6, 0x20000, 0x10100}));
    }
    LICE_ScaledBlit(nullptr, nullptr, 0, 0, 5, 5, 0, 0, 5, 5, 1.0f, 0);
}
