#include "lice/round_rect.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "lice/circle.h"
#include "lice/circle_raster.h"
#include "lice/line.h"

namespace {

// The quadrants of one soft circle, pulled apart to four corners that lie on the surface with all their pixels. Each
// step is worked out once for the four of them.
struct CornerDots {
    Paint<CombineCopy> paint;
    LICE_pixel* middle[2][2];  // of each circle: upper or lower in memory, left or right
    ptrdiff_t span;

    void Pair(int dx, int dy, int weight) const {
        paint.Dot(middle[dy > 0][0] + dy * span - dx, weight);
        paint.Dot(middle[dy > 0][1] + dy * span + dx, weight);
    }
    void FourTimes(int dx, int dy, int weight) const {
        const ptrdiff_t down = dy * span;
        Mix(middle[0][0] - down - dx, middle[0][1] - down + dx, middle[1][0] + down - dx, middle[1][1] + down + dx,
            weight);
    }
    // The fringe of a whole radius has no weight there, and may lie off the surface.
    void Ends(int reach, int weight) const {
        FourTimes(0, reach, weight);
        FourTimes(reach, 0, weight);
    }
    template <class Step>
    void EachStep(Step step) const {
        for (int i = 1; step(i);) ++i;
    }

  private:
    void Mix(LICE_pixel* a, LICE_pixel* b, LICE_pixel* c, LICE_pixel* d, int weight) const {
        if (weight == 0) return;
        const FourPixels mixed = MixFour(FourPixels{*a, *b, *c, *d}, FourPixels{} + paint.color, weight);
        *a = mixed[0];
        *b = mixed[1];
        *c = mixed[2];
        *d = mixed[3];
    }
};

// One call, in whole pixels, with a radius that fits.
struct RoundedOutline {
    LICE_IBitmap* dest;
    const Target& target;
    float x, y, w, h, r;
    LICE_pixel color;
    float alpha;
    int mode;
    bool aa;
    int ia = Opacity(alpha);
    // Sides on a scaled surface lie in the middle of their logical pixels.
    double inset = target.scales ? 1.0 - 256.0 / target.scale : 0;

    // Whether the corners may be drawn as one circle: softly, as copies, apart from each other, all on the surface.
    bool CornersMakeOneCircle() const {
        return aa && target.scale == 0 && (mode & LICE_BLIT_MODE_MASK) == LICE_BLIT_MODE_COPY && ia >= 1 && ia <= 256 &&
               w > 2 * r && h > 2 * r && x >= 0 && y >= 0 && x + w < static_cast<float>(target.width) &&
               y + h < static_cast<float>(target.height);
    }

    void DrawCornersAsArcs() const {
        constexpr float Pi = std::numbers::pi_v<float>, HalfPi = Pi / 2;
        const double left = x + r + inset, right = x + w - r - inset, top = y + r + inset, bottom = y + h - r - inset;
        const auto corner = [&](double cx, double cy, float low, float high) {
            LICE_Arc(dest, static_cast<float>(cx), static_cast<float>(cy), r, low, high, color, alpha, mode, aa);
        };
        corner(left, top, -HalfPi, 0);
        corner(right, top, 0, HalfPi);
        corner(right, bottom, HalfPi, Pi);
        corner(left, bottom, Pi, Pi + HalfPi);
    }

    void DrawSide(double x1, double y1, double x2, double y2) const {
        if (target.scales) {
            LICE_FLine(dest, static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
                       static_cast<float>(y2), color, alpha, mode, aa);
        } else {
            LICE_Line(dest, static_cast<int>(x1), static_cast<int>(y1), static_cast<int>(x2), static_cast<int>(y2),
                      color, alpha, mode, aa);
        }
    }

    // The lower side begins a pixel further left than the upper one, the left side a pixel higher than the right one.
    void DrawSides() const {
        DrawSide(x + r + inset, y + inset, x + w - r - inset, y + inset);
        DrawSide(x + r - 1 + inset, y + h - inset, x + w - r - inset, y + h - inset);
        DrawSide(x + w - inset, y + r + inset, x + w - inset, y + h - r - inset);
        DrawSide(x + inset, y + r - 1 + inset, x + inset, y + h - r - inset);
    }
};

}  // namespace

void LICE_RoundRect(LICE_IBitmap* dest, float x, float y, float w, float h, int cornerRadius, LICE_pixel color,
                    float alpha, int mode, bool aa) {
    const Target target(dest, mode);
    if (target.Empty()) return;
    for (float* value : {&x, &y, &w, &h}) {
        *value = static_cast<float>(std::floor(*value + 0.5));
        if (!WithinReach(*value)) return;
    }
    float r = 0;
    if (cornerRadius > 0) r = std::floor(std::min({static_cast<float>(cornerRadius), w * 0.5f, h * 0.5f}));
    if (r < 2) {
        return LICE_DrawRect(dest, static_cast<int>(x), static_cast<int>(y), static_cast<int>(w), static_cast<int>(h),
                             color, alpha, mode);
    }
    const RoundedOutline outline = {dest, target, x, y, w, h, r, color, alpha, mode, aa};
    outline.DrawSides();
    if (!outline.CornersMakeOneCircle()) return outline.DrawCornersAsArcs();
    LICE_RoundCorners(target, static_cast<int>(x), static_cast<int>(y), static_cast<int>(w), static_cast<int>(h),
                      static_cast<int>(r), color, outline.ia);
}

void LICE_RoundCorners(const Target& target, int x, int y, int w, int h, int radius, LICE_pixel color, int ia) {
    const int left = x + radius, right = x + w - radius;
    const auto [upper, lower] = std::minmax({target.RowOf(y + radius), target.RowOf(y + h - radius)});
    SmoothRaster{static_cast<float>(radius)}.Ring(
        CornerDots{{{}, color, ia},
                   {{target.Stored(left, upper), target.Stored(right, upper)},
                    {target.Stored(left, lower), target.Stored(right, lower)}},
                   target.span});
}
