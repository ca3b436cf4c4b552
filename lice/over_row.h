// lice/over_row.h
// The source-alpha copy at full opacity, eight pixels at a time. It is exactly CombineAlphaOpaque, and cheaper, since
// alphas are found for eight pixels together.
#pragma once
#include <cstddef>

#include "lice/four_pixels.h"

// Shares of the distance from source to old are taken without sign, where a shift rounds toward zero. Then they get the
// sign of the distance. keepOdd is 0 for alpha, so that the source's stays; the old one is added, held at 255.
inline FourPixels OverFour(FourPixels old, FourPixels source, EightWords keepEven, EightWords keepOdd) {
    const __m128i d = (__m128i)old, s = (__m128i)source;
    const __m128i above = _mm_subs_epu8(d, s);
    const EightWords distance = (EightWords)_mm_or_si128(above, _mm_subs_epu8(s, d));
    const EightWords even = (EightWords)_mm_mulhi_epu16((__m128i)(distance << 8), (__m128i)keepEven);
    const EightWords odd = (distance >> 8) * keepOdd & 0xFF00;
    const SixteenBytes down = (SixteenBytes)((SixteenBytes)above == 0);  // all bits set: old is not above source
    const SixteenBytes mixed = (SixteenBytes)source + (((SixteenBytes)(even | odd) ^ down) - down);
    return (FourPixels)_mm_adds_epu8((__m128i)mixed, (__m128i)(old & 0xFF000000u));
}

inline void OverEight(LICE_pixel* dest, FourPixels first, FourPixels second) {
    const __m128i none = _mm_setzero_si128();
    const __m128i alphas = _mm_packs_epi32((__m128i)(first >> 24), (__m128i)(second >> 24));
    const uint64_t eightAlphas = static_cast<uint64_t>(_mm_cvtsi128_si64(_mm_packus_epi16(alphas, alphas)));
    if (eightAlphas == 0) return;  // most of an image is all clear or all opaque
    if (eightAlphas == ~uint64_t{0}) {
        StoreFour(dest, first);
        StoreFour(dest + 4, second);
        return;
    }
    // 255 - alpha, but 256 for a clear pixel, which leaves all of the old one.
    const __m128i keep = _mm_sub_epi16(_mm_xor_si128(alphas, _mm_set1_epi16(255)), _mm_cmpeq_epi16(alphas, none));
    StoreFour(dest, OverFour(LoadFour(dest), first, (EightWords)_mm_unpacklo_epi16(keep, keep),
                             (EightWords)_mm_unpacklo_epi16(keep, none)));
    StoreFour(dest + 4, OverFour(LoadFour(dest + 4), second, (EightWords)_mm_unpackhi_epi16(keep, keep),
                                 (EightWords)_mm_unpackhi_epi16(keep, none)));
}

// Does whole groups of eight from the left, and gives the number of pixels done. `dest` may not begin within eight
// pixels after `src`.
inline ptrdiff_t OverEights(LICE_pixel* dest, const LICE_pixel* src, ptrdiff_t count) {
    ptrdiff_t x = 0;
    for (; x + 8 <= count; x += 8) OverEight(dest + x, LoadFour(src + x), LoadFour(src + x + 4));
    return x;
}
