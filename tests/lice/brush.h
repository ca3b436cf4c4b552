// tests/lice/brush.h
// What a slow raster draws its single pixels with, and the rounds that compare it with the library.
#pragma once
#include "lice/paint.h"
#include "tests/lice/reference.h"
#include "tests/lice/support.h"

struct Brush {
    LICE_pixel color;
    float alpha;
    int mode;

    static Brush Any(Random& random) {
        const int mode = random.Chance(40) ? random.In(6, 0xFF) : random.Of({0, 0, 0, 1, 2, 3, 4, 5});
        return {random.Pixel(), random.Alpha(), mode | (random.Chance(3) ? LICE_BLIT_IGNORE_SCALING : 0)};
    }

    int Ia() const { return static_cast<int>(256 * alpha); }
    bool Scales(const TestSurface& surface) const { return surface.Scale() > 0 && !(mode & LICE_BLIT_IGNORE_SCALING); }
    int64_t Scaled(int64_t value, const TestSurface& surface) const {
        return Scales(surface) ? reference::ScaleCoord(value, surface.Scale()) : value;
    }

    // `row` counts in memory. The opacity chooses among the routine's forms; the weight says how strong.
    void Blend(TestSurface& surface, int64_t x, int64_t row, int weight, CopyForms forms) const {
        if (!surface.Has(x, row)) return;
        LICE_pixel& pixel = surface.getBits()[row * surface.getRowSpan() + x];
        pixel = Blended(pixel, weight, forms);
    }

  private:
    LICE_pixel Blended(LICE_pixel old, int weight, CopyForms forms) const {
        const int ia = Ia(), modeByte = mode & LICE_BLIT_MODE_MASK;
        if (ia == 0 || modeByte > LICE_BLIT_MODE_HSVADJ || (modeByte == 0 && ia < 0)) return old;
        if (modeByte != 0 || forms == CopyForms::General) return reference::Combine(old, color, weight, modeByte);
        if (ia == 256) return color;
        if (forms == CopyForms::SolidHalf && ia == 128) return reference::Mean(old, color);
        if (forms != CopyForms::Fast || ia % 64 != 0 || ia > 256) return reference::Combine(old, color, weight, 0);
        return reference::EachChannel(old, color, [ia](int64_t n, int64_t s) {
            return ia == 64 ? n / 2 + n / 4 + s / 4 : ia == 128 ? n / 2 + s / 2 : n / 4 + s / 2 + s / 4;
        });
    }
};

// What a random round was called with, for its failure.
template <class... Value>
std::string Called(const Value&... value) {
    std::ostringstream out;
    ((out << value << ' '), ...);
    return out.str();
}

// The surface and its slowly drawn copy must be equal, borders and padding too. `draw` gives what it called with.
template <class Draw>
void CompareRounds(int rounds, Draw draw) {
    Random random;
    for (int i = 0; i < rounds; ++i) {
        TestSurface drawn = TestSurface::Any(random, i % 10 ? 30 : 90, true, random.Of({0, 50})), expected = drawn;
        const Brush brush = Brush::Any(random);
        const std::string called = draw(random, brush, drawn, expected);
        ASSERT_TRUE(drawn.memory == expected.memory)
            << called << "mode " << brush.mode << " alpha " << brush.alpha << " scale " << drawn.Scale();
    }
}
