#include "lice/blit.h"

#include "lice/lice.h"
#include "tests/lice/reference.h"
#include "tests/lice/support.h"

static LICE_pixel BlitPixel(LICE_pixel old, LICE_pixel source, float alpha, int mode) {
    const int modeByte = mode & 0xFF, from = (mode & 3) * 8, to = (mode >> 2 & 3) * 8;
    if (modeByte >= 0xF0) return (old & ~(255u << to)) | (source >> from & 255) << to;
    const bool plain = modeByte == 0 && !(mode & LICE_BLIT_USE_ALPHA);
    if (plain && alpha == 0.5f) return reference::Average(old, source);
    const int ia = static_cast<int>(alpha * 256.0);
    if (ia == 0 || modeByte > 5 || (modeByte == 0 && ia < 0)) return old;
    if (mode & LICE_BLIT_USE_ALPHA) return reference::CombineAlpha(old, source, ia, modeByte);
    return reference::Combine(old, source, ia, modeByte);
}

// Every pixel asks for itself whether both surfaces have it. Rows of an opaque copy are read before they are written.
static void SlowBlit(TestSurface& dest, TestSurface& src, int dstx, int dsty, const RECT* source, float alpha,
                     int mode) {
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

static int AnyMode(Random& random) {
    int mode = random.Of({0, 0, 0, 1, 2, 3, 4, 5, 6, 0xEF, random.In(0xF0, 0xFF)});
    if (random.Chance(2)) mode |= LICE_BLIT_USE_ALPHA;
    return mode | random.Of({0, 0, 0x100, 0x7E00, 0x40000000});
}

// Draw scales differ only where the mode counts backing pixels.
TEST(Blit, AgreesWithAPixelByPixelReference) {
    Random random;
    for (int round = 0; round < 30000; ++round) {
        const int scale = random.Of({0, 0, 0, 0, 512, 384, 300, 128, 100, 1});
        const bool ignored = random.Chance(3);
        const auto surface = [&](int own, int border) {
            return TestSurface({random.In(1, 24), random.In(1, 24), random.In(0, 3), random.Chance(2), own, border},
                               random);
        };
        TestSurface src = surface(scale, 0), dest = surface(ignored ? random.Of({0, 200, 512}) : scale, 8);
        TestSurface expected = dest;
        const int dstx = random.In(-20, 28), dsty = random.In(-20, 28);
        const int mode = AnyMode(random) | (ignored ? LICE_BLIT_IGNORE_SCALING : 0);
        const float alpha = random.Alpha();
        const RECT r = {random.In(-6, 20), random.In(-6, 20), random.In(-2, 45), random.In(-2, 45)};
        const RECT* source = random.Chance(4) ? nullptr : &r;
        SlowBlit(expected, src, dstx, dsty, source, alpha, mode);
        if (source && random.Chance(2))
            LICE_BlitRect(&dest, &src, dstx, dsty, r.left, r.top, r.right - r.left, r.bottom - r.top, alpha, mode);
        else
            LICE_Blit(&dest, &src, dstx, dsty, source, alpha, mode);
        ASSERT_TRUE(dest.memory == expected.memory) << "mode " << mode << " alpha " << alpha << " scale " << scale;
    }
}

TEST(Blit, OverlapIsWalkedInPlainOrder) {
    Random random;
    for (int round = 0; round < 5000; ++round) {
        TestSurface both = TestSurface::Any(random, 40, false, 8), expected = both;
        const bool wholeRows = random.Chance(3);
        const RECT r = wholeRows ? RECT{0, random.In(0, 4), 40, random.In(1, 40)}
                                 : RECT{random.In(0, 4), random.In(0, 4), random.In(1, 40), random.In(1, 40)};
        const int dstx = wholeRows ? 0 : r.left + random.In(-9, 9), dsty = r.top + random.Of({0, 0, -1, 1});
        // The source-alpha copy reads furthest ahead.
        const int mode = random.Chance(3) ? LICE_BLIT_USE_ALPHA : AnyMode(random);
        const float alpha = random.Chance(2) ? 1.0f : random.Alpha();
        SlowBlit(expected, expected, dstx, dsty, &r, alpha, mode);
        LICE_Blit(&both, &both, dstx, dsty, &r, alpha, mode);
        ASSERT_TRUE(both.memory == expected.memory) << "mode " << mode << " alpha " << alpha;
    }
}

// All old and source bytes and all alphas, at some opacities.
TEST(Blit, SourceAlphaIsExactForEveryPairOfBytes) {
    Random random;
    TestSurface src({256, 256}, random), dest({256, 256}, random);
    for (const int ia : {256, 255, 200, 129, 128, 64, 1, 257, 300}) {
        for (int a = 0; a < 256; a += ia == 256 ? 1 : 5) {
            for (int i = 0; i < 65536; ++i) {
                const int d = i >> 8, s = i & 255;
                src.memory[i] = LICE_RGBA(s, 255 - s, s ^ 0x55, a);
                dest.memory[i] = LICE_RGBA(d, 255 - d, d, s);
            }
            TestSurface expected = dest;
            SlowBlit(expected, src, 0, 0, nullptr, ia / 256.0f, LICE_BLIT_USE_ALPHA);
            LICE_Blit(&dest, &src, 0, 0, nullptr, ia / 256.0f, LICE_BLIT_USE_ALPHA);
            ASSERT_TRUE(dest.memory == expected.memory) << "alpha byte " << a << ", opacity " << ia;
        }
    }
}
