// lice/coverage.h
// One colour through bytes of coverage: the loops under masks and text. Uncovered pixels stay as they are.
// A Weight turns coverage into opacity: weight(coverage) for one pixel, weight.Four(bytes) for four, the first in the
// low byte, and weight.Eight(bytes, bytes) for two times four.
// MixCovered and CombineCovered are static, because masks are so small that a call would show.
#pragma once
#include <cstring>

#include "lice/paint.h"

// A part of a mask, and its place on the surface. The steps from row to row may be negative.
struct CoverageRows {
    const uint8_t* mask;
    ptrdiff_t maskSpan;
    LICE_pixel* pixels;
    ptrdiff_t span;
    int width, height;
};

struct MaskWeight {  // coverage times opacity
    int ia;
    int operator()(int coverage) const { return static_cast<int>(int64_t{coverage} * ia / 256); }
    FourWeights Four(uint32_t coverage) const { return FourWeights::Coverage(coverage, ia); }
    EightWeights Eight(uint32_t a, uint32_t b) const { return EightWeights::Coverage(a, b, ia); }
};

// Calls each(pixel, coverage) for every covered pixel.
template <class Each>
void ForCovered(CoverageRows rows, Each each) {
    for (; rows.height > 0; --rows.height, rows.mask += rows.maskSpan, rows.pixels += rows.span)
        for (int x = 0; x < rows.width; ++x)
            if (rows.mask[x] != 0) each(rows.pixels + x, rows.mask[x]);
}

// Plain copying of rows of four pixels or more, four at a time. The last two steps may overlap, so both are made from
// the old pixels.
template <class Weight>
static void MixCovered(const CoverageRows& rows, LICE_pixel color, Weight weight) {
    const FourPixels source = FourPixels{} + color;
    const int last = rows.width - 4;
    const uint8_t* mask = rows.mask;
    LICE_pixel* pixels = rows.pixels;
    for (int y = 0; y < rows.height; ++y, mask += rows.maskSpan, pixels += rows.span) {
        const auto coverage = [mask](int x) {
            uint32_t four;
            std::memcpy(&four, mask + x, sizeof four);
            return four;
        };
        const auto mixed = [=](int x, const FourWeights& weights) {
            return MixWeighted(LoadFour(pixels + x), source, weights);
        };
        int x = 0;
        for (; x < last - 4; x += 4)
            if (const uint32_t four = coverage(x)) StoreFour(pixels + x, mixed(x, weight.Four(four)));
        const uint32_t a = coverage(x), b = coverage(last);
        if ((a | b) == 0) continue;
        const EightWeights weights = weight.Eight(a, b);
        const FourPixels mixedA = mixed(x, weights.first), mixedB = mixed(last, weights.second);
        StoreFour(pixels + x, mixedA);
        StoreFour(pixels + last, mixedB);
    }
}

// Any mode.
template <class Weight>
static void CombineCovered(const CoverageRows& rows, LICE_pixel color, int mode, int ia, Weight weight) {
    WithPaint<CopyForms::General>(color, mode, ia, [&](auto paint) {
        if constexpr (std::is_same_v<decltype(paint.combine), CombineCopy>)
            if (rows.width >= 4) return MixCovered(rows, color, weight);
        ForCovered(rows, [&](LICE_pixel* pixel, int coverage) { paint.Dot(pixel, weight(coverage)); });
    });
}
