// Radii up to 3 are drawn by hand, and the halves among them are their neighbours with the middle row and column
// doubled. From 3.5 on a rule that the hand-drawn ones suggest gives the coverage: the ring, one pixel wide, is the
// plain raster's and stands at 255; outside it counts the disc of radius r + 1/2, and inside it, for an outline,
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

constexpr Cases<3> kRadius1 = {
    {79, 255, 79, 255, 15, 255, 79, 255, 79},
    {79, 255, 79, 255, 255, 255, 79, 255, 79},
    {0, 255, 0, 255, 0, 255, 0, 255, 0},
    {0, 255, 0, 255, 255, 255, 0, 255, 0},
};

// clang-format off
constexpr Cases<5> kRadius2 = {
    { 15, 191, 255, 191,  15,
     191, 209,  79, 209, 191,
     255,  79,   0,  79, 255,
     191, 209,  79, 209, 191,
      15, 191, 255, 191,  15},
    { 15, 191, 255, 191,  15,
     191, 209, 255, 209, 191,
     255, 255, 255, 255, 255,
     191, 209, 255, 209, 191,
      15, 191, 255, 191,  15},
    {  0,   0, 255,   0,   0,
       0, 255,   0, 255,   0,
     255,   0,   0,   0, 255,
       0, 255,   0, 255,   0,
       0,   0, 255,   0,   0},
    {  0,   0, 255,   0,   0,
       0, 255, 255, 255,   0,
     255, 255, 255, 255, 255,
       0, 255, 255, 255,   0,
       0,   0, 255,   0,   0},
};

constexpr Cases<7> kRadius3 = {
    {  0, 143, 255, 255, 255, 143,   0,
     143, 255,  97,  64,  97, 255, 143,
     255, 112,   0,   0,   0, 112, 255,
     255,  48,   0,   0,   0,  48, 255,
     255, 112,   0,   0,   0, 112, 255,
     143, 255,  97,  64,  97, 255, 143,
       0, 143, 255, 255, 255, 143,   0},
    {  0, 143, 255, 255, 255, 143,   0,
     143, 255, 255, 255, 255, 255, 143,
     255, 255, 255, 255, 255, 255, 255,
     255, 255, 255, 255, 255, 255, 255,
     255, 255, 255, 255, 255, 255, 255,
     143, 255, 255, 255, 255, 255, 143,
       0, 143, 255, 255, 255, 143,   0},
    {  0,   0, 255, 255, 255,   0,   0,
       0, 255,   0,   0,   0, 255,   0,
     255,   0,   0,   0,   0,   0, 255,
     255,   0,   0,   0,   0,   0, 255,
     255,   0,   0,   0,   0,   0, 255,
       0, 255,   0,   0,   0, 255,   0,
       0,   0, 255, 255, 255,   0,   0},
    {  0,   0, 255, 255, 255,   0,   0,
       0, 255, 255, 255, 255, 255,   0,
     255, 255, 255, 255, 255, 255, 255,
     255, 255, 255, 255, 255, 255, 255,
     255, 255, 255, 255, 255, 255, 255,
       0, 255, 255, 255, 255, 255,   0,
       0,   0, 255, 255, 255,   0,   0},
};
// clang-format on

template <int N>
constexpr Mask<N + 1> Doubled(const Mask<N>& mask) {
    Mask<N + 1> result{};
    for (int y = 0; y <= N; ++y)
        for (int x = 0; x <= N; ++x)
            result[y * (N + 1) + x] = mask[(y <= N / 2 ? y : y - 1) * N + (x <= N / 2 ? x : x - 1)];
    return result;
}

template <int N>
constexpr Cases<N + 1> Doubled(const Cases<N>& c) {
    return {Doubled<N>(c.smoothOutline), Doubled<N>(c.smoothFill), Doubled<N>(c.plainOutline), Doubled<N>(c.plainFill)};
}

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
constexpr Cases<N> ByRule() {
    constexpr int eighths = 4 * (N - 1);  // of a pixel, in the radius
    constexpr int radius = (N - 1) / 2;   // of the ring, whose middle is doubled where N is even
    Cases<N> result{};
    for (int y = 0; y < N; ++y)
        for (int x = 0; x < N; ++x) {
            const int dx = std::max(2 * x - N + 1, N - 1 - 2 * x) / 2, dy = std::max(2 * y - N + 1, N - 1 - 2 * y) / 2;
            const int longer = std::max(dx, dy), shorter = std::min(dx, dy);
            const int rest = radius * radius - shorter * shorter;
            const bool inside = longer * (longer - 1) <= rest;
            const bool ring = inside && (longer + 1) * longer > rest;
            const uint8_t fringe = Sampled<N>(x, y, eighths - 4, eighths + 4);
            const int at = y * N + x;
            result.smoothOutline[at] = ring ? 255 : fringe;
            result.smoothFill[at] = inside ? 255 : fringe;
            result.plainOutline[at] = ring ? 255 : 0;
            result.plainFill[at] = inside ? 255 : 0;
        }
    return result;
}

constexpr Cases<4> kRadius1Half = Doubled(kRadius1);
constexpr Cases<6> kRadius2Half = Doubled(kRadius2);
constexpr Cases<8> kRadius3Half = ByRule<8>();
constexpr Cases<9> kRadius4 = ByRule<9>();
constexpr Cases<11> kRadius5 = ByRule<11>();
constexpr Cases<13> kRadius6 = ByRule<13>();
constexpr Cases<15> kRadius7 = ByRule<15>();

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

constexpr Row kMasks[] = {
    {1.0f, kRadius1},     {1.5f, kRadius1Half}, {2.0f, kRadius2}, {2.5f, kRadius2Half}, {3.0f, kRadius3},
    {3.5f, kRadius3Half}, {4.0f, kRadius4},     {5.0f, kRadius5}, {6.0f, kRadius6},     {7.0f, kRadius7},
};

}  // namespace

CircleMask SmallCircleMask(float r, bool filled, bool aa) {
    for (const Row& row : kMasks)
        if (row.r == r) return {row.byCase[(aa ? 0 : 2) + filled], row.size};
    return {nullptr, 0};
}
