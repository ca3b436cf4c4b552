#include "lice/polygon.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <new>

#include "lice/paint.h"
#include "lice/safe_math.h"
#include "lice/target.h"

namespace {

double Difference(int a, int b) { return static_cast<double>(int64_t{a} - b); }

// --- Trapezoids

// Where the two sides of a trapezoid begin or end.
struct Level {
    double left, right;
    int y;
};

// A side on its way down the rows: a whole pixel, and how far it is towards the next one, in 1/65536.
class Side {
  public:
    // `perRow` is 65536 divided by the rows from top to bottom.
    Side(double top, double bottom, double perRow) : at_(static_cast<int64_t>(std::floor(top))) {
        constexpr double most = 1 << 29;
        const auto delta = static_cast<int64_t>(std::floor(std::clamp((bottom - top) * perRow, -most, most) + 0.5));
        direction_ = delta < 0 ? -1 : 1;
        delta_ = delta * direction_;
        fraction_ = static_cast<int64_t>(std::floor((top - std::floor(top)) * 65536.0 * direction_ + 0.5));
    }

    int64_t At() const { return at_; }

    void Advance(int64_t rows) {
        fraction_ += delta_ * rows;
        at_ += direction_ * (fraction_ >> 16);
        fraction_ &= 0xFFFF;
    }

  private:
    int64_t at_, fraction_;
    int64_t delta_;      // 1/65536 of a pixel for each row, never negative
    int64_t direction_;  // 1 or -1
};

// Fills between the two sides, from `row` up to the row before `end`.
template <class Combine>
void FillBetween(const Target& target, const Paint<Combine>& paint, Side left, Side right, int64_t row, int64_t end) {
    for (; row < end; ++row) {
        const int64_t first = std::max<int64_t>(left.At(), 0);
        const int64_t count = std::min<int64_t>(right.At() + 1, target.width) - first;
        if (count > 0) paint.Run(target.Stored(first, row), count);
        left.Advance(1);
        right.Advance(1);
    }
}

// --- Polygons

struct Point {
    int x, y;
};

// The corner that follows `from` on one side: the one that leans furthest in `direction` (-1 left, 1 right), or the
// last of several on one line. `from` itself when nothing lies below it.
int NextCorner(const Point* points, int count, int from, int direction) {
    int next = from;
    double leaning = 0;
    for (int i = from + 1; i < count; ++i) {
        if (points[i].y == points[from].y) continue;
        const double slope = Difference(points[i].x, points[from].x) / Difference(points[i].y, points[from].y);
        if (next == from || (slope - leaning) * direction >= 0) {
            next = i;
            leaning = slope;
        }
    }
    return next;
}

// Where the edge from `a` down to `b` crosses row y. Above and below it, its end.
double EdgeAt(const Point& a, const Point& b, int y) {
    if (y <= a.y) return a.x;
    if (y >= b.y) return b.x;
    return Difference(y, a.y) * (Difference(b.x, a.x) / Difference(b.y, a.y)) + a.x;
}

// The points are sorted by row, then from left to right, and span at least two rows.
void FillSorted(LICE_IBitmap* dest, const Point* points, int count, int height, LICE_pixel color, float alpha,
                int mode) {
    int left = 0, right = 0;  // the upper corners of the two sides; a flat top lies between them
    for (int i = 1; points[i].y == points[0].y; ++i) {
        right = i;
        if (points[i].x == points[0].x) left = i;
    }
    int nextLeft = NextCorner(points, count, left, -1), nextRight = NextCorner(points, count, right, 1);
    int y = points[0].y;
    while ((left != nextLeft || right != nextRight) && y < height) {
        const int yEnd = std::min(points[nextLeft].y, points[nextRight].y);
        const auto leftAt = [&](int row) { return EdgeAt(points[left], points[nextLeft], row); };
        const auto rightAt = [&](int row) { return EdgeAt(points[right], points[nextRight], row); };
        LICE_FillTrapezoid(dest, leftAt(y), rightAt(y), y, leftAt(yEnd), rightAt(yEnd), yEnd, color, alpha, mode);
        if (points[nextLeft].y == yEnd) {
            left = nextLeft;
            nextLeft = NextCorner(points, count, left, -1);
        }
        if (points[nextRight].y == yEnd) {
            right = nextRight;
            nextRight = NextCorner(points, count, right, 1);
        }
        y = yEnd < height ? yEnd + 1 : height;  // no row is combined twice
    }
}

}  // namespace

void LICE_FillTrapezoid(LICE_IBitmap* dest, double topLeft, double topRight, int topY, double bottomLeft,
                        double bottomRight, int bottomY, LICE_pixel color, float alpha, int mode) {
    const Target target(dest, mode);
    if (target.Empty()) return;
    Level top{topLeft, topRight, topY}, bottom{bottomLeft, bottomRight, bottomY};
    if (top.y > bottom.y) std::swap(top, bottom);
    for (Level* level : {&top, &bottom}) {
        if (level->left > level->right) std::swap(level->left, level->right);
        *level = {target.Real(level->left), target.Real(level->right), target.Coord(level->y)};
    }
    const int width = target.width, height = target.height;
    if ((top.right < 0 && bottom.right < 0) || (top.left >= width && bottom.left >= width)) return;
    if (bottom.y < 0 || top.y >= height) return;
    if (top.left <= 0 && bottom.left <= 0) top.left = bottom.left = 0;
    if (top.right >= width - 1 && bottom.right >= width - 1) top.right = bottom.right = width - 1;
    // Sides that start or end beyond every int, or nowhere, are left out.
    for (double x : {top.left, top.right, bottom.left, bottom.right})
        if (!(std::abs(x) <= 0x1p31)) return;

    const double perRow = top.y == bottom.y ? 0.0 : 65536.0 / Difference(bottom.y, top.y);
    Side left(top.left, bottom.left, perRow), right(top.right, bottom.right, perRow);
    const int first = std::max(top.y, 0);
    left.Advance(int64_t{first} - top.y);
    right.Advance(int64_t{first} - top.y);
    const int extra = target.scales ? target.scale / 256 - 1 : 0;  // rows of a logical row beyond its first
    const int64_t end = std::min<int64_t>(bottom.y, int64_t{height} - 1 - extra) + 1 + extra;
    WithPaint<CopyForms::Fast>(color, mode, Opacity(alpha),
                               [&](auto paint) { FillBetween(target, paint, left, right, first, end); });
}

void LICE_FillTrapezoid(LICE_IBitmap* dest, int topLeft, int topRight, int topY, int bottomLeft, int bottomRight,
                        int bottomY, LICE_pixel color, float alpha, int mode) {
    const auto real = [](int x) { return static_cast<double>(x); };
    LICE_FillTrapezoid(dest, real(topLeft), real(topRight), topY, real(bottomLeft), real(bottomRight), bottomY, color,
                       alpha, mode);
}

void LICE_FillConvexPolygon(LICE_IBitmap* dest, const int* x, const int* y, int count, LICE_pixel color, float alpha,
                            int mode) {
    const Target target(dest, mode);
    if (target.Empty() || !x || !y || count < 3) return;

    Point onStack[512];
    std::unique_ptr<Point[]> onHeap;
    Point* points = onStack;
    if (count > 512) {
        onHeap.reset(new (std::nothrow) Point[count]);
        points = onHeap.get();
        if (!points) return;
    }
    int leftmost = target.width, rightmost = 0;
    for (int i = 0; i < count; ++i) {
        points[i] = {target.Coord(x[i]), HeldInInt(target.RowOf(int64_t{target.Coord(y[i])}))};
        leftmost = std::min(leftmost, points[i].x);
        rightmost = std::max(rightmost, points[i].x);
    }
    std::sort(points, points + count,
              [](const Point& a, const Point& b) { return a.y != b.y ? a.y < b.y : a.x < b.x; });

    mode |= LICE_BLIT_IGNORE_SCALING;  // the points are scaled already
    const int row = points[0].y;
    if (row != points[count - 1].y) return FillSorted(dest, points, count, target.height, color, alpha, mode);
    if (row < 0 || row >= target.height || leftmost > rightmost) return;
    LICE_FillTrapezoid(dest, leftmost, rightmost, row, leftmost, rightmost, row, color, alpha, mode);
}

void LICE_FillTriangle(LICE_IBitmap* dest, int x1, int y1, int x2, int y2, int x3, int y3, LICE_pixel color,
                       float alpha, int mode) {
    const int x[] = {x1, x2, x3}, y[] = {y1, y2, y3};
    LICE_FillConvexPolygon(dest, x, y, 3, color, alpha, mode);
}
