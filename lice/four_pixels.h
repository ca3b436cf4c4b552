// lice/four_pixels.h
// Four pixels in one SSE2 register, which every x86-64 has, and the mixing of two colours: the arithmetic under nearly
// everything that is drawn. Intrinsics stand only where the vector types have no operator.
#pragma once
#include <emmintrin.h>

#include <cstddef>

#include "lice/pixel.h"

using FourPixels = LICE_pixel __attribute__((vector_size(16)));
using SixteenBytes = uint8_t __attribute__((vector_size(16)));
using EightWords = uint16_t __attribute__((vector_size(16)));  // two for each pixel

inline FourPixels LoadFour(const LICE_pixel* pixels) {
    return (FourPixels)_mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels));
}

inline void StoreFour(LICE_pixel* pixels, FourPixels four) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), (__m128i)four);
}

// The last 1 to 3 pixels of a row.
inline FourPixels LoadSome(const LICE_pixel* pixels, ptrdiff_t count) {
    if (count == 1) return FourPixels{pixels[0]};
    const FourPixels two = (FourPixels)_mm_loadl_epi64(reinterpret_cast<const __m128i*>(pixels));
    return count == 2 ? two
                      : (FourPixels)_mm_unpacklo_epi64((__m128i)two, _mm_cvtsi32_si128(static_cast<int>(pixels[2])));
}

inline void StoreSome(LICE_pixel* pixels, FourPixels four, ptrdiff_t count) {
    if (count == 1) {
        pixels[0] = four[0];
        return;
    }
    _mm_storel_epi64(reinterpret_cast<__m128i*>(pixels), (__m128i)four);
    if (count == 3) pixels[2] = four[2];
}

// source + (old - source) * (256 - ia) / 256 in each channel, divided toward zero, for ia from 1 to 256. `keep` is
// (256 - ia) * 256 + 1, and the quotient is the high word of difference * keep. The 1 makes it round toward zero: a
// difference below 0, read without sign, adds the one that rounding down lost. Any other adds too little to show.
inline FourPixels MixKeeping(FourPixels old, FourPixels source, EightWords keep) {
    const EightWords d = (EightWords)old, s = (EightWords)source;
    const EightWords even = (d & 0xFF) - (s & 0xFF), odd = (d >> 8) - (s >> 8);
    const EightWords evenShare = (EightWords)_mm_mulhi_epu16((__m128i)even, (__m128i)keep);
    const EightWords oddShare = (EightWords)_mm_mulhi_epu16((__m128i)odd, (__m128i)keep);
    return (FourPixels)((SixteenBytes)source + (SixteenBytes)((evenShare & 0xFF) | oddShare << 8));
}

// One opacity for each of four pixels, 0 to 256.
struct FourWeights {
    EightWords keep;  // as above; the same in both words of a pixel
    FourPixels none;  // all bits set where the opacity is 0, for which `keep` has no value

    // From 256 times the weight, which must be below 256.
    static FourWeights Of(EightWords weight256) { return {1 - weight256, (FourPixels)((FourPixels)weight256 == 0)}; }

    // `shares`, 0 to 256, times an opacity of 1 to 256, divided by 256.
    static EightWords Times(EightWords shares, int ia) { return shares * static_cast<uint16_t>(ia) & 0xFF00; }

    // Four bytes of coverage, the first in the low byte.
    static FourWeights Coverage(uint32_t mask, int ia) { return Of(Times(Spread(mask), ia)); }

    // Coverage plus 1, but 0 for coverage 0.
    static FourWeights CoverageOpaque(uint32_t mask) { return Opaque(Spread(mask)); }

    // Each pixel's own alpha plus 1, times an opacity below 256.
    static FourWeights Alpha(FourPixels source, int ia) {
        const FourPixels alpha = source >> 24;
        return Of(Times((EightWords)(alpha | alpha << 16) + 1, ia));
    }

    // Each pixel's own alpha plus 1, but 0 for alpha 0.
    static FourWeights AlphaOpaque(FourPixels source) {
        const FourPixels alpha = source >> 24;
        return Opaque((EightWords)(alpha | alpha << 16));
    }

    // Each weight below 256 as a byte, in the place of its pixel's alpha.
    FourPixels InAlpha() const { return (FourPixels)(1 - keep); }

  private:
    static EightWords Spread(uint32_t mask) {
        const __m128i words = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(mask)), _mm_setzero_si128());
        return (EightWords)_mm_unpacklo_epi16(words, words);
    }

    static FourWeights Opaque(EightWords shares) {  // 0 to 255, plus 1 where they are above 0
        return {(shares ^ 0xFF) << 8 | 1, (FourPixels)((FourPixels)shares == 0)};
    }
};

// Two times four weights. Made together, they cost little more than four.
struct EightWeights {
    FourWeights first, second;

    static EightWeights Coverage(uint32_t a, uint32_t b, int ia) {
        const __m128i bytes = _mm_cvtsi64_si128(static_cast<int64_t>(a | uint64_t{b} << 32));
        const EightWords weight256 = FourWeights::Times((EightWords)_mm_unpacklo_epi8(bytes, _mm_setzero_si128()), ia);
        const __m128i w = (__m128i)weight256;
        return {FourWeights::Of((EightWords)_mm_unpacklo_epi16(w, w)),
                FourWeights::Of((EightWords)_mm_unpackhi_epi16(w, w))};
    }
};

inline FourPixels MixFour(FourPixels old, FourPixels source, int ia) {  // ia: 1 to 256
    return MixKeeping(old, source, EightWords{} + static_cast<uint16_t>((256 - ia) * 256 + 1));
}

inline FourPixels MixWeighted(FourPixels old, FourPixels source, const FourWeights& ia) {
    return (old & ia.none) | (MixKeeping(old, source, ia.keep) & ~ia.none);
}

inline LICE_pixel MixOne(LICE_pixel old, LICE_pixel source, int ia) {  // ia: 0 to 256
    return ia ? MixFour(FourPixels{old}, FourPixels{source}, ia)[0] : old;
}

// Mixes the colours, and adds the alpha byte of `alpha` to the old one, held at 255.
inline FourPixels MixFourOver(FourPixels old, FourPixels source, const FourWeights& ia, FourPixels alpha) {
    const FourPixels summed = (FourPixels)_mm_adds_epu8((__m128i)old, (__m128i)alpha);
    return (MixWeighted(old, source, ia) & 0xFFFFFFu) | (summed & 0xFF000000u);
}

inline LICE_pixel MixOneOver(LICE_pixel old, LICE_pixel source, int ia, int alpha) {  // ia: 0 to 256
    const LICE_pixel summed = (old >> 24) + static_cast<LICE_pixel>(alpha);
    return (MixOne(old, source, ia) & 0xFFFFFF) | (summed < 255 ? summed : 255) << 24;
}
