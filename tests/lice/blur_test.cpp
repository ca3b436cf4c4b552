#include "lice/blur.h"

#include "tests/lice/support.h"

// Half of each channel for 1, a quarter for 2, an eighth for 3.
static LICE_pixel Share(LICE_pixel p, int shift) {
    LICE_pixel share = 0;
    for (int byte = 0; byte < 32; byte += 8) share |= (p >> byte & 255) >> shift << byte;
    return share;
}

// Coordinates count pixels as the sizes read, whatever the scale.
static LICE_pixel& At(TestSurface& surface, int x, int y) {
    return surface.getBits()[(surface.isFlipped() ? surface.getHeight() - 1 - y : y) * surface.getRowSpan() + x];
}

// A row and the one above count as they were before. The last row's neighbour counts as it is found.
static void SlowBlur(TestSurface& dest, TestSurface& src, int dstx, int dsty, int srcx, int srcy, int srcw, int srch) {
    for (const TestSurface* surface : {&dest, &src})
        if (surface->Scale() > 0 && surface->Scale() < 256) return;
    int left = std::max(srcx, 0), top = std::max(srcy, 0);
    const int right = std::min(srcx + srcw, src.getWidth()), bottom = std::min(srcy + srch, src.getHeight());
    if (dstx < 0) left -= dstx, dstx = 0;
    if (dsty < 0) top -= dsty, dsty = 0;
    const int w = std::min(right - left, dest.getWidth() - dstx), h = std::min(bottom - top, dest.getHeight() - dsty);
    if (w < 2 || h < 2) return;

    std::vector<LICE_pixel> above, own(w);
    for (int y = 0; y < h; ++y) {
        above = own;
        for (int x = 0; x < w; ++x) own[x] = At(src, left + x, top + y);
        for (int x = 0; x < w; ++x) {
            const auto now = [&](int row) { return At(src, left + x, top + row); };
            const LICE_pixel beside = x == 0       ? Share(own[1], 2)
                                      : x == w - 1 ? Share(own[x - 1], 2)
                                                   : Share(own[x + 1], 3) + Share(own[x - 1], 3);
            const LICE_pixel across = y == 0       ? Share(now(1), 2)
                                      : y == h - 1 ? Share(now(y - 1), 2)
                                                   : Share(above[x], 3) + Share(now(y + 1), 3);
            At(dest, dstx + x, dsty + y) = Share(own[x], 1) + beside + across;
        }
    }
}

// Some are too wide for the lines kept on the stack.
TEST(Blur, AgreesWithAPixelByPixelReferenceInPlaceAndApart) {
    Random random;
    for (int round = 0; round < 10000; ++round) {
        const int widest = random.Chance(50) ? 2000 : 16;
        const auto surface = [&] {
            const int scale = random.Chance(8) ? random.Of({128, 300, 512}) : 0;
            return TestSurface({random.In(1, widest), random.In(1, 16), random.In(0, 3), random.Chance(2), scale, 8},
                               random);
        };
        TestSurface src = surface(), other = surface(), slowSrc = src, slowOther = other;
        const bool inPlace = random.Chance(2);
        const int x = random.In(-3, 8), y = random.In(-3, 8), w = random.In(-1, widest + 4), h = random.In(-1, 20);
        const int dstx = random.Chance(3) ? random.In(-5, 10) : x, dsty = random.Chance(3) ? random.In(-5, 10) : y;
        SlowBlur(inPlace ? slowSrc : slowOther, slowSrc, dstx, dsty, x, y, w, h);
        LICE_Blur(inPlace ? &src : &other, &src, dstx, dsty, x, y, w, h);
        ASSERT_TRUE(src.memory == slowSrc.memory && other.memory == slowOther.memory) << "round " << round;
    }
}
