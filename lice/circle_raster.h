// lice/circle_raster.h
// The two rasters of a circle. One eighth is worked out and mirrored into the other seven. Step i, from 1 on, gives the
// height of column i and, mirrored at the diagonal, the reach of row i. Each step stands alone, so that a huge circle
// takes only the steps that reach the clip.
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "lice/paint.h"
#include "lice/target.h"

// Dots mirrored about a middle, and rows through it, counted as they lie in memory. `clipped` is false where all of the
// circle lies inside.
template <class Combine, bool clipped>
struct CircleDots {
    const Target& target;
    Paint<Combine> paint;
    RECT clip;   // right and bottom are exclusive
    int xc, yc;  // the middle

    // One to the left and one to the right.
    void Pair(int dx, int dy, int weight) const {
        if (!Within(yc + dy, clip.top, clip.bottom)) return;
        Dot(xc - dx, yc + dy, weight);
        Dot(xc + dx, yc + dy, weight);
    }

    // Above and below, too.
    void FourTimes(int dx, int dy, int weight) const {
        Pair(dx, -dy, weight);
        Pair(dx, dy, weight);
    }

    // The four ends of the axes.
    void Ends(int reach, int weight) const {
        if (Within(yc - reach, clip.top, clip.bottom)) Dot(xc, yc - reach, weight);
        Pair(reach, 0, weight);
        if (Within(yc + reach, clip.top, clip.bottom)) Dot(xc, yc + reach, weight);
    }

    // The rows of a disc; halfWidth(dy) is how far a row reaches on both sides.
    template <class HalfWidth>
    void Rows(int reach, HalfWidth halfWidth) const {
        const int top = std::max<int>(clip.top, yc - reach), bottom = std::min<int>(clip.bottom - 1, yc + reach);
        for (int row = top; row <= bottom; ++row) {
            const int half = halfWidth(std::abs(row - yc));
            const int first = std::max<int>(clip.left, xc - half), last = std::min<int>(clip.right - 1, xc + half);
            if (first <= last) paint.Run(target.Stored(first, row), last - first + 1);
        }
    }

    // Calls step(i) for each i, from 1 on, whose columns or rows meet the clip, until it returns false.
    template <class Step>
    void EachStep(Step step) const {
        Range nearer = DistancesTo(xc, clip.left, clip.right), further = DistancesTo(yc, clip.top, clip.bottom);
        if (further.first < nearer.first) std::swap(nearer, further);
        further.first = std::max(further.first, nearer.end);
        for (const Range& range : {nearer, further})
            for (int64_t i = range.first; i < range.end; ++i)
                if (!step(static_cast<int>(i))) return;
    }

  private:
    struct Range {
        int64_t first, end;
    };

    // How far the places from `first` to `end` on one axis are from the middle.
    static Range DistancesTo(int64_t middle, int64_t first, int64_t end) {
        return {std::max({first - middle, middle - end + 1, int64_t{1}}), std::max(end - middle, middle - first + 1)};
    }

    // Takes one comparison, since what lies before the first wraps round to far beyond the last.
    static bool Within(unsigned at, unsigned first, unsigned end) { return !clipped || at - first < end - first; }

    void Dot(int x, int row, int weight) const {
        if (Within(x, clip.left, clip.right)) paint.Dot(target.Stored(x, row), weight);
    }
};

// The midpoint circle: whole pixels, chosen in integers. A walk from pixel to pixel keeps an error term and moves
// inward where that is not negative. Height(i) is where all moves up to column i lead.
struct PlainRaster {
    int64_t r;

    // The largest y with y * (y - 1) + i * i <= r * r.
    int Height(int64_t i) const { return static_cast<int>((RootOf(4 * (r * r - i * i) + 1) + 1) / 2); }

    // Whether column i lies above the diagonal: the column before it is higher than i.
    bool Reaches(int64_t i) const { return r > 0 && i * (2 * i - 1) < r * r; }

    // How far a disc's row reaches: as far as its mirror image is high, or to the last column that is high enough.
    int HalfWidth(int64_t dy) const {
        if (dy == 0) return static_cast<int>(r);
        if (Reaches(dy)) return Height(dy);
        const int64_t last = RootOf(r * r - dy * (dy - 1));
        return static_cast<int>(last > 0 && !Reaches(last) ? last - 1 : last);
    }

    template <class Dots>
    void Ring(const Dots& dots) const {
        const int ia = dots.paint.ia;
        dots.Ends(static_cast<int>(r), ia);
        dots.EachStep([&](int i) {
            if (!Reaches(i)) return false;
            const int y = Height(i);
            dots.FourTimes(i, y, ia);
            if (i != y) dots.FourTimes(y, i, ia);
            return true;
        });
    }

    template <class Dots>
    void Disc(const Dots& dots) const {
        dots.Rows(static_cast<int>(r), [this](int dy) { return HalfWidth(dy); });
    }

  private:
    static int64_t RootOf(int64_t square) {
        const auto root = static_cast<int64_t>(std::sqrt(static_cast<double>(square)));
        return root * root > square ? root - 1 : (root + 1) * (root + 1) <= square ? root + 1 : root;
    }
};

// The exact height of a step lies between two pixels, which share the opacity. The fringe outside takes the fraction,
// the pixel inside it the rest. A step on the diagonal is drawn with half of its mirror images.
struct SmoothRaster {
    float r;

    template <class Dots>
    void Ring(const Dots& dots) const {
        const int reach = static_cast<int>(r), fringe = Fringe(dots, reach);
        dots.Ends(reach, dots.paint.ia - fringe);
        EachStep(dots, [&](int i, int k, int inside, bool diagonal) {
            if (!diagonal) {
                dots.FourTimes(k, i, inside);
                return dots.FourTimes(i, k, inside);
            }
            dots.Pair(k, -i, inside);
            dots.Pair(i, k, inside);
        });
    }

    template <class Dots>
    void Disc(const Dots& dots) const {
        const int reach = static_cast<int>(r);
        Fringe(dots, reach);
        dots.Rows(reach, [this](int dy) { return static_cast<int>(Height(dy)); });
        EachStep(dots, [](int, int, int, bool) {});
    }

  private:
    double Height(double i) const { return std::sqrt(double{r} * r - i * i); }  // NaN beyond the radius

    // Draws the fringe at the ends of the axes, and gives its weight.
    template <class Dots>
    int Fringe(const Dots& dots, int reach) const {
        const int weight = static_cast<int>(dots.paint.ia * (double{r} - std::floor(r)));
        dots.Ends(reach + 1, weight);
        return weight;
    }

    // Draws each step's fringe, and calls inner(i, k, weight, diagonal) for the pixels inside it, at height k.
    template <class Dots, class Inner>
    void EachStep(const Dots& dots, Inner inner) const {
        const int ia = dots.paint.ia;
        dots.EachStep([&](int i) {
            const double height = Height(i);
            if (!(i <= 0.5 + height)) return false;
            const int k = static_cast<int>(height), outside = static_cast<int>(ia * (height - k));
            const bool diagonal = i == static_cast<int>(0.5 + height);
            dots.FourTimes(i, k + 1, outside);
            if (!diagonal) dots.FourTimes(k + 1, i, outside);
            inner(i, k, ia - outside, diagonal);
            return true;
        });
    }
};
