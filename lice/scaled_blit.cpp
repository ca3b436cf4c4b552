#include "lice/scaled_blit.h"

#include <cmath>

#include "lice/blit_rows.h"
#include "lice/paint.h"

namespace {

constexpr int One = 0x10000;               // 1.0 in 16.16
constexpr double FarAway = 2147483648.0;   // beyond every surface; 16.16 still has room
constexpr int FilterFrom = One * 17 / 10;  // the step from which more than four pixels are weighed
constexpr int LargeKernelAbove = 3 * One;
constexpr int RunWidth = 256;  // source pixels gathered at a time

// One axis. Destination pixel i reads at start + i * step.
struct Axis {
    int64_t start, step;  // 16.16
    int64_t first, end;   // of the pixels that lie within dest and read within src

    Axis(int dst, int dstSize, int dstLimit, double srcStart, double srcSize, int srcLimit)
        : start(static_cast<int64_t>(srcStart * One)),
          step(static_cast<int64_t>(srcSize * One / dstSize)),
          first(std::max(-int64_t{dst}, int64_t{0})),
          end(std::min(int64_t{dstSize}, int64_t{dstLimit} - dst)) {
        const auto outside = [&](int64_t i) { return At(i) < 0 || At(i) >> 16 >= srcLimit; };
        while (first < end && outside(first)) ++first;
        while (first < end && outside(end - 1)) --end;
    }
    int64_t At(int64_t i) const { return start + i * step; }
};

// A sum of weighted pixels. Two channels share 64 bits, since 25 weights of 16 bits stay below 32.
struct WeightedSum {
    uint64_t blueRed = 0, greenAlpha = 0;

    void Add(LICE_pixel p, uint64_t weight) {
        blueRed += TwoChannels(p) * weight;
        greenAlpha += TwoChannels(p >> 8) * weight;
    }
    LICE_pixel DividedBy(uint32_t total) const {
        const auto divided = [total](uint64_t sum) {
            return static_cast<uint32_t>(sum) / total | static_cast<uint32_t>(sum >> 32) / total << 16;
        };
        return divided(blueRed) | divided(greenAlpha) << 8;
    }

  private:
    static uint64_t TwoChannels(LICE_pixel p) { return (p & 0xFF) | uint64_t{p & 0xFF0000} << 16; }
};

// The weights of the source pixels around a position, by their distance from it.
struct Kernel {
    int radius = 0;
    uint32_t weights[5][5] = {};  // down and across; the centre is [2][2]

    Kernel() = default;
    explicit Kernel(int64_t largerStep) : radius(largerStep > LargeKernelAbove ? 2 : 1) {
        const double reach = static_cast<double>(largerStep) / One - 1.0;
        for (int dy = -2; dy <= 2; ++dy) {
            for (int dx = -2; dx <= 2; ++dx) {
                const double weight = dx || dy ? reach / std::sqrt(dx * dx + dy * dy) : 1.0;
                weights[dy + 2][dx + 2] = static_cast<uint32_t>(One * std::min(weight, 1.0));
            }
        }
    }
};

struct Stretch {
    const Target &to, &from;
    int dstx, dsty;
    Axis across, down;
    Kernel kernel{};  // for GatherFiltered
};

// Gathers the source of `count` pixels in a row, the first at x, y in 16.16.
using Gather = void (*)(const Stretch& s, int64_t x, int64_t y, int count, LICE_pixel* out);

void GatherNearest(const Stretch& s, int64_t x, int64_t y, int count, LICE_pixel* out) {
    const LICE_pixel* row = s.from.At(0, y >> 16);
    for (int i = 0; i < count; ++i, x += s.across.step) out[i] = row[x >> 16];
}

// The last column and row have no neighbour to lean to, so their fraction is dropped.
void GatherBilinear(const Stretch& s, int64_t x, int64_t y, int count, LICE_pixel* out) {
    const int64_t row = y >> 16;
    const uint32_t yf = row + 1 < s.from.height ? y & 0xFFFF : 0;
    const LICE_pixel* upper = s.from.At(0, row);
    const LICE_pixel* lower = yf ? s.from.At(0, row + 1) : upper;
    for (int i = 0; i < count; ++i, x += s.across.step) {
        const int64_t left = x >> 16;
        const uint32_t xf = left + 1 < s.from.width ? x & 0xFFFF : 0;
        const int64_t right = left + (xf ? 1 : 0);
        const uint32_t both = xf * yf >> 16;
        WeightedSum sum;
        sum.Add(upper[left], One - yf - xf + both);
        sum.Add(upper[right], xf - both);
        sum.Add(lower[left], yf - both);
        sum.Add(lower[right], both);
        out[i] = sum.DividedBy(One);
    }
}

LICE_pixel Filtered(const Target& from, const Kernel& kernel, int64_t column, int64_t row) {
    const int64_t top = std::max<int64_t>(row - kernel.radius, 0);
    const int64_t bottom = std::min<int64_t>(row + kernel.radius, from.height - 1);
    const int64_t left = std::max<int64_t>(column - kernel.radius, 0);
    const int64_t right = std::min<int64_t>(column + kernel.radius, from.width - 1);
    WeightedSum sum;
    uint32_t total = 0;
    for (int64_t y = top; y <= bottom; ++y) {
        const LICE_pixel* pixels = from.At(0, y);
        for (int64_t x = left; x <= right; ++x) {
            const uint32_t weight = kernel.weights[y - row + 2][x - column + 2];
            sum.Add(pixels[x], weight);
            total += weight;
        }
    }
    return sum.DividedBy(total);
}

void GatherFiltered(const Stretch& s, int64_t x, int64_t y, int count, LICE_pixel* out) {
    for (int i = 0; i < count; ++i, x += s.across.step) out[i] = Filtered(s.from, s.kernel, x >> 16, y >> 16);
}

// Surfaces that share pixels are walked one by one: each pixel reads what the one before it has left.
template <class Combine>
void StretchRows(const Stretch& s, Gather gather, Combine combine, int ia) {
    const int64_t runWidth = SharePixels(s.to, s.from) ? 1 : RunWidth;
    LICE_pixel run[RunWidth];
    for (int64_t y = s.down.first; y < s.down.end; ++y) {
        for (int64_t x = s.across.first; x < s.across.end; x += runWidth) {
            const int count = static_cast<int>(std::min(runWidth, s.across.end - x));
            gather(s, s.across.At(x), s.down.At(y), count, run);
            CombineRun(combine, s.to.At(s.dstx + x, s.dsty + y), count, PixelRow{run}, ia);
        }
    }
}

void DrawStretch(Stretch& s, bool filter, int mode, int ia) {
    if ((mode & (LICE_BLIT_USE_ALPHA | 0xFFFF)) == 0 && ia == 128)
        return StretchRows(s, GatherNearest, CombineFastHalf{}, ia);  // the packed mean
    Gather gather = filter ? GatherBilinear : GatherNearest;
    if (filter && s.across.step >= FilterFrom && s.down.step >= FilterFrom) {
        gather = GatherFiltered;
        s.kernel = Kernel(std::max(s.across.step, s.down.step));
    }
    WithBlitCombine<CopyForms::SolidHalf>(mode, ia, [&](auto combine) { StretchRows(s, gather, combine, ia); });
}

bool IsNearWhole(double value) { return std::abs(value - std::floor(value + 0.5)) < 0.03; }

}  // namespace

void LICE_ScaledBlit(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, int dstw, int dsth, float srcx,
                     float srcy, float srcw, float srch, float alpha, int mode) {
    const Target to(dest, mode), from(src, mode);
    if (to.Empty() || from.Empty() || alpha == 0.0f) return;
    for (int* value : {&dstx, &dsty, &dstw, &dsth}) *value = to.Coord(*value);
    double left = srcx, top = srcy, width = srcw, height = srch;
    for (double* value : {&left, &top, &width, &height}) {
        *value = from.Real(*value);
        if (!(std::abs(*value) <= FarAway)) return;
    }
    if (dstw < 1 || dsth < 1) return;

    const bool filter = (mode & LICE_BLIT_FILTER_MASK) == LICE_BLIT_FILTER_BILINEAR;
    const bool sameSize = std::abs(width - dstw) < 0.001 && std::abs(height - dsth) < 0.001;
    if (sameSize && (!filter || (IsNearWhole(left) && IsNearWhole(top)))) {
        const int64_t x = static_cast<int64_t>(left + 0.5), y = static_cast<int64_t>(top + 0.5);
        return BlitBackingPixels(to, from, {dstx, dsty, x, y, x + dstw, y + dsth}, alpha, mode);
    }
    Stretch stretch = {to,
                       from,
                       dstx,
                       dsty,
                       Axis(dstx, dstw, to.width, left, width, from.width),
                       Axis(dsty, dsth, to.height, top, height, from.height)};
    DrawStretch(stretch, filter, mode, Opacity(alpha));
}
