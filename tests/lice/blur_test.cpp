#include "lice/blur.h"

#include "tests/lice/support.h"

namespace {

// The filter as the table of shares that it is: of itself, of the neighbours at its sides, of those above and below.
LICE_pixel Share(LICE_pixel p, int shift) {
    LICE_pixel share = 0;
    for (int byte = 0; byte < 32; byte += 8) share |= (p >> byte & 255) >> shift << byte;
    return share;
}

// Rows top to bottom. In place, a row and the one above count as they were before; all else as it is found.
void SlowBlur(TestSurface& dest, TestSurface& src, int dstx, int dsty, int srcx, int srcy, int srcw, int srch) {
    const bool inPlace = &dest == &src;
    int64_t left = std::max(srcx, 0), top = std::max(srcy, 0);
    int64_t right = std::min(srcx + srcw, src.getWidth()), bottom = std::min(srcy + srch, src.getHeight());
    if (dstx < 0) left -= dstx, dstx = 0;
    if (dsty < 0) top -= dsty, dsty = 0;
    right = std::min(right, left + dest.getWidth() - dstx);
    bottom = std::min(bottom, top + dest.getHeight() - dsty);
    if (right - left < 2 || bottom - top < 2) return;

    const auto row = [&](int64_t y) {
        std::vector<LICE_pixel> pixels;
        for (int64_t x = left; x < right; ++x) pixels.push_back(src.At(static_cast<int>(x), static_cast<int>(y)));
        return pixels;
    };
    std::vector<LICE_pixel> own, above;
    for (int64_t y = top; y < bottom; ++y) {
        above = y > top && y < bottom - 1 && inPlace ? own : row(std::max(y - 1, top));
        own = row(y);
        const bool edgeRow = y == top || y == bottom - 1;
        for (int64_t x = left; x < right; ++x) {
            const auto at = [&](const std::vector<LICE_pixel>& pixels, int64_t column) {
                return pixels[column - left];
            };
            // What was written so far shows in the row below, where the two rectangles lie so.
            const LICE_pixel below = y + 1 < bottom ? src.At(static_cast<int>(x), static_cast<int>(y + 1)) : 0;
            const LICE_pixel over =
                y == bottom - 1 ? src.At(static_cast<int>(x), static_cast<int>(y - 1)) : at(above, x);
            LICE_pixel sum = Share(at(own, x), 1);
            if (x == left) {
                sum += Share(at(own, x + 1), 2);
            } else if (x == right - 1) {
                sum += Share(at(own, x - 1), 2);
            } else {
                sum += Share(at(own, x + 1), 3) + Share(at(own, x - 1), 3);
            }
            sum += edgeRow ? Share(y == top ? below : over, 2) : Share(over, 3) + Share(below, 3);
            dest.At(static_cast<int>(x - left + dstx), static_cast<int>(y - top + dsty)) = sum;
        }
    }
}

}  // namespace

TEST(Blur, AgreesWithAPixelByPixelReferenceInPlaceAndApart) {
    Random random;
    for (int round = 0; round < 10000; ++round) {
        TestSurface src = TestSurface::Any(random, 16, false, 8);
        TestSurface other = TestSurface::Any(random, 16, false, 8);
        TestSurface slowSrc = src, slowOther = other;
        const bool inPlace = random.Chance(2);
        const int x = random.In(-3, 8), y = random.In(-3, 8), w = random.In(-1, 20), h = random.In(-1, 20);
        const int dstx = random.Chance(3) ? random.In(-5, 10) : x, dsty = random.Chance(3) ? random.In(-5, 10) : y;
        SlowBlur(inPlace ? slowSrc : slowOther, slowSrc, dstx, dsty, x, y, w, h);
        LICE_Blur(inPlace ? &src : &other, &src, dstx, dsty, x, y, w, h);
        ASSERT_EQ(src.memory, slowSrc.memory) << "round " << round << (inPlace ? " in place" : "");
        ASSERT_EQ(other.memory, slowOther.memory) << "round " << round;
    }
}

TEST(Blur, LinesOfAnyWidthAreFilteredInPlace) {
    Random random;
    for (const int width : {1023, 1024, 1025, 3000}) {
        TestSurface surface({width, 5, 3, false, 0, 8}, random), expected = surface;
        SlowBlur(expected, expected, 0, 0, 0, 0, width, 5);
        LICE_Blur(&surface, &surface, 0, 0, 0, 0, width, 5);
        EXPECT_EQ(surface.memory, expected.memory) << width;
    }
}

TEST(Blur, LeavesThinRectanglesAndSmallerBackingStoresAlone) {
    Random random;
    for (const TestSurface::Shape& shape : {TestSurface::Shape{1, 9}, {9, 1}, {20, 20, 0, false, 128}}) {
        TestSurface surface(shape, random), before = surface;
        LICE_Blur(&surface, &surface, 0, 0, 0, 0, 20, 20);
        EXPECT_EQ(surface.memory, before.memory) << shape.width << "x" << shape.height;
    }
    // On a larger backing store it counts pixels as if there were no scale.
    TestSurface large({4, 4, 0, false, 512}, random), before = large;
    LICE_Blur(&large, &large, 0, 0, 0, 0, 8, 8);
    EXPECT_NE(large.At(3, 3), before.At(3, 3));
    EXPECT_EQ(large.At(4, 4), before.At(4, 4));
}

TEST(Blur, AbsurdArgumentsStayInside) {
    Random random;
    const int ints[] = {INT_MIN, INT_MIN + 1, -70000, -1, 0, 1, 5, 70000, INT_MAX - 1, INT_MAX};
    for (int round = 0; round < 20000; ++round) {
        TestSurface src = TestSurface::Any(random, 9, true, 0), dest = TestSurface::Any(random, 9, true, 0);
        const auto any = [&] { return random.Chance(2) ? random.Of(ints) : random.In(-3, 12); };
        LICE_Blur(random.Chance(2) ? &src : &dest, &src, any(), any(), any(), any(), any(), any());
    }
    LICE_Blur(nullptr, nullptr, 0, 0, 0, 0, 5, 5);
}
