// tests/lice/support.h
// What the tests of drawing share: random numbers that can be had again, and surfaces of any shape.
#pragma once
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <random>
#include <sstream>
#include <vector>

#include "lice/bitmap.h"

// Prints its seed when a test fails; QUILMO_SEED=n runs that seed again.
class Random {
  public:
    const unsigned seed;

    Random() : seed(ASeed()), engine_(seed), trace_(__FILE__, __LINE__, "QUILMO_SEED=" + std::to_string(seed)) {}

    int In(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    float In(float low, float high) { return std::uniform_real_distribution<float>(low, high)(engine_); }
    bool Chance(int outOf) { return In(1, outOf) == 1; }
    // Extreme channels come up often enough to meet one another.
    LICE_pixel Pixel() {
        LICE_pixel p = engine_();
        for (int shift = 0; shift < 32; shift += 8)
            if (Chance(4)) p = (p & ~(0xFFu << shift)) | (Chance(2) ? 0xFFu << shift : 0);
        return p;
    }
    template <class T, size_t n>
    T Of(const T (&choices)[n]) {
        return choices[In(0, static_cast<int>(n) - 1)];
    }
    // Mostly opacities that have a fast form, else any, up to far outside of 0 to 1.
    float Alpha() {
        if (Chance(2)) return Of({1.0f, 0.5f, 0.25f, 0.75f, 0.501f});
        return Chance(8) ? In(-40.0f, 40.0f) : In(-0.1f, 1.1f);
    }

  private:
    static unsigned ASeed() {
        const char* asked = std::getenv("QUILMO_SEED");
        return asked ? static_cast<unsigned>(std::strtoul(asked, nullptr, 10)) : std::random_device{}();
    }
    std::mt19937 engine_;
    testing::ScopedTrace trace_;
};

// A surface on the heap. Without a border its block ends with its last pixel, where a sanitizer looks.
class TestSurface : public LICE_IBitmap {
  public:
    struct Shape {
        int width, height;
        int padding = 0;  // pixels between the end of a row and the next
        bool flipped = false;
        int scale = 0;
        int border = 0;  // pixels before the first row and after the last
    };

    // The pixels are random.Pixel().
    template <class Pixels>
    TestSurface(const Shape& shape, Pixels& random) : shape_(shape) {
        const int rows = BackingHeight();
        const int pixels = rows > 0 && BackingWidth() > 0 ? (rows - 1) * getRowSpan() + BackingWidth() : 0;
        memory.resize(pixels + 2 * shape.border);
        for (LICE_pixel& pixel : memory) pixel = random.Pixel();
    }
    // Any shape, of up to `most` pixels a side; `scaled` allows a draw scale.
    static TestSurface Any(Random& random, int most, bool scaled, int border) {
        const int scale = scaled ? random.Of({0, 0, 256, 512, 384, 300, 128, 100}) : 0;
        return {{random.In(1, most), random.In(1, most), random.In(0, 3), random.Chance(2), scale, border}, random};
    }

    LICE_pixel* getBits() override { return memory.data() + shape_.border; }
    int getWidth() override { return shape_.width; }
    int getHeight() override { return shape_.height; }
    int getRowSpan() override { return BackingWidth() + shape_.padding; }
    bool isFlipped() override { return shape_.flipped; }
    bool resize(int, int) override { return false; }
    INT_PTR Extended(int code, void*) override { return code == LICE_EXT_GET_SCALING ? shape_.scale : 0; }

    int Scale() const { return shape_.scale; }
    int BackingWidth() const { return Scaled(shape_.width); }
    int BackingHeight() const { return Scaled(shape_.height); }
    // A pixel of the backing store, row 0 at the top.
    LICE_pixel& At(int x, int y) {
        return getBits()[(shape_.flipped ? BackingHeight() - 1 - y : y) * getRowSpan() + x];
    }
    bool Has(int64_t x, int64_t y) const { return x >= 0 && y >= 0 && x < BackingWidth() && y < BackingHeight(); }

    // Whether borders and padding are still those of `before`, an older copy.
    bool KeptOutside(TestSurface before) {
        for (int y = 0; y < BackingHeight(); ++y)
            for (int x = 0; x < BackingWidth(); ++x) before.At(x, y) = At(x, y);
        return before.memory == memory;
    }

    std::vector<LICE_pixel> memory;

  private:
    int Scaled(int side) const { return shape_.scale > 0 ? side * shape_.scale >> 8 : side; }
    Shape shape_;
};
