// lice/combine.h
// The arithmetic of drawing: how a source colour is merged into the pixel that is there, under an opacity.
// A combine function is an object without state: combine(old, source, ia) is the new pixel. `ia` is the opacity in
// 1/256 and may vary from pixel to pixel. The alpha byte is a fourth colour unless said otherwise.
// paint.h chooses the function and runs it over pixels.
#pragma once
#include <algorithm>
#include <array>
#include <cstdint>

#include "lice/four_pixels.h"
#include "lice/pixel.h"
#include "lice/safe_math.h"

// A caller's opacity, 1.0 being opaque.
inline int Opacity(float alpha) { return TruncateToInt(alpha * 256.0); }

// Formulas are worked out in 64 bits, because any opacity is allowed.
inline int64_t Clamp255(int64_t value) { return std::clamp<int64_t>(value, 0, 255); }

inline int64_t Channel(LICE_pixel pixel, int shift) { return pixel >> shift & 0xFF; }

// Each channel becomes the low 8 bits of formula(old, source).
template <class Formula>
LICE_pixel EachChannel(LICE_pixel old, LICE_pixel source, Formula formula) {
    const auto at = [&](int shift) {
        return static_cast<LICE_pixel>(formula(Channel(old, shift), Channel(source, shift)) & 0xFF) << shift;
    };
    return at(0) | at(8) | at(16) | at(24);
}

// --- Whole pixels at once, one or four. Shifts lose the low bits of each channel; that is their look.

template <class Pixels>
Pixels HalfOf(Pixels p) {
    return p >> 1 & 0x7F7F7F7Fu;
}

template <class Pixels>
Pixels QuarterOf(Pixels p) {
    return p >> 2 & 0x3F3F3F3Fu;
}

template <class Pixels>
Pixels EighthOf(Pixels p) {
    return p >> 3 & 0x1F1F1F1Fu;
}

struct CombineSolid {
    template <class Pixels>
    Pixels operator()(Pixels, Pixels source, int) const {
        return source;
    }
};

struct CombineFastHalf {
    template <class Pixels>
    Pixels operator()(Pixels old, Pixels source, int) const {
        return HalfOf(old) + HalfOf(source);
    }
};

struct CombineFastQuarter {
    template <class Pixels>
    Pixels operator()(Pixels old, Pixels source, int) const {
        return HalfOf(old) + QuarterOf(old) + QuarterOf(source);
    }
};

struct CombineFastThreeQuarters {
    template <class Pixels>
    Pixels operator()(Pixels old, Pixels source, int) const {
        return QuarterOf(old) + (HalfOf(source) + QuarterOf(source));
    }
};

struct CombineHalf {  // (old + source) >> 1 in each channel: the bits that both have, and half of the others
    template <class Pixels>
    Pixels operator()(Pixels old, Pixels source, int) const {
        return (old & source) + HalfOf(old ^ source);
    }
};

// --- Copy

// source + (old - source) * (256 - ia) / 256. A single pixel's ia is 0 to 256, that of four 1 to 256.
struct CombineCopy {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const { return MixOne(old, source, ia); }
    FourPixels operator()(FourPixels old, FourPixels source, int ia) const { return MixFour(old, source, ia); }
};

struct CombineCopyBeyond {  // the same for any opacity; results beyond a byte wrap
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int64_t ia) const {
        return EachChannel(old, source, [ia](int64_t d, int64_t s) { return s + (d - s) * (256 - ia) / 256; });
    }
};

// --- The other modes

struct CombineAdd {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int64_t ia) const {
        return EachChannel(old, source, [ia](int64_t d, int64_t s) { return Clamp255(d + s * ia / 256); });
    }
};

struct CombineDodge {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int64_t ia) const {
        return EachChannel(old, source, [ia](int64_t d, int64_t s) {
            const int64_t t = 256 - s * ia / 256;
            return Clamp255(t >= 2 ? (d << 8) / t : d << 8);
        });
    }
};

struct CombineMultiply {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int64_t ia) const {
        return EachChannel(old, source, [ia](int64_t d, int64_t s) { return d * ((256 - ia) * 256 + s * ia) >> 16; });
    }
};

struct CombineOverlay {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int64_t ia) const {
        return EachChannel(old, source, [ia](int64_t d, int64_t s) {
            const int64_t u = s * ia + (256 - ia) * 128;
            return Clamp255(d * (d * (32768 - u) / 256 + u) >> 15);
        });
    }
};

// Hue is 0 to 383, six sectors of 64; saturation and value are 0 to 255.
struct Hsv {
    int64_t h, s, v;
};

inline Hsv ToHsv(LICE_pixel pixel) {
    // One less than 65536 / i, so that the first fits.
    static constexpr std::array<uint16_t, 256> reciprocal = [] {
        std::array<uint16_t, 256> t = {};
        for (int i = 1; i < 256; ++i) t[i] = static_cast<uint16_t>(65536 / i - 1);
        return t;
    }();
    const int64_t r = Channel(pixel, 16), g = Channel(pixel, 8), b = Channel(pixel, 0);
    const auto made = [](int64_t v, int64_t delta, int64_t base, int64_t numerator) {
        return Hsv{numerator * (reciprocal[delta] + 1) / 1024 + base, delta * reciprocal[v] / 256, v};
    };
    if (g > r) return g <= b ? made(b, b - r, 256, r - g) : made(g, g - std::min(b, r), 128, b - r);
    if (r <= b) return made(b, b - g, 256, r - g);
    return g >= b ? made(r, r - b, 0, g - b) : made(r, r - g, 383, g - b);
}

inline LICE_pixel FromHsv(const Hsv& c, LICE_pixel alpha) {
    const int64_t p = c.v * (256 - c.s) / 256;
    const auto q = [&c](int64_t e) { return c.v * (16384 - e * c.s) / 16384; };
    const auto pack = [alpha](int64_t r, int64_t g, int64_t b) {
        return alpha << 24 | static_cast<LICE_pixel>(r & 0xFF) << 16 | static_cast<LICE_pixel>(g & 0xFF) << 8 |
               static_cast<LICE_pixel>(b & 0xFF);
    };
    if (c.h < 64) return pack(c.v, q(64 - c.h), p);
    if (c.h < 128) return pack(q(c.h - 64), c.v, p);
    if (c.h < 192) return pack(p, c.v, q(192 - c.h));
    if (c.h < 256) return pack(p, q(c.h - 192), c.v);
    if (c.h < 320) return pack(q(320 - c.h), p, c.v);
    return pack(c.v, p, q(c.h - 320));
}

// The source is an adjustment: red turns the hue, green moves saturation, blue value, and 128 leaves each as it is.
// Rounding shows even at opacity 0.
struct CombineHsvAdjust {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int64_t ia) const {
        const int64_t r = Channel(source, 16), g = Channel(source, 8), b = Channel(source, 0);
        Hsv c = ToHsv(old);
        c.h += (r + r / 2 - 192) * ia / 256;
        if (c.h < 0) {  // at most one turn, which an opacity up to 1 cannot exceed
            c.h += 384;
        } else if (c.h >= 384) {
            c.h -= 384;
        }
        c.s = Clamp255(c.s + (g - 128) * ia / 128);
        c.v = Clamp255(c.v + (b - 128) * ia / 128);
        return FromHsv(c, source >> 24);
    }
};

// --- With the source's own alpha, in blits

// Copying does not mix the alphas but adds them up.
struct CombineAlphaOpaque {  // ia is 256: an opaque source pixel is stored, a clear one changes nothing
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int) const {
        const int a = static_cast<int>(source >> 24);
        return MixOneOver(old, source, a ? a + 1 : 0, a);
    }
    FourPixels operator()(FourPixels old, FourPixels source, int) const {
        return MixFourOver(old, source, FourWeights::AlphaOpaque(source), source);
    }
};

struct CombineAlpha {  // ia is 1 to 255
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const {
        const int sa = ia * (static_cast<int>(source >> 24) + 1) / 256;
        return MixOneOver(old, source, sa, sa);
    }
    FourPixels operator()(FourPixels old, FourPixels source, int ia) const {
        const FourWeights sa = FourWeights::Alpha(source, ia);
        return MixFourOver(old, source, sa, sa.InAlpha());
    }
};

struct CombineAlphaBeyond {  // any opacity; colours beyond a byte wrap
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int64_t ia) const {
        const int64_t a = source >> 24;
        if (a == 0) return old;
        const int64_t sa = ia * (a + 1) / 256, alpha = std::min<int64_t>(255, sa + Channel(old, 24));
        return (CombineCopyBeyond{}(old, source, sa) & 0xFFFFFF) | static_cast<LICE_pixel>(alpha & 0xFF) << 24;
    }
};

// The other modes multiply alpha into the opacity. At full opacity a clear pixel then still weighs 1/256. Only adding
// and multiplying skip it.
template <class Combine>
struct CombineWithAlpha {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int64_t ia) const {
        const int64_t a = source >> 24;
        if (skipsClear && a == 0) return old;
        return Combine{}(old, source, ia * (a + 1) / 256);
    }
    static constexpr bool skipsClear = std::is_same_v<Combine, CombineAdd> || std::is_same_v<Combine, CombineMultiply>;
};
