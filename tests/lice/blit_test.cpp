#include "lice/blit.h"

#include "lice/lice.h"
#include "tests/lice/reference.h"
#include "tests/lice/support.h"

namespace {

LICE_pixel BlitPixel(LICE_pixel old, LICE_pixel source, float alpha, int mode) {
    const int modeByte = mode & 0xFF, from = (mode & 3) * 8, to = (mode >> 2 & 3) * 8;
    if (modeByte >= 0xF0) return (old & ~(255u << to)) | (source >> from & 255) << to;
    const bool plain = modeByte == 0 && !(mode & LICE_BLIT_USE_ALPHA);
    if (plain && alpha == 1.0f) return source;
    if (plain && alpha == 0.5f) return reference::Average(old, source);
    const int ia = static_cast<int>(alpha * 256.0);
    if (ia == 0 || modeByte > 5 || (modeByte == 0 && ia < 0)) return old;
    if (mode & LICE_BLIT_USE_ALPHA) return reference::CombineAlpha(old, source, ia, modeByte);
    return reference::Combine(old, source, ia, modeByte);
}

// Every pixel of the rectangle asks for itself whether both surfaces have it. Rows that move as a whole (an opaque
// copy) are read before they are written.
void SlowBlit(TestSurface& dest, TestSurface& src, int dstx, int dsty, const RECT* source, float alpha, int mode) {
    if (alpha == 0.0f) return;
    RECT r = {0, 0, src.BackingWidth(), src.BackingHeight()};
    if (source) {
        if (source->left < 0) dstx -= source->left;
        if (source->top < 0) dsty -= source->top;
        r = {std::max<LONG>(source->left, 0), std::max<LONG>(source->top, 0), std::min(source->right, r.right),
             std::min(source->bottom, r.bottom)};
    }
    if (src.Scale() > 0 && !(mode & LICE_BLIT_IGNORE_SCALING)) {
        const auto scaled = [&](auto& value) { value = static_cast<int>(reference::ScaleCoord(value, src.Scale())); };
        scaled(dstx), scaled(dsty), scaled(r.left), scaled(r.top), scaled(r.right), scaled(r.bottom);
    }
    for (LONG y = r.top; y < r.bottom; ++y) {
        std::vector<LICE_pixel> row;
        for (LONG x = r.left; x < r.right; ++x) row.push_back(src.Has(x, y) ? src.At(x, y) : 0);
        const bool whole = alpha == 1.0f && (mode & (LICE_BLIT_USE_ALPHA | 0xFF)) == 0;
        for (LONG x = r.left; x < r.right; ++x) {
            const int64_t dx = int64_t{x} - r.left + dstx, dy = int64_t{y} - r.top + dsty;
            if (!src.Has(x, y) || !dest.Has(dx, dy)) continue;
            LICE_pixel& pixel = dest.At(static_cast<int>(dx), static_cast<int>(dy));
            pixel = BlitPixel(pixel, whole ? row[x - r.left] : src.At(x, y), alpha, mode);
        }
    }
}

int AnyMode(Random& random) {
    int mode = random.Of({0, 0, 0, 1, 2, 3, 4, 5, 6, 0xEF, random.In(0xF0, 0xFF)});
    if (random.Chance(2)) mode |= LICE_BLIT_USE_ALPHA;
    if (random.Chance(4)) mode |= LICE_BLIT_IGNORE_SCALING;
    return mode | random.Of({0, 0, 0x100, 0x7E00, 0x40000000});
}

}  // namespace

TEST(Blit, AgreesWithAPixelByPixelReference) {
    Random random;
    for (int round = 0; round < 20000; ++round) {
        TestSurface src = TestSurface::Any(random, 24, false, 0);
        TestSurface dest = TestSurface::Any(random, 24, false, 8);
        TestSurface expected = dest;
        const int dstx = random.In(-20, 28), dsty = random.In(-20, 28), mode = AnyMode(random);
        const float alpha = random.Alpha();
        const RECT r = {random.In(-6, 20), random.In(-6, 20), random.In(-2, 30), random.In(-2, 30)};
        const bool whole = random.Chance(4), byRect = random.Chance(2);
        SlowBlit(expected, src, dstx, dsty, whole ? nullptr : &r, alpha, mode);
        if (byRect && !whole) {
            LICE_BlitRect(&dest, &src, dstx, dsty, r.left, r.top, r.right - r.left, r.bottom - r.top, alpha, mode);
        } else {
            LICE_Blit(&dest, &src, dstx, dsty, whole ? nullptr : &r, alpha, mode);
        }
        ASSERT_EQ(dest.memory, expected.memory)
            << "round " << round << " mode " << std::hex << mode << " alpha " << alpha;
    }
}

TEST(Blit, OverlapIsWalkedInPlainOrder) {
    Random random;
    for (int round = 0; round < 5000; ++round) {
        TestSurface both = TestSurface::Any(random, 20, false, 8);
        TestSurface expected = both;
        const bool wholeRows = random.Chance(3);
        const RECT r = wholeRows ? RECT{0, random.In(0, 4), 20, random.In(1, 20)}
                                 : RECT{random.In(0, 4), random.In(0, 4), random.In(1, 20), random.In(1, 20)};
        const int dstx = wholeRows ? 0 : r.left + random.In(-9, 9), dsty = r.top + random.In(-1, 1);
        const int mode = AnyMode(random);
        const float alpha = random.Alpha();
        SlowBlit(expected, expected, dstx, dsty, &r, alpha, mode);
        LICE_Blit(&both, &both, dstx, dsty, &r, alpha, mode);
        ASSERT_EQ(both.memory, expected.memory)
            << "round " << round << " mode " << std::hex << mode << " alpha " << alpha;
    }
}

// Surfaces of one scale, and of two where the mode counts backing pixels.
TEST(Blit, HonoursDrawScales) {
    Random random;
    for (int round = 0; round < 10000; ++round) {
        const int scale = random.Of({512, 384, 300, 128, 100, 1});
        const bool ignored = random.Chance(3);
        const auto shape = [&](int own, int border) {
            return TestSurface::Shape{
                random.In(1, 20), random.In(1, 20), random.In(0, 3), random.Chance(2), own, border};
        };
        TestSurface src(shape(scale, 0), random);
        TestSurface dest(shape(ignored ? random.Of({0, 200, 512}) : scale, 8), random);
        TestSurface expected = dest;
        const int mode = random.Of({0, 1, LICE_BLIT_USE_ALPHA, 0xF6}) | (ignored ? LICE_BLIT_IGNORE_SCALING : 0);
        const int dstx = random.In(-10, 30), dsty = random.In(-10, 30);
        const RECT r = {random.In(-6, 20), random.In(-6, 20), random.In(-2, 45), random.In(-2, 45)};
        const RECT* source = random.Chance(4) ? nullptr : &r;
        const float alpha = random.Alpha();
        SlowBlit(expected, src, dstx, dsty, source, alpha, mode);
        LICE_Blit(&dest, &src, dstx, dsty, source, alpha, mode);
        ASSERT_EQ(dest.memory, expected.memory) << "round " << round << " scale " << scale << " mode " << mode;
    }
}

// The vector form of the source-alpha copy, over all old and source bytes, alphas and a choice of opacities.
TEST(Blit, SourceAlphaIsExactForEveryPairOfBytes) {
    Random random;
    TestSurface src({256, 256}, random), dest({256, 256}, random);
    for (const int ia : {256, 255, 200, 129, 128, 64, 1, 257, 300}) {
        for (int a = 0; a < 256; a += ia == 256 ? 1 : 5) {
            for (int d = 0; d < 256; ++d) {
                for (int s = 0; s < 256; ++s) {
                    src.At(s, d) = LICE_RGBA(s, 255 - s, s ^ 0x55, a);
                    dest.At(s, d) = LICE_RGBA(d, 255 - d, d, s);
                }
            }
            TestSurface expected = dest;
            SlowBlit(expected, src, 0, 0, nullptr, ia / 256.0f, LICE_BLIT_USE_ALPHA);
            LICE_Blit(&dest, &src, 0, 0, nullptr, ia / 256.0f, LICE_BLIT_USE_ALPHA);
            ASSERT_EQ(dest.memory, expected.memory) << "alpha byte " << a << ", opacity " << ia;
        }
    }
}

TEST(Blit, AbsurdArgumentsStayInside) {
    Random random;
    const int ints[] = {INT_MIN, INT_MIN + 1, -70000, -1, 0, 1, 5, 70000, INT_MAX - 1, INT_MAX};
    const float floats[] = {0.0f, -1.0f, 1.0f, 1e30f, -1e30f, 1e-30f, HUGE_VALF, -HUGE_VALF, NAN};
    for (int round = 0; round < 20000; ++round) {
        TestSurface src = TestSurface::Any(random, 9, true, 0);
        TestSurface dest = TestSurface::Any(random, 9, true, 0);
        const auto any = [&] { return random.Chance(2) ? random.Of(ints) : random.In(-3, 12); };
        const RECT r = {any(), any(), any(), any()};
        LICE_Blit(&dest, &src, any(), any(), &r, random.Of(floats), AnyMode(random));
        LICE_BlitRect(&dest, &src, any(), any(), any(), any(), any(), any(), random.Of(floats), AnyMode(random));
    }
    TestSurface one({3, 3}, random), copy = one;
    LICE_Blit(nullptr, &one, 0, 0, nullptr, 1.0f, 0);
    LICE_Blit(&one, nullptr, 0, 0, nullptr, 1.0f, 0);
    EXPECT_EQ(one.memory, copy.memory);
}
