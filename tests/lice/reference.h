// tests/lice/reference.h
// The combine functions in the plainest form: one channel at a time, in 64 bits, without shortcuts.
#pragma once
#include <algorithm>
#include <cstdint>

#include "lice/pixel.h"

namespace reference {

struct Channels {
    int64_t c[4];  // blue, green, red, alpha
};

inline Channels Split(LICE_pixel p) { return {{p & 255, p >> 8 & 255, p >> 16 & 255, p >> 24}}; }

inline LICE_pixel Join(const Channels& k) {
    LICE_pixel p = 0;
    for (int i = 0; i < 4; ++i) p |= (static_cast<LICE_pixel>(k.c[i]) & 255) << 8 * i;
    return p;
}

template <class Formula>  // of an old and a source channel
LICE_pixel EachChannel(LICE_pixel old, LICE_pixel source, Formula formula) {
    Channels n = Split(old);
    for (int i = 0; i < 4; ++i) n.c[i] = formula(n.c[i], Split(source).c[i]);
    return Join(n);
}

inline int64_t Held(int64_t v) { return v < 0 ? 0 : v > 255 ? 255 : v; }

inline LICE_pixel HsvAdjust(LICE_pixel old, LICE_pixel source, int64_t ia) {
    const auto reciprocal = [](int64_t i) { return i ? 65536 / i - 1 : 0; };
    const Channels d = Split(old), a = Split(source);
    const int64_t r = d.c[2], g = d.c[1], b = d.c[0];
    const int64_t v = std::max({r, g, b});
    int64_t delta, base, numerator;
    if (g > r && g > b)
        delta = g - std::min(b, r), base = 128, numerator = b - r;
    else if (g > r || r <= b)
        delta = b - std::min(g, r), base = 256, numerator = r - g;
    else
        delta = r - std::min(g, b), base = g >= b ? 0 : 383, numerator = g - b;
    int64_t h = numerator * (reciprocal(delta) + 1) / 1024 + base;
    int64_t s = delta * reciprocal(v) / 256;

    h += (a.c[2] + a.c[2] / 2 - 192) * ia / 256;
    h += h < 0 ? 384 : h >= 384 ? -384 : 0;
    s = Held(s + (a.c[1] - 128) * ia / 128);
    const int64_t w = Held(v + (a.c[0] - 128) * ia / 128);

    const int64_t p = w * (256 - s) / 256;
    const int64_t sector = h < 64 ? 0 : h < 128 ? 1 : h < 192 ? 2 : h < 256 ? 3 : h < 320 ? 4 : 5;
    const int64_t distance[] = {64 - h, h - 64, 192 - h, h - 192, 320 - h, h - 320};
    const int64_t q = w * (16384 - distance[sector] * s) / 16384;
    const int64_t rgb[6][3] = {{w, q, p}, {q, w, p}, {p, w, q}, {p, q, w}, {q, p, w}, {w, p, q}};
    return Join({{rgb[sector][2], rgb[sector][1], rgb[sector][0], a.c[3]}});
}

// The mode byte's general function, at any opacity. An unknown mode keeps the old pixel.
inline LICE_pixel Combine(LICE_pixel old, LICE_pixel source, int64_t ia, int modeByte) {
    if (modeByte == LICE_BLIT_MODE_HSVADJ) return HsvAdjust(old, source, ia);
    return EachChannel(old, source, [=](int64_t d, int64_t s) {
        const int64_t t = 256 - s * ia / 256, u = s * ia + (256 - ia) * 128;
        if (modeByte == LICE_BLIT_MODE_COPY) return s + (d - s) * (256 - ia) / 256;
        if (modeByte == LICE_BLIT_MODE_ADD) return Held(d + s * ia / 256);
        if (modeByte == LICE_BLIT_MODE_DODGE) return Held(t >= 2 ? d * 256 / t : d * 256);
        if (modeByte == LICE_BLIT_MODE_MUL) return d * ((256 - ia) * 256 + s * ia) >> 16;
        return modeByte == LICE_BLIT_MODE_OVERLAY ? Held(d * (d * (32768 - u) / 256 + u) >> 15) : d;
    });
}

// With the source's own alpha.
inline LICE_pixel CombineAlpha(LICE_pixel old, LICE_pixel source, int64_t ia, int modeByte) {
    const int64_t a = source >> 24, sa = ia * (a + 1) / 256;
    const bool skipsClear =
        modeByte == LICE_BLIT_MODE_COPY || modeByte == LICE_BLIT_MODE_ADD || modeByte == LICE_BLIT_MODE_MUL;
    if (a == 0 && skipsClear) return old;
    if (modeByte != LICE_BLIT_MODE_COPY) return Combine(old, source, sa, modeByte);
    if (ia == 256 && a == 255) return source;
    Channels n = Split(Combine(old, source, ia == 256 ? a + 1 : sa, modeByte));
    n.c[3] = std::min<int64_t>(255, (ia == 256 ? a : sa) + (old >> 24));
    return Join(n);
}

inline LICE_pixel Mean(LICE_pixel old, LICE_pixel source) {
    return EachChannel(old, source, [](int64_t d, int64_t s) { return (d + s) / 2; });
}

// The quick form, which loses a low bit of both.
inline LICE_pixel Average(LICE_pixel old, LICE_pixel source) {
    return EachChannel(old, source, [](int64_t d, int64_t s) { return d / 2 + s / 2; });
}

inline int64_t ScaleCoord(int64_t value, int scale) {
    return std::clamp<int64_t>(value * scale / 256, INT32_MIN, INT32_MAX);
}

}  // namespace reference
