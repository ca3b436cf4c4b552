// A circle is worked out for one eighth and mirrored into the other seven: step i, from 1 on, gives the height at
// column i, and by the mirror at the diagonal the reach of row i. Each step stands alone, so that of a circle as large
// as you like only the steps that reach the clip are taken.
#include "lice/circle.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "lice/circle_masks.h"
#include "lice/combine.h"
#include "lice/glyph.h"
#include "lice/line.h"
#include "lice/target.h"

namespace {

// Positions and radii up to here leave room in an int for what is added to them, and are far beyond any surface.
// A NaN is not within.
bool Sane(double value) {
    return std::abs(value) < 1 << 30;
}

int Rounded(double value) {
    return static_cast<int>(std::floor(value + 0.5));
}

int64_t RootOf(int64_t square) {
    const auto root = static_cast<int64_t>(std::sqrt(static_cast<double>(square)));
    return root * root > square ? root - 1 : (root + 1) * (root + 1) <= square ? root + 1 : root;
}

// Centre and radius as a raster takes them, in pixels of the backing store.
struct Disc {
    float cx, cy, r;

    void Scale(int scale) {
        for (float* value : {&cx, &cy, &r}) *value = static_cast<float>(LICE_ScaleFloat(*value, scale));
    }
};

// What the two rasters share: where the middle is, and the strokes they are made of. `clipped` is false only where
// everything drawn is known to lie inside.
template <class Combine, bool clipped>
struct Pen {
    const Target& target;
    Combine combine;
    LICE_pixel color;
    RECT clip;  // right and bottom are exclusive
    int xc, yc;

    void Point(int dx, int dy, int weight) const {
        if (HasRow(yc + dy)) PointOnRow(xc + dx, yc + dy, weight);
    }

    // Two pixels of one row, dx to the left and to the right.
    void Pair(int dx, int dy, int weight) const {
        if (!HasRow(yc + dy)) return;
        PointOnRow(xc - dx, yc + dy, weight);
        PointOnRow(xc + dx, yc + dy, weight);
    }

    void Four(int dx, int dy, int weight) const {
        Pair(dx, -dy, weight);
        Pair(dx, dy, weight);
    }

    // The four ends of the axes.
    void Ends(int reach, int weight) const {
        Point(0, -reach, weight);
        Pair(reach, 0, weight);
        Point(0, reach, weight);
    }

    // The rows of a disc; halfWidth(dy) is how far a row reaches on both sides.
    template <class HalfWidth>
    void Rows(int reach, int ia, HalfWidth halfWidth) const {
        const int top = std::max<int>(clip.top, yc - reach), bottom = std::min<int>(clip.bottom - 1, yc + reach);
        for (int y = top; y <= bottom; ++y) {
            const int half = halfWidth(std::abs(y - yc));
            const int first = std::max<int>(clip.left, xc - half), last = std::min<int>(clip.right - 1, xc + half);
            if (first <= last) CombineRun(combine, target.At(first, y), last - first + 1, OneColor{color}, ia);
        }
    }

    // Calls step(i), i ascending from 1, wherever a column or a row i away from the middle meets the clip, until it
    // returns false.
    template <class Step>
    void EachStep(Step step) const {
        const auto distances = [](int64_t middle, int64_t first, int64_t end) {
            return Span{std::max({first - middle, middle - end + 1, int64_t{1}}),
                        std::max(end - middle, middle - first + 1)};
        };
        Span closer = distances(xc, clip.left, clip.right), further = distances(yc, clip.top, clip.bottom);
        if (further.first < closer.first) std::swap(closer, further);
        further.first = std::max(further.first, closer.end);
        for (const Span& span : {closer, further})
            for (int64_t i = span.first; i < span.end; ++i)
                if (!step(static_cast<int>(i))) return;
    }

  private:
    struct Span {
        int64_t first, end;
    };

    // One comparison each: what lies before the first wraps round to far beyond the last.
    static bool Within(unsigned at, unsigned first, unsigned end) { return !clipped || at - first < end - first; }
    bool HasRow(int y) const { return Within(y, clip.top, clip.bottom); }
    void PointOnRow(int x, int y, int weight) const {
        if (!Within(x, clip.left, clip.right)) return;
        LICE_pixel* pixel = target.At(x, y);
        *pixel = combine(*pixel, color, weight);
    }
};

// The midpoint circle: whole pixels, chosen in integers. Walking it pixel by pixel, one keeps an error term and moves
// inward when it is not negative; the sum of all its moves up to step i has the closed forms used here.
struct PlainRaster {
    int64_t r;

    bool Reaches(int64_t i) const { return r > 0 && i * (2 * i - 1) < r * r; }  // up to the diagonal
    int Height(int64_t i) const {  // the largest y with y * (y - 1) + i * i <= r * r
        return static_cast<int>((RootOf(4 * (r * r - i * i) + 1) + 1) / 2);
    }
    int HalfWidth(int64_t dy) const {
        if (dy == 0) return static_cast<int>(r);
        if (Reaches(dy)) return Height(dy);
        const int64_t widest = RootOf(r * r - dy * (dy - 1));  // of the columns that are as high as this row
        return static_cast<int>(widest > 0 && !Reaches(widest) ? widest - 1 : widest);
    }

    template <class AnyPen>
    void Draw(const AnyPen& pen, bool fill, int ia) const {
        const int reach = static_cast<int>(r);
        if (fill) return pen.Rows(reach, ia, [this](int dy) { return HalfWidth(dy); });
        pen.Ends(reach, ia);
        pen.EachStep([&](int i) {
            if (!Reaches(i)) return false;
            const int y = Height(i);
            pen.Four(i, y, ia);
            if (i != y) pen.Four(y, i, ia);
            return true;
        });
    }
};

// Each step's exact height lies between two pixels, which share the opacity: the fringe outside takes the fraction, the
// pixel inside it the rest. Where the step meets the diagonal only half of the mirror images are drawn.
struct SmoothRaster {
    float r;

    double Height(double i) const { return std::sqrt(double{r} * r - i * i); }  // not a number beyond the radius

    template <class AnyPen>
    void Draw(const AnyPen& pen, bool fill, int ia) const {
        const double opacity = ia;
        const int reach = static_cast<int>(r);
        const int fringe = static_cast<int>(opacity * (double{r} - std::floor(r)));
        pen.Ends(reach + 1, fringe);
        if (fill) {
            pen.Rows(reach, ia, [this](int dy) { return static_cast<int>(Height(dy)); });
        } else {
            pen.Ends(reach, ia - fringe);
        }
        pen.EachStep([&](int i) {
            const double height = Height(i);
            if (!(i <= 0.5 + height)) return false;
            const int k = static_cast<int>(height);
            const int outside = static_cast<int>(opacity * (height - k)), inside = ia - outside;
            const bool diagonal = i == static_cast<int>(0.5 + height);
            pen.Four(i, k + 1, outside);
            if (!diagonal) pen.Four(k + 1, i, outside);
            if (fill) return true;
            pen.Pair(k, -i, inside);
            pen.Pair(i, k, inside);
            if (!diagonal) {
                pen.Pair(i, -k, inside);
                pen.Pair(k, i, inside);
            }
            return true;
        });
    }
};

// The quadrants of one soft circle, pulled apart to the corners of a rounded rectangle that lies on the surface with
// all its pixels: each step is worked out once for the four of them. Copies, at opacities from 1 to 256. The fringe at
// the ends of the axes, which corners on whole pixels do not have, is left out.
struct CornersPen {
    LICE_pixel* middle[2][2];  // of each circle: upper or lower, left or right
    ptrdiff_t span;
    LICE_pixel color;

    void Point(LICE_pixel* pixel, int weight) const { *pixel = CombineCopy{}(*pixel, color, weight); }
    void Pair(int dx, int dy, int weight) const {
        Point(middle[dy > 0][0] + dy * span - dx, weight);
        Point(middle[dy > 0][1] + dy * span + dx, weight);
    }
    void Four(int dx, int dy, int weight) const {
        Pair(dx, -dy, weight);
        Pair(dx, dy, weight);
    }
    void Ends(int reach, int weight) const {
        if (weight == 0) return;
        Four(0, reach, weight);
        for (const auto& [left, right] : middle) {
            Point(left - reach, weight);
            Point(right + reach, weight);
        }
    }
    template <class Step>
    void EachStep(Step step) const {
        for (int i = 1; step(i);) ++i;
    }
    template <class HalfWidth>
    void Rows(int, int, HalfWidth) const {}  // corners are not filled
};

// `disc` is all in range, and y counts rows as they lie in memory.
void DrawRaster(const Target& target, const Disc& disc, LICE_pixel color, int ia, int mode, bool aa, bool fill,
                const RECT& clip) {
    if (clip.left >= clip.right || clip.top >= clip.bottom) return;
    const int xc = Rounded(disc.cx), yc = Rounded(disc.cy);
    const int reach = std::abs(static_cast<int>(disc.r)) + 1;  // of the fringe, or of a radius rounded up
    const bool inside =
        xc - reach >= clip.left && yc - reach >= clip.top && xc + reach < clip.right && yc + reach < clip.bottom;
    const auto draw = [&](auto combine, const auto& raster) {
        using Combine = decltype(combine);
        if (inside) return raster.Draw(Pen<Combine, false>{target, combine, color, clip, xc, yc}, fill, ia);
        raster.Draw(Pen<Combine, true>{target, combine, color, clip, xc, yc}, fill, ia);
    };
    if (aa) {
        WithCombine<CopyForms::General>(mode, ia, [&](auto combine) { draw(combine, SmoothRaster{disc.r}); });
    } else {
        const PlainRaster raster{static_cast<int64_t>(0.5 + double{disc.r})};
        WithCombine<CopyForms::SolidHalf>(mode, ia, [&](auto combine) { draw(combine, raster); });
    }
}

void DrawCircle(LICE_IBitmap* dest, Disc disc, LICE_pixel color, float alpha, int mode, bool aa, bool fill) {
    const Target target(dest);
    if (target.Empty()) return;
    if (target.Scales(mode)) disc.Scale(target.scale);
    if (!Sane(disc.cx) || !Sane(disc.cy) || !Sane(disc.r) || disc.r < 0) return;
    if (const CircleMask mask = SmallCircleMask(disc.r, fill, aa); mask.coverage) {
        const int x = static_cast<int>(disc.cx - disc.r), y = static_cast<int>(disc.cy - disc.r);
        LICE_DrawGlyph(dest, x, y, color, mask.coverage, mask.size, mask.size, alpha, mode | LICE_BLIT_IGNORE_SCALING);
        return;
    }
    if (target.flipped) disc.cy = static_cast<float>(target.height - 1) - disc.cy;
    DrawRaster(target, disc, color, Opacity(alpha), mode, aa, fill, RECT{0, 0, target.width, target.height});
}

// As floats: whether an arc goes all the way round is decided in these.
constexpr float Pi = std::numbers::pi_v<float>, TwoPi = 2 * Pi, HalfPi = Pi / 2;

}  // namespace

void LICE_Circle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode, bool aa) {
    DrawCircle(dest, {cx, cy, r}, color, alpha, mode, aa, false);
}

void LICE_FillCircle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode,
                     bool aa) {
    DrawCircle(dest, {cx, cy, r}, color, alpha, mode, aa, true);
}

void LICE_Arc(LICE_IBitmap* dest, float cx, float cy, float r, float lowAngle, float highAngle, LICE_pixel color,
              float alpha, int mode, bool aa) {
    const Target target(dest);
    if (target.Empty() || !std::isfinite(lowAngle) || !std::isfinite(highAngle)) return;
    Disc disc{cx, cy, r};
    if (target.flipped) {
        disc.cy = static_cast<float>(target.logicalHeight - 1) - cy;
        lowAngle = Pi - lowAngle;
        highAngle = Pi - highAngle;
    }
    if (lowAngle > highAngle) std::swap(lowAngle, highAngle);
    if (highAngle - lowAngle >= TwoPi) return LICE_Circle(dest, cx, cy, r, color, alpha, mode, aa);
    const float outside = highAngle >= TwoPi ? highAngle : lowAngle <= -TwoPi ? lowAngle : 0;
    const float wholeTurns = outside - std::fmod(outside, TwoPi);
    highAngle -= wholeTurns;
    lowAngle -= wholeTurns;
    if (target.Scales(mode)) disc.Scale(target.scale);
    if (!Sane(disc.cx) || !Sane(disc.cy) || !Sane(disc.r)) return;

    // From here on in double: in float every rounded rectangle would show a pixel too many.
    const double low = double{lowAngle} + TwoPi, high = double{highAngle} + TwoPi;
    const auto pointAt = [&disc](double angle) {
        return POINT{Rounded(disc.r * std::sin(angle) + disc.cx), Rounded(disc.cy - disc.r * std::cos(angle))};
    };
    POINT from = pointAt(low);
    double quadrantEnd = low - std::fmod(low, double{HalfPi});
    for (double current = low; high > current;) {
        quadrantEnd += HalfPi;
        current = std::min(quadrantEnd, high);
        const POINT to = pointAt(current);
        const auto [left, right] = std::minmax(from.x, to.x);
        const auto [top, bottom] = std::minmax(from.y, to.y);
        // Towards the middle the box ends at the axis, which belongs to both quadrants; outward it takes the fringe in.
        const RECT box{std::max<LONG>(left, 0), std::max<LONG>(top, 0),
                       std::min<LONG>(right + (static_cast<float>(right) != disc.cx) + 1, target.width),
                       std::min<LONG>(bottom + (static_cast<float>(bottom) != disc.cy) + 1, target.height)};
        DrawRaster(target, disc, color, Opacity(alpha), mode, aa, false, box);
        from = to;
    }
}

void LICE_RoundRect(LICE_IBitmap* dest, float x, float y, float w, float h, int cornerRadius, LICE_pixel color,
                    float alpha, int mode, bool aa) {
    const Target target(dest);
    if (target.Empty()) return;
    for (float* value : {&x, &y, &w, &h}) *value = static_cast<float>(std::floor(*value + 0.5));
    if (!Sane(x) || !Sane(y) || !Sane(w) || !Sane(h)) return;
    float r = 0;
    if (cornerRadius > 0) r = std::floor(std::min({static_cast<float>(cornerRadius), w * 0.5f, h * 0.5f}));
    if (r < 2) {
        return LICE_DrawRect(dest, static_cast<int>(x), static_cast<int>(y), static_cast<int>(w), static_cast<int>(h),
                             color, alpha, mode);
    }
    // On a scaled surface a side lies in the middle of its scaled pixels.
    const double o = target.Scales(mode) ? 1.0 - 256.0 / target.scale : 0;
    const auto side = [&](float x1, float y1, float x2, float y2) {
        if (target.Scales(mode)) return LICE_FLine(dest, x1, y1, x2, y2, color, alpha, mode, aa);
        LICE_Line(dest, static_cast<int>(x1), static_cast<int>(y1), static_cast<int>(x2), static_cast<int>(y2), color,
                  alpha, mode, aa);
    };
    side(x + r + o, y + o, x + w - r - o, y + o);
    side(x + r - 1 + o, y + h - o, x + w - r - o, y + h - o);
    side(x + w - o, y + r + o, x + w - o, y + h - r - o);
    side(x + o, y + r - 1 + o, x + o, y + h - r - o);
    const int ia = Opacity(alpha);
    if (aa && target.scale == 0 && (mode & LICE_BLIT_MODE_MASK) == LICE_BLIT_MODE_COPY && ia >= 1 && ia <= 256 &&
        x >= 0 && y >= 0 && x + w < static_cast<float>(target.width) && y + h < static_cast<float>(target.height)) {
        const int left = static_cast<int>(x + r), right = static_cast<int>(x + w - r);
        int upper = static_cast<int>(y + r), lower = static_cast<int>(y + h - r);
        if (target.flipped) {
            std::swap(upper, lower);
            for (int* row : {&upper, &lower}) *row = target.height - 1 - *row;
        }
        return SmoothRaster{r}.Draw(CornersPen{{{target.At(left, upper), target.At(right, upper)},
                                                {target.At(left, lower), target.At(right, lower)}},
                                               target.span,
                                               color},
                                    false, ia);
    }
    const auto corner = [&](float cx, float cy, float low, float high) {
        LICE_Arc(dest, cx, cy, r, low, high, color, alpha, mode, aa);
    };
    corner(x + r + o, y + r + o, -HalfPi, 0);
    corner(x + w - r - o, y + r + o, 0, HalfPi);
    corner(x + w - r - o, y + h - r - o, HalfPi, Pi);
    corner(x + r + o, y + h - r - o, Pi, Pi + HalfPi);
}
