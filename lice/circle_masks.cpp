// Radii up to 3 are drawn by hand. From 3.5 on a rule that these suggest gives the coverage: the ring, one pixel wide,
// is the plain raster's and stands at 255; outside it counts the disc of radius r + 1/2, and inside it, for an outline,
// whatever lies beyond r - 1/2, both by 4 by 4 samples a pixel. The compiler works it out, so the masks are constants
// all the same.
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
    bool ring, enclosed;  // part of the plain outline; inside it
};

// Only the upper left quarter is asked for, quarter(x, y); the others are its mirror images, which share the middle row
// and column where N is odd.
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

// Coverage of one pixel by the samples whose distance from the middle lies in inner to outer, in eighths of a pixel.
template <int N>
constexpr uint8_t Sampled(int x, int y, int inner, int outer) {
    int hits = 0;
    for (int sample = 0; sample < 16; ++sample) {
        const int dx = 8 * x + sample % 4 * 2 + 1 - 4 * N, dy = 8 * y + sample / 4 * 2 + 1 - 4 * N;
        const int distance = dx * dx + dy * dy;
        hits += inner * inner <= distance && distance <= outer * outer;
    }
    return static_cast<uint8_t>(std::max(0, 16 * hits - 1));
}

template <int N>
constexpr Cases<N> ByRule = MakeCases<N>([](int x, int y) {
    constexpr int eighths = 4 * (N - 1);  // of a pixel, in the radius
    constexpr int radius = (N - 1) / 2;   // of the ring
    const int dx = (N - 1) / 2 - x, dy = (N - 1) / 2 - y;
    const int longer = std::max(dx, dy), shorter = std::min(dx, dy);
    const int rest = radius * radius - shorter * shorter;
    const bool inside = longer * (longer - 1) <= rest, ring = inside && (longer + 1) * longer > rest;
    return Pixel{ring ? uint8_t{255} : Sampled<N>(x, y, eighths - 4, eighths + 4), ring, inside};
});

struct Row {
    float r;
    int size;
    const uint8_t* byCase[4];  // outline, fill, plain outline, plain fill

    template <int N>
    constexpr Row(float radius, const Cases<N>& c)
        : r(radius),
          size(N),
          byCase{c.smoothOutline.data(), c.smoothFill.data(), N < 11 ? c.plainOutline.data() : nullptr,
                 N < 11 ? c.plainFill.data() : nullptr} {}
};

constexpr Row Masks[] = {
    {1.0f, ByHand<3, Radius1>}, {1.5f, ByHand<4, Radius1>}, {2.0f, ByHand<5, Radius2>}, {2.5f, ByHand<6, Radius2>},
    {3.0f, ByHand<7, Radius3>}, {3.5f, ByRule<8>},          {4.0f, ByRule<9>},          {5.0f, ByRule<11>},
    {6.0f, ByRule<13>},         {7.0f, ByRule<15>},
};

}  // namespace

CircleMask SmallCircleMask(float r, bool filled, bool aa) {
    for (const Row& row : Masks)
        if (row.r == r) return {row.byCase[(aa ? 0 : 2) + filled], row.size};
    return {nullptr, 0};
}
