// lice/paint.h
// How a drawing loop comes by its arithmetic: chosen once for each call, then run over pixels and rows.
#pragma once
#include <cstddef>

#include "lice/combine.h"

// The forms that a family of loops has for plain copying, beside the general one.
enum class CopyForms {
    General,    // none, since its weights vary
    Solid,      // a store at 256
    SolidHalf,  // and the exact mean at 128
    Fast,       // a store at 256, and the shifted forms at 192, 128 and 64
};

// Calls loop(combine) for the mode's low byte, or copy() for plain copying. Opacity 0, one below 0 for plain copying,
// and an unknown mode do nothing.
template <class Copy, class Loop>
void WithMode(int mode, int ia, Copy copy, Loop loop) {
    if (ia == 0) return;
    switch (mode & LICE_BLIT_MODE_MASK) {
        case LICE_BLIT_MODE_COPY:
            return ia > 0 ? copy() : void();
        case LICE_BLIT_MODE_ADD:
            return loop(CombineAdd{});
        case LICE_BLIT_MODE_DODGE:
            return loop(CombineDodge{});
        case LICE_BLIT_MODE_MUL:
            return loop(CombineMultiply{});
        case LICE_BLIT_MODE_OVERLAY:
            return loop(CombineOverlay{});
        case LICE_BLIT_MODE_HSVADJ:
            return loop(CombineHsvAdjust{});
    }
}

// The loop is compiled once for each function, whose type `combine` has.
template <CopyForms forms, class Loop>
void WithCombine(int mode, int ia, Loop loop) {
    const auto copy = [&] {
        if constexpr (forms != CopyForms::General) {
            if (ia == 256) return loop(CombineSolid{});
        }
        if constexpr (forms == CopyForms::SolidHalf) {
            if (ia == 128) return loop(CombineHalf{});
        }
        if constexpr (forms == CopyForms::Fast) {
            if (ia == 192) return loop(CombineFastThreeQuarters{});
            if (ia == 128) return loop(CombineFastHalf{});
            if (ia == 64) return loop(CombineFastQuarter{});
        }
        return ia <= 256 ? loop(CombineCopy{}) : loop(CombineCopyBeyond{});
    };
    WithMode(mode, ia, copy, loop);
}

// The same for blits, in which the source's alpha may take part.
template <CopyForms forms, class Loop>
void WithBlitCombine(int mode, int ia, Loop loop) {
    if (!(mode & LICE_BLIT_USE_ALPHA)) return WithCombine<forms>(mode, ia, loop);
    const auto copy = [&] {
        if (ia == 256) return loop(CombineAlphaOpaque{});
        return ia < 256 ? loop(CombineAlpha{}) : loop(CombineAlphaBeyond{});
    };
    WithMode(mode, ia, copy, [&](auto combine) { loop(CombineWithAlpha<decltype(combine)>{}); });
}

// The two kinds of source of a run: one colour, or a row of pixels.
struct OneColor {
    LICE_pixel color;
    LICE_pixel operator[](ptrdiff_t) const { return color; }
    FourPixels Four(ptrdiff_t) const { return FourPixels{} + color; }
    FourPixels Some(ptrdiff_t, ptrdiff_t) const { return FourPixels{} + color; }
};

struct PixelRow {
    const LICE_pixel* pixels;
    LICE_pixel operator[](ptrdiff_t x) const { return pixels[x]; }
    FourPixels Four(ptrdiff_t x) const { return LoadFour(pixels + x); }
    FourPixels Some(ptrdiff_t x, ptrdiff_t count) const { return LoadSome(pixels + x, count); }
};

// Combines `count` pixels in a row, four at a time where the function can. The source is read up to three pixels ahead
// of what is written.
template <class Combine, class Source>
void CombineRun(Combine combine, LICE_pixel* dest, ptrdiff_t count, Source source, int ia) {
    ptrdiff_t x = 0;
    if constexpr (requires(FourPixels four) { combine(four, four, ia); }) {
#pragma GCC unroll 4  // makes the speed of a short body independent of its address
        for (; x + 4 <= count; x += 4) StoreFour(dest + x, combine(LoadFour(dest + x), source.Four(x), ia));
        if (const ptrdiff_t n = count - x; n > 0)
            StoreSome(dest + x, combine(LoadSome(dest + x, n), source.Some(x, n), ia), n);
    } else {
        for (; x < count; ++x) dest[x] = combine(dest[x], source[x], ia);
    }
}

// One call's colour and opacity, with the function that merges them into pixels.
template <class Combine>
struct Paint {
    Combine combine;
    LICE_pixel color;
    int ia;

    void Dot(LICE_pixel* pixel, int weight) const { *pixel = combine(*pixel, color, weight); }
    void Dot(LICE_pixel* pixel) const { Dot(pixel, ia); }
    void Run(LICE_pixel* row, ptrdiff_t count) const { CombineRun(combine, row, count, OneColor{color}, ia); }
};

// Calls loop(paint), under the same conditions as WithCombine.
template <CopyForms forms, class Loop>
void WithPaint(LICE_pixel color, int mode, int ia, Loop loop) {
    WithCombine<forms>(mode, ia, [&](auto combine) { loop(Paint<decltype(combine)>{combine, color, ia}); });
}
