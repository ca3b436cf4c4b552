// lice/four_pixels.h
// Four pixels in one SSE2 register, which every x86-64 has, and the mixing of two colours on it: the arithmetic under
// nearly everything that is drawn. Shifts, masks and sums of whole pixels are the vector's own operators.
#pragma once
#include <emmintrin.h>

#include <algorithm>

#include "lice/pixel.h"

using FourPixels = LICE_pixel __attribute__((vector_size(16)));

inline FourPixels LoadFour(const LICE_pixel* pixels) {
    return (FourPixels)_mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels));
}

inline void StoreFour(LICE_pixel* pixels, FourPixels four) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), (__m128i)four);
}

// One opacity for each of four pixels, 0 to 256, kept as its complement to 256, in 16 bits for each channel.
struct FourWeights {
    __m128i keepLow, keepHigh;  // of pixels 0 and 1, 2 and 3

    explicit FourWeights(int ia) : keepLow(_mm_set1_epi16(static_cast<short>(256 - ia))), keepHigh(keepLow) {}

    // Coverage of four pixels in 0 to 255, times an opacity of 1 to 256, divided by 256.
    static FourWeights Coverage(uint32_t mask, int ia) {
        const __m128i zero = _mm_setzero_si128();
        const __m128i m = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(mask)), zero);
        const __m128i w = _mm_srli_epi16(_mm_mullo_epi16(m, _mm_set1_epi16(static_cast<short>(ia))), 8);
        const __m128i keep = _mm_sub_epi16(_mm_set1_epi16(256), w);
        const __m128i twice = _mm_unpacklo_epi16(keep, keep);
        return {_mm_unpacklo_epi32(twice, twice), _mm_unpackhi_epi32(twice, twice)};
    }

    // Each pixel's own alpha plus 1, but 0 for alpha 0.
    static FourWeights AlphaPlusOne(FourPixels source) {
        const auto keep = [](__m128i a) {
            return _mm_sub_epi16(_mm_sub_epi16(_mm_set1_epi16(255), a), _mm_cmpeq_epi16(a, _mm_setzero_si128()));
        };
        return EachAlpha(source, keep);
    }

    // Each pixel's own alpha plus 1, times an opacity of 1 to 255, divided by 256.
    static FourWeights AlphaTimes(FourPixels source, int ia) {
        const auto keep = [ia](__m128i a) {
            const __m128i one = _mm_set1_epi16(1), opacity = _mm_set1_epi16(static_cast<short>(ia));
            return _mm_sub_epi16(_mm_set1_epi16(256),
                                 _mm_srli_epi16(_mm_mullo_epi16(_mm_add_epi16(a, one), opacity), 8));
        };
        return EachAlpha(source, keep);
    }

    // The weights as bytes; each must be below 256.
    FourPixels Bytes() const {
        const __m128i whole = _mm_set1_epi16(256);
        return (FourPixels)_mm_packus_epi16(_mm_sub_epi16(whole, keepLow), _mm_sub_epi16(whole, keepHigh));
    }

  private:
    FourWeights(__m128i low, __m128i high) : keepLow(low), keepHigh(high) {}

    template <class Keep>
    static FourWeights EachAlpha(FourPixels source, Keep keep) {
        const auto spread = [](__m128i two) {
            return _mm_shufflehi_epi16(_mm_shufflelo_epi16(two, _MM_SHUFFLE(3, 3, 3, 3)), _MM_SHUFFLE(3, 3, 3, 3));
        };
        const __m128i zero = _mm_setzero_si128();
        return {keep(spread(_mm_unpacklo_epi8((__m128i)source, zero))),
                keep(spread(_mm_unpackhi_epi8((__m128i)source, zero)))};
    }
};

// source + (old - source) * (256 - ia) / 256 in each channel, the division toward zero. That is: stay away from the
// source by the kept share of the distance, on the side where the old value is. The distance has no sign, so that a
// plain shift rounds it as the division does; and the nearer of old and source +- share picks the side.
struct Mixing {
    static __m128i Distance(__m128i old, __m128i source) {
        return _mm_or_si128(_mm_subs_epu8(old, source), _mm_subs_epu8(source, old));
    }
    // `distance` in the high bytes, so that the product's high half is the share.
    static __m128i Share(__m128i distance, __m128i keep) { return _mm_mulhi_epu16(distance, keep); }
    static __m128i AwayBy(__m128i share, __m128i old, __m128i source) {
        return _mm_max_epu8(_mm_subs_epu8(source, share), _mm_min_epu8(old, _mm_adds_epu8(source, share)));
    }
};

inline FourPixels Mix(FourPixels old, FourPixels source, const FourWeights& ia) {
    const __m128i zero = _mm_setzero_si128(), d = (__m128i)old, s = (__m128i)source;
    const __m128i distance = Mixing::Distance(d, s);
    const __m128i low = Mixing::Share(_mm_unpacklo_epi8(zero, distance), ia.keepLow);
    const __m128i high = Mixing::Share(_mm_unpackhi_epi8(zero, distance), ia.keepHigh);
    return (FourPixels)Mixing::AwayBy(_mm_packus_epi16(low, high), d, s);
}

inline LICE_pixel Mix(LICE_pixel old, LICE_pixel source, int ia) {
    const __m128i d = _mm_cvtsi32_si128(static_cast<int>(old)), s = _mm_cvtsi32_si128(static_cast<int>(source));
    const __m128i distance = _mm_unpacklo_epi8(_mm_setzero_si128(), Mixing::Distance(d, s));
    const __m128i share = Mixing::Share(distance, _mm_set1_epi16(static_cast<short>(256 - ia)));
    return static_cast<LICE_pixel>(_mm_cvtsi128_si32(Mixing::AwayBy(_mm_packus_epi16(share, share), d, s)));
}

// Mixes the colours by `ia`, and adds the alpha byte of `alpha` to the old alpha, held at 255.
inline FourPixels MixOver(FourPixels old, FourPixels source, const FourWeights& ia, FourPixels alpha) {
    const FourPixels summed = (FourPixels)_mm_adds_epu8((__m128i)old, (__m128i)alpha);
    return (Mix(old, source, ia) & 0xFFFFFFu) | (summed & 0xFF000000u);
}

inline LICE_pixel MixOver(LICE_pixel old, LICE_pixel source, int ia, int alpha) {
    const LICE_pixel summed = std::min(255u, (old >> 24) + static_cast<LICE_pixel>(alpha));
    return (Mix(old, source, ia) & 0xFFFFFF) | summed << 24;
}
