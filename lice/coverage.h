// lice/coverage.h
// One colour through bytes of coverage: the loops under masks and text. Uncovered pixels stay as they are.
// A Weight says what opacity a coverage comes to: weight(coverage) for one pixel, weight.Four(bytes) for four, the
// first in the low byte, and weight.Eight(bytes, bytes) for two times four.
#pragma once
#include <cstddef>
#include <cstring>

#include "lice/combine.h"

// What is drawn of a mask, and where it goes; steps from row to row may be negative.
struct CoverageRows {
    const uint8_t* mask;
    ptrdiff_t maskSpan;
    LICE_pixel* pixels;
    ptrdiff_t span;
    int width, height;
};

struct MaskWeight {  // coverage times opacity
    int ia;
    int operator()(int coverage) const { return static_cast<int>(Wide{coverage} * ia / 256); }
    FourWeights Four(uint32_t coverage) const { return FourWeights::Coverage(coverage, ia); }
    EightWeights Eight(uint32_t a, uint32_t b) const { return EightWeights::Coverage(a, b, ia); }
};

// Calls each(pixel, coverage) for every covered pixel.
template <class Each>
void ForCovered(CoverageRows rows, Each each) {
    for (; rows.height > 0; --rows.height, rows.mask += rows.maskSpan, rows.pixels += rows.span)
        for (int x = 0; x < rows.width; ++x)
            if (rows.mask[x] != 0) each(rows.pixels[x], rows.mask[x]);
}

// Plain copying, for rows of four pixels or more, four at a time. A row that is no multiple of four begins with two
// steps that overlap, both made from the old pixels.
template <class Weight>
void MixCovered(CoverageRows rows, LICE_pixel color, Weight weight) {
    const auto coverage = [](const uint8_t* mask) {
        uint32_t four;
        std::memcpy(&four, mask, sizeof four);
        return four;
    };
    const FourPixels source = FourPixels{} + color;
    const int second = rows.width == 4 ? 0 : (rows.width - 1) % 4 + 1;
    for (; rows.height > 0; --rows.height, rows.mask += rows.maskSpan, rows.pixels += rows.span) {
        const uint32_t a = coverage(rows.mask), b = coverage(rows.mask + second);
        if ((a | b) != 0) {
            const EightWeights weights = weight.Eight(a, b);
            const FourPixels mixedA = Mix(LoadFour(rows.pixels), source, weights.first);
            const FourPixels mixedB = Mix(LoadFour(rows.pixels + second), source, weights.second);
            StoreFour(rows.pixels, mixedA);
            StoreFour(rows.pixels + second, mixedB);
        }
        for (int x = second + 4; x < rows.width; x += 4)
            if (const uint32_t four = coverage(rows.mask + x))
                StoreFour(rows.pixels + x, Mix(LoadFour(rows.pixels + x), source, weight.Four(four)));
    }
}

// Any mode.
template <class Weight>
void CombineCovered(const CoverageRows& rows, LICE_pixel color, int mode, int ia, Weight weight) {
    WithCombine<CopyForms::General>(mode, ia, [&](auto combine) {
        if constexpr (std::is_same_v<decltype(combine), CombineCopy>)
            if (rows.width >= 4) return MixCovered(rows, color, weight);
        ForCovered(rows, [&](LICE_pixel& pixel, int coverage) { pixel = combine(pixel, color, weight(coverage)); });
    });
}
