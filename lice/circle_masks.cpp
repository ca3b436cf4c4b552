// Radii up to 3 are drawn by hand. From 3.5 on coverage follows a rule that these suggest. The plain raster's ring is
// full. Every other pixel counts how much of it lies between the radii r - 1/2 and r + 1/2.
#include "lice/circle_masks.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

template <int N>
using Mask = std::array<uint8_t, size_t{N} * N>;

template <int N>
struct Cases {
    Mask<N> smoothOutline, smoothFill, plainOutline, plainFill;
};

struct Pixel {
    uint8_t smooth;       // of the anti-aliased outline
    bool ring, enclosed;  // on the plain outline; within it
};

// quarter(x, y) gives the upper left quarter, with the middle row and column where N is odd. The others mirror it.
template <int N, class Quarter>
constexpr Cases<N> MakeCases(Quarter quarter) {
    Cases<N> cases{};
    for (int i = 0; i < N * N; ++i) {
        const int x = i % N, y = i / N;
        const Pixel pixel = quarter(std::min(x, N - 1 - x), std::min(y, N - 1 - y));
        cases.smoothOutline[i] = pixel.smooth;
        cases.smoothFill[i] = pixel.enclosed ? 255 : pixel.smooth;
        cases.plainOutline[i] = pixel.ring ? 255 : 0;
        cases.plainFill[i] = pixel.ring || pixel.enclosed ? 255 : 0;
    }
    return cases;
}

// --- By hand

template <int Q>
struct Drawn {
    uint8_t smooth[Q][Q], ring[Q][Q];
};

constexpr Drawn<2> Radius1 = {{{79, 255}, {255, 15}}, {{0, 1}, {1, 0}}};
constexpr Drawn<3> Radius2 = {{{15, 191, 255}, {191, 209, 79}, {255, 79, 0}}, {{0, 0, 1}, {0, 1, 0}, {1, 0, 0}}};
constexpr Drawn<4> Radius3 = {{{0, 143, 255, 255}, {143, 255, 97, 64}, {255, 112, 0, 0}, {255, 48, 0, 0}},
                              {{0, 0, 1, 1}, {0, 1, 0, 0}, {1, 0, 0, 0}, {1, 0, 0, 0}}};

template <int N, const auto& drawn>
constexpr Cases<N> ByHand = MakeCases<N>([](int x, int y) {
    const uint8_t* ring = drawn.ring[y];
    return Pixel{drawn.smooth[y][x], ring[x] != 0, std::find(ring, ring + x, 1) != ring + x};
});

// --- By rule

// Takes 4 by 4 samples of a pixel, and counts those between two distances from the middle, in eighths of a pixel.
template <int N>
constexpr uint8_t Sampled(int x, int y, int nearest, int furthest) {
    int hits = 0;
    for (int sample = 0; sample < 16; ++sample) {
        const int dx = 8 * x + sample % 4 * 2 + 1 - 4 * N, dy = 8 * y + sample / 4 * 2 + 1 - 4 * N;
        const int square = dx * dx + dy * dy;
        hits += nearest * nearest <= square && square <= furthest * furthest;
    }
    return static_cast<uint8_t>(std::max(0, 16 * hits - 1));
}

template <int N>
constexpr Cases<N> ByRule = MakeCases<N>([](int x, int y) {
    constexpr int radius = (N - 1) / 2, eighths = 4 * (N - 1);  // in whole pixels, and exactly
    const int height = std::max(radius - x, radius - y), column = std::min(radius - x, radius - y);
    // The plain raster draws each column at the largest height that lies within.
    const auto within = [column](int h) { return h * (h - 1) + column * column <= radius * radius; };
    const bool inside = within(height), ring = inside && !within(height + 1);
    return Pixel{ring ? uint8_t{255} : Sampled<N>(x, y, eighths - 4, eighths + 4), ring, inside};
});

struct HeldRadius {
    float r;
    int size;
    const uint8_t* byCase[4];  // outline, fill, plain outline, plain fill

    template <int N>
    constexpr HeldRadius(float radius, const Cases<N>& c)
        : r(radius),
          size(N),
          byCase{c.smoothOutline.data(), c.smoothFill.data(), N < 11 ? c.plainOutline.data() : nullptr,
                 N < 11 ? c.plainFill.data() : nullptr} {}
};

constexpr HeldRadius Held[] = {
    {1.0f, ByHand<3, Radius1>}, {1.5f, ByHand<4, Radius1>}, {2.0f, ByHand<5, Radius2>}, {2.5f, ByHand<6, Radius2>},
    {3.0f, ByHand<7, Radius3>}, {3.5f, ByRule<8>},          {4.0f, ByRule<9>},          {5.0f, ByRule<11>},
    {6.0f, ByRule<13>},         {7.0f, ByRule<15>},
};

}  // namespace

CircleMask SmallCircleMask(float r, bool filled, bool aa) {
    for (const HeldRadius& held : Held)
        if (held.r == r) return {held.byCase[(aa ? 0 : 2) + filled], held.size};
    return {nullptr, 0};
}
