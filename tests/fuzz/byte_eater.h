// tests/fuzz/byte_eater.h
// Turns the bytes of an input into arguments and surfaces. When they run out, all that follows is 0.
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "lice/pixel.h"
#include "tests/lice/support.h"

class ByteEater {
  public:
    ByteEater(const uint8_t* data, size_t size) : at_(data), left_(size) {}

    bool Empty() const { return left_ == 0; }
    size_t Left() const { return left_; }
    int Byte() { return Raw<uint8_t>(); }
    bool Bool() { return Byte() & 1; }
    template <class T, size_t n>
    T Of(const T (&choices)[n]) {
        return choices[Byte() % n];
    }
    template <class T>
    T Raw() {
        T value = {};
        const size_t n = std::min(sizeof value, left_);
        if (n > 0) memcpy(&value, at_, n);
        at_ += n;
        left_ -= n;
        return value;
    }

    // Mostly numbers about the size of a surface, so that something is drawn.
    int Int() {
        constexpr int Max = std::numeric_limits<int>::max(), Min = std::numeric_limits<int>::min();
        const int kind = Byte();
        if (kind < 232) return Byte() % 40 - 8;
        if (kind < 240) return Raw<int16_t>();
        return kind < 248 ? Raw<int>() : Of({Max, Max - 1, Max / 2, Min, Min + 1, Min / 2, 1 << 24, 65536});
    }
    template <class Float>
    Float Real() {
        using Limits = std::numeric_limits<Float>;
        const int kind = Byte();
        if (kind < 232) return static_cast<Float>(Raw<int16_t>() % 2048) / 64;
        if (kind < 240) return static_cast<Float>(Int());
        if (kind < 248) return Raw<Float>();
        return Of({Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::max(), Limits::lowest(),
                   Limits::denorm_min(), static_cast<Float>(2147483648.0), static_cast<Float>(-2147483904.0)});
    }
    float Alpha() { return Bool() ? Of({1.0f, 0.5f, 0.25f, 0.75f, 0.3f, 0.95f}) : Real<float>(); }
    int Mode() {
        const int kind = Byte();
        return kind < 224 ? kind % 7 | (kind & 16 ? 0x10000 : 0) | (kind & 32 ? 0x20000 : 0) | (kind & 64 ? 0x100 : 0)
                          : Raw<int>();
    }
    LICE_pixel Pixel() { return Raw<uint32_t>(); }
    // Alone on the heap, or with borders to look at afterwards.
    TestSurface Surface() {
        NoisyPixels noise{static_cast<uint32_t>(Byte()) + 1};
        return {{Byte() % 48 + 1, Byte() % 48 + 1, Byte() % 4, Bool(),
                 Of({0, 0, 0, 0, 0, 0, 0, 0, 0, 256, 512, 300, 100, 1, -7}), Bool() ? 16 : 0},
                noise};
    }

  private:
    struct NoisyPixels {
        uint32_t state;
        LICE_pixel Pixel() { return state = state * 1664525 + 1013904223; }
    };
    const uint8_t* at_;
    size_t left_;
};

// Finds a write that went astray, also without a sanitizer.
inline void RequireKeptOutside(TestSurface& surface, const TestSurface& before) {
    if (surface.KeptOutside(before)) return;
    std::fprintf(stderr, "Something was written outside of the surface.\n");
    std::abort();
}
