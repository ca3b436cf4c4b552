// lice/combine.h
// The arithmetic of drawing: how a source colour is merged into the pixel that is there, under an opacity.
// A combine function is an object without state: combine(old, source, ia) is the new pixel. `ia` is the opacity in
// 1/256; it may vary from pixel to pixel. With a constant source and opacity the compiler lifts what depends on them
// out of the loop, so the colour is split once for each call. WithCombine chooses the function, once for each call.
// The alpha byte is a fourth colour unless said otherwise.
#pragma once
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "lice/four_pixels.h"
#include "lice/pixel.h"
#include "lice/safe_math.h"

// A caller's opacity, 1.0 being opaque.
inline int Opacity(float alpha) {
    return TruncateToInt(alpha * 256.0);
}

// The factors of the formulas: 64 bits, because any opacity is allowed.
using Wide = int64_t;

inline Wide Clamp255(Wide value) {
    return std::clamp<Wide>(value, 0, 255);
}

inline Wide Channel(LICE_pixel pixel, int shift) {
    return pixel >> shift & 0xFF;
}

// The four channels through formula(old, source); of each result the low 8 bits are kept.
template <class Formula>
LICE_pixel EachChannel(LICE_pixel old, LICE_pixel source, Formula formula) {
    const auto at = [&](int shift) {
        return static_cast<LICE_pixel>(formula(Channel(old, shift), Channel(source, shift)) & 0xFF) << shift;
    };
    return at(0) | at(8) | at(16) | at(24);
}

// --- Whole pixels at once, one or four. The shifted forms lose the low bits of each channel, and that is their look.

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

struct CombineHalf {  // (old + source) >> 1 in each channel: what both share, and half of where they differ
    template <class Pixels>
    Pixels operator()(Pixels old, Pixels source, int) const {
        return (old & source) + HalfOf(old ^ source);
    }
};

// --- Copy

struct CombineCopy {  // source + (old - source) * (256 - ia) / 256, for ia from 0 to 256
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const { return Mix(old, source, ia); }
    FourPixels operator()(FourPixels old, FourPixels source, int ia) const { return Mix(old, source, ia); }
    FourPixels operator()(FourPixels old, FourPixels source, FourWeights ia) const { return Mix(old, source, ia); }
};

struct CombineCopyBeyond {  // the same for an opacity beyond 256, where results leave the byte and wrap
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const {
        return EachChannel(old, source, [ia](Wide d, Wide s) { return s + (d - s) * (256 - Wide{ia}) / 256; });
    }
};

// --- The other modes

struct CombineAdd {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const {
        return EachChannel(old, source, [ia](Wide d, Wide s) { return Clamp255(d + s * ia / 256); });
    }
};

struct CombineDodge {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const {
        return EachChannel(old, source, [ia](Wide d, Wide s) {
            const Wide t = 256 - s * ia / 256;
            return Clamp255(t >= 2 ? (d << 8) / t : d << 8);
        });
    }
};

struct CombineMultiply {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const {
        return EachChannel(old, source, [ia](Wide d, Wide s) { return d * ((256 - Wide{ia}) * 256 + s * ia) >> 16; });
    }
};

struct CombineOverlay {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const {
        return EachChannel(old, source, [ia](Wide d, Wide s) {
            const Wide u = s * ia + (256 - Wide{ia}) * 128;
            return Clamp255(d * (d * (32768 - u) / 256 + u) >> 15);
        });
    }
};

// Hue is 0 to 383, six sectors of 64; saturation and value are 0 to 255.
struct Hsv {
    Wide h, s, v;
};

inline Hsv ToHsv(LICE_pixel pixel) {
    // 65536 / i, less one so that the reciprocal of 1 fits.
    static constexpr std::array<uint16_t, 256> reciprocal = [] {
        std::array<uint16_t, 256> t = {};
        for (int i = 1; i < 256; ++i) t[i] = static_cast<uint16_t>(65536 / i - 1);
        return t;
    }();
    const Wide r = Channel(pixel, 16), g = Channel(pixel, 8), b = Channel(pixel, 0);
    const auto made = [](Wide v, Wide delta, Wide base, Wide numerator) {
        return Hsv{numerator * (reciprocal[delta] + 1) / 1024 + base, delta * reciprocal[v] / 256, v};
    };
    if (g > r) return g <= b ? made(b, b - r, 256, r - g) : made(g, g - std::min(b, r), 128, b - r);
    if (r <= b) return made(b, b - g, 256, r - g);
    return g >= b ? made(r, r - b, 0, g - b) : made(r, r - g, 383, g - b);
}

inline LICE_pixel FromHsv(const Hsv& c, LICE_pixel alpha) {
    const Wide p = c.v * (256 - c.s) / 256;
    const auto q = [&c](Wide e) { return c.v * (16384 - e * c.s) / 16384; };
    const auto pack = [alpha](Wide r, Wide g, Wide b) {
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

// The source is an adjustment: red turns the hue, green moves saturation, blue value; 128 leaves each as it is.
// The rounding of the two conversions shows even at opacity 0.
struct CombineHsvAdjust {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const {
        const Wide r = Channel(source, 16), g = Channel(source, 8), b = Channel(source, 0);
        Hsv c = ToHsv(old);
        c.h += (r + r / 2 - 192) * ia / 256;
        if (c.h < 0) {  // one turn at most, as far as an opacity up to 1 can go
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

// In copy mode alpha itself is not mixed but adds up.
struct CombineAlphaOpaque {  // ia is 256: an opaque source pixel is stored as it is, a clear one changes nothing
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int) const {
        const int a = static_cast<int>(source >> 24);
        return MixOver(old, source, a ? a + 1 : 0, a);
    }
    FourPixels operator()(FourPixels old, FourPixels source, int) const {
        return MixOver(old, source, FourWeights::AlphaOpaque(source), source);
    }
};

struct CombineAlpha {  // ia is 1 to 255
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const {
        const int sa = ia * (static_cast<int>(source >> 24) + 1) / 256;
        return MixOver(old, source, sa, sa);
    }
    FourPixels operator()(FourPixels old, FourPixels source, int ia) const {
        const FourWeights sa = FourWeights::Alpha(source, ia);
        return MixOver(old, source, sa, sa.InAlpha());
    }
};

struct CombineAlphaBeyond {  // any opacity, where colours leave the byte and wrap
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const {
        const Wide a = source >> 24;
        if (a == 0) return old;
        const int sa = static_cast<int>(ia * (a + 1) / 256);
        const Wide alpha = std::min<Wide>(255, sa + Channel(old, 24));
        return (CombineCopyBeyond{}(old, source, sa) & 0xFFFFFF) | static_cast<LICE_pixel>(alpha & 0xFF) << 24;
    }
};

// The other modes take alpha into the opacity. Where even opacity 0 would show, a clear source pixel is not skipped.
template <class Combine, bool skipsClear>
struct CombineWithAlpha {
    LICE_pixel operator()(LICE_pixel old, LICE_pixel source, int ia) const {
        const Wide a = source >> 24;
        if (skipsClear && a == 0) return old;
        return Combine{}(old, source, static_cast<int>(ia * (a + 1) / 256));
    }
};

// --- The choice

// What a family of loops takes in copy mode, in place of the general form.
enum class CopyForms {
    General,    // nothing: its weights vary
    Solid,      // a store at 256
    SolidHalf,  // and the exact mean at 128
    Fast,       // a store at 256, and the shifted forms at 192, 128 and 64
};

// Calls loop(combine) for the mode's low byte, with an object of the function's own type, so that the loop is compiled
// once for each. Nothing at opacity 0, below 0 in copy mode, or for an unknown mode.
template <CopyForms forms, class Loop>
void WithCombine(int mode, int ia, Loop loop) {
    if (ia == 0) return;
    switch (mode & LICE_BLIT_MODE_MASK) {
        case LICE_BLIT_MODE_COPY:
            if (ia < 0) return;
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

// The same for blits, where the source's own alpha may take part.
template <CopyForms forms, class Loop>
void WithBlitCombine(int mode, int ia, Loop loop) {
    if (!(mode & LICE_BLIT_USE_ALPHA)) return WithCombine<forms>(mode, ia, loop);
    if (ia == 0) return;
    switch (mode & LICE_BLIT_MODE_MASK) {
        case LICE_BLIT_MODE_COPY:
            if (ia < 0) return;
            if (ia == 256) return loop(CombineAlphaOpaque{});
            return ia < 256 ? loop(CombineAlpha{}) : loop(CombineAlphaBeyond{});
        case LICE_BLIT_MODE_ADD:
            return loop(CombineWithAlpha<CombineAdd, true>{});
        case LICE_BLIT_MODE_DODGE:
            return loop(CombineWithAlpha<CombineDodge, false>{});
        case LICE_BLIT_MODE_MUL:
            return loop(CombineWithAlpha<CombineMultiply, true>{});
        case LICE_BLIT_MODE_OVERLAY:
            return loop(CombineWithAlpha<CombineOverlay, false>{});
        case LICE_BLIT_MODE_HSVADJ:
            return loop(CombineWithAlpha<CombineHsvAdjust, false>{});
    }
}

// --- Runs

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

// Combines `count` pixels in a row, four at a time where the function can. A source row that overlaps `dest` is read
// up to three pixels ahead of what is written.
template <class Combine, class Source>
void CombineRun(Combine combine, LICE_pixel* dest, ptrdiff_t count, Source source, int ia) {
    ptrdiff_t x = 0;
    if constexpr (requires(FourPixels four) { combine(four, four, ia); }) {
#pragma GCC unroll 4  // so that a short body's speed does not hang on where it happens to lie
        for (; x + 4 <= count; x += 4) StoreFour(dest + x, combine(LoadFour(dest + x), source.Four(x), ia));
        if (const ptrdiff_t n = count - x; n > 0)
            StoreSome(dest + x, combine(LoadSome(dest + x, n), source.Some(x, n), ia), n);
    } else {
        for (; x < count; ++x) dest[x] = combine(dest[x], source[x], ia);
    }
}
