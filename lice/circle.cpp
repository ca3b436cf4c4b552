#include "lice/circle.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "lice/circle_masks.h"
#include "lice/circle_raster.h"
#include "lice/glyph.h"

namespace {

int Rounded(double value) { return static_cast<int>(std::floor(value + 0.5)); }

// In pixels of the backing store; the row counts as it lies in memory.
struct Circle {
    float cx, cy, r;
    bool WithinReach() const { return ::WithinReach(cx) && ::WithinReach(cy) && ::WithinReach(r); }
};

// What one call draws with.
struct Stroke {
    LICE_pixel color;
    int ia, mode;
    bool aa;
};

void DrawRaster(const Target& target, const Circle& circle, const Stroke& k, bool fill, const RECT& clip) {
    if (clip.left >= clip.right || clip.top >= clip.bottom) return;
    const int xc = Rounded(circle.cx), yc = Rounded(circle.cy);
    const int reach = std::abs(static_cast<int>(circle.r)) + 1;  // of the fringe, or of a radius rounded up
    const bool inside =
        xc - reach >= clip.left && yc - reach >= clip.top && xc + reach < clip.right && yc + reach < clip.bottom;
    const auto draw = [&]<class Combine>(const Paint<Combine>& paint, const auto& raster) {
        const auto with = [&](const auto& dots) { fill ? raster.Disc(dots) : raster.Ring(dots); };
        if (inside) return with(CircleDots<Combine, false>{target, paint, clip, xc, yc});
        with(CircleDots<Combine, true>{target, paint, clip, xc, yc});
    };
    if (k.aa) {
        const SmoothRaster raster{circle.r};
        WithPaint<CopyForms::General>(k.color, k.mode, k.ia, [&](auto paint) { draw(paint, raster); });
    } else {
        const PlainRaster raster{static_cast<int64_t>(0.5 + double{circle.r})};
        WithPaint<CopyForms::SolidHalf>(k.color, k.mode, k.ia, [&](auto paint) { draw(paint, raster); });
    }
}

void DrawCircle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode, bool aa,
                bool fill) {
    const Target target(dest, mode);
    if (target.Empty()) return;
    Circle circle = {target.Real(cx), target.Real(cy), target.Real(r)};
    if (!circle.WithinReach() || circle.r < 0) return;
    if (const CircleMask mask = SmallCircleMask(circle.r, fill, aa); mask.coverage) {
        const int x = static_cast<int>(circle.cx - circle.r), y = static_cast<int>(circle.cy - circle.r);
        LICE_DrawGlyph(dest, x, y, color, mask.coverage, mask.size, mask.size, alpha, mode | LICE_BLIT_IGNORE_SCALING);
        return;
    }
    circle.cy = target.RowOf(circle.cy);
    DrawRaster(target, circle, {color, Opacity(alpha), mode, aa}, fill, RECT{0, 0, target.width, target.height});
}

// Floats, because they decide whether an arc goes all the way round.
constexpr float Pi = std::numbers::pi_v<float>, TwoPi = 2 * Pi, HalfPi = Pi / 2;

// The box around two points of a circle, cut to the surface. It ends at the axis, which belongs to both quadrants, and
// takes in the fringe.
RECT BoxOfArc(const Circle& circle, const POINT& a, const POINT& b, const Target& target) {
    const auto [left, right] = std::minmax(a.x, b.x);
    const auto [top, bottom] = std::minmax(a.y, b.y);
    return {std::max<LONG>(left, 0), std::max<LONG>(top, 0),
            std::min<LONG>(right + (static_cast<float>(right) != circle.cx) + 1, target.width),
            std::min<LONG>(bottom + (static_cast<float>(bottom) != circle.cy) + 1, target.height)};
}

// Angles are doubles, since in floats rounded rectangles would show a pixel too many.
void DrawQuadrants(const Target& target, const Circle& circle, double low, double high, const Stroke& stroke) {
    const auto pointAt = [&circle](double angle) {
        return POINT{Rounded(circle.r * std::sin(angle) + circle.cx), Rounded(circle.cy - circle.r * std::cos(angle))};
    };
    POINT from = pointAt(low);
    double quadrantEnd = low - std::fmod(low, double{HalfPi});
    for (double current = low; high > current;) {
        quadrantEnd += HalfPi;
        current = std::min(quadrantEnd, high);
        const POINT to = pointAt(current);
        DrawRaster(target, circle, stroke, false, BoxOfArc(circle, from, to, target));
        from = to;
    }
}

}  // namespace

void LICE_Circle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode, bool aa) {
    DrawCircle(dest, cx, cy, r, color, alpha, mode, aa, false);
}

void LICE_FillCircle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode,
                     bool aa) {
    DrawCircle(dest, cx, cy, r, color, alpha, mode, aa, true);
}

void LICE_Arc(LICE_IBitmap* dest, float cx, float cy, float r, float lowAngle, float highAngle, LICE_pixel color,
              float alpha, int mode, bool aa) {
    const Target target(dest, mode);
    if (target.Empty() || !std::isfinite(lowAngle) || !std::isfinite(highAngle)) return;
    if (target.flipped) {
        lowAngle = Pi - lowAngle;
        highAngle = Pi - highAngle;
    }
    if (lowAngle > highAngle) std::swap(lowAngle, highAngle);
    if (highAngle - lowAngle >= TwoPi) return LICE_Circle(dest, cx, cy, r, color, alpha, mode, aa);
    const float outside = highAngle >= TwoPi ? highAngle : lowAngle <= -TwoPi ? lowAngle : 0;
    const float wholeTurns = outside - std::fmod(outside, TwoPi);
    highAngle -= wholeTurns;
    lowAngle -= wholeTurns;

    const Circle circle = {target.Real(cx), target.Real(target.LogicalRowOf(cy)), target.Real(r)};
    if (circle.WithinReach())
        DrawQuadrants(target, circle, double{lowAngle} + TwoPi, double{highAngle} + TwoPi,
                      {color, Opacity(alpha), mode, aa});
}
