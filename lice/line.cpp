#include "lice/line.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "lice/combine.h"
#include "lice/safe_math.h"
#include "lice/target.h"

namespace {

// --- Clipping

// Integer lines end on the last row and column. Float lines stay one pixel further in, since each of their pixels has
// a neighbour; they are out from `limit` on, and a point that is out is moved to a whole pixel before it.
struct IntegerEdge {
    using Number = int64_t;
    static Number Out(int size) { return size; }
    static Number MovedTo(int size) { return size - 1; }
    static Number Along(Number from, Number across, Number reach, Number whole) {
        return from + static_cast<Number>(static_cast<double>(across) * static_cast<double>(reach) /
                                          static_cast<double>(whole));
    }
};

struct FloatEdge {
    using Number = float;
    static Number Out(int size) { return static_cast<float>(size - 1); }
    static Number MovedTo(int size) { return static_cast<float>(size - 2); }
    static Number Along(Number from, Number across, Number reach, Number whole) {
        return from + across * reach / whole;
    }
};

template <class Edge>
struct Segment {
    using Number = typename Edge::Number;
    Number x1, y1, x2, y2;

    static int Code(Number x, Number y, const Target& t) {
        const auto inside = [](Number v, int size) { return v < Edge::Out(size); };  // and NaN is not
        return (x < 0 ? 1 : inside(x, t.width) ? 0 : 2) | (y < 0 ? 4 : inside(y, t.height) ? 0 : 8);
    }

    // Moves the ends onto the surface; false when nothing of the line is on it.
    bool Clip(const Target& t) {
        for (int pass = 0; pass < 33; ++pass) {
            const int first = Code(x1, y1, t), second = Code(x2, y2, t);
            if (!first && !second) return true;
            if (first & second) return false;
            const int code = first ? first : second;
            Number x, y;
            if (code & 12) {
                y = code & 8 ? Edge::MovedTo(t.height) : 0;
                x = Edge::Along(x1, x2 - x1, y - y1, y2 - y1);
            } else {
                x = code & 2 ? Edge::MovedTo(t.width) : 0;
                y = Edge::Along(y1, y2 - y1, x - x1, x2 - x1);
            }
            (first ? x1 : x2) = x;
            (first ? y1 : y2) = y;
        }
        return false;
    }
};

// --- Drawing

// One call's colour and opacity, with `combine` as the arithmetic.
template <class Combine>
struct Pen {
    Combine combine;
    LICE_pixel color;
    int ia;

    void Draw(LICE_pixel* pixel, int weight) const { *pixel = combine(*pixel, color, weight); }
    void Draw(LICE_pixel* pixel) const { Draw(pixel, ia); }
    // Of a pixel and its neighbour across the line, each gets its share of the opacity, in 1/256.
    int Share(int part) const { return ia == 256 ? part : static_cast<int>(Wide{ia} * part >> 8); }
    // `moved` is how far the line has come from the one to the other, in 1/65536.
    void DrawPair(LICE_pixel* pixel, LICE_pixel* neighbour, int moved) const {
        Draw(pixel, Share(255 - (moved >> 8)));
        Draw(neighbour, Share(moved >> 8));
    }
};

template <class Combine>
void DrawColumn(const Pen<Combine>& pen, LICE_pixel* pixel, ptrdiff_t step, int64_t count) {
    for (; count > 0; --count, pixel += step) pen.Draw(pixel);
}

// A diagonal of n + 1 pixels, each but the last with a neighbour on both sides.
template <class Core, class Fringe>
void DrawSoftDiagonal(LICE_pixel* pixel, ptrdiff_t xStep, ptrdiff_t yStep, int64_t n, Core core, Fringe fringe) {
    for (; n > 0; --n, pixel += xStep + yStep) {
        core(pixel);
        fringe(pixel + xStep);
        fringe(pixel + yStep);
    }
    core(pixel);
}

// Walked from both ends toward the middle, which makes it exactly symmetrical.
struct GeneralLine {
    LICE_pixel *end1, *end2;
    ptrdiff_t majorStep, minorStep;
    int64_t length;  // of the major axis
    int slope;       // of the minor axis, in 1/65536

    // Steps across once the distance moved reaches `threshold`, then along.
    void Advance(LICE_pixel*& p1, LICE_pixel*& p2, int& moved, int threshold) const {
        moved += slope;
        if (moved >= threshold) {
            p1 += minorStep;
            p2 -= minorStep;
            moved -= 0x10000;
        }
        p1 += majorStep;
        p2 -= majorStep;
    }

    template <class Combine>
    void DrawSoft(const Pen<Combine>& pen) const {
        pen.Draw(end1);
        pen.Draw(end2);
        LICE_pixel *p1 = end1 + majorStep, *p2 = end2 - majorStep;
        int moved = slope;
        for (int64_t i = (length + 1) / 2 - 1; i > 0; --i) {
            pen.DrawPair(p1, p1 + minorStep, moved);
            pen.DrawPair(p2, p2 - minorStep, moved);
            Advance(p1, p2, moved, 0x10000);
        }
        if (length % 2 == 0) pen.DrawPair(p1, p1 + minorStep, moved);
    }

    template <class Combine>
    void DrawPlain(const Pen<Combine>& pen) const {
        LICE_pixel *p1 = end1, *p2 = end2;
        int moved = 0;
        for (int64_t i = (length + 1) / 2; i > 0; --i) {
            pen.Draw(p1);
            pen.Draw(p2);
            Advance(p1, p2, moved, 0x8000);
        }
        if (length % 2 == 0) pen.Draw(p1);
    }
};

GeneralLine MakeGeneralLine(const Segment<IntegerEdge>& s, const Target& target) {
    GeneralLine line = {target.At(s.x1, s.y1), target.At(s.x2, s.y2), target.span, 1, s.y2 - s.y1, 0};
    int64_t minor = s.x2 - s.x1;
    if (std::abs(minor) > std::abs(line.length)) {
        std::swap(minor, line.length);
        std::swap(line.majorStep, line.minorStep);
    }
    if (line.length < 0) {
        line.length = -line.length;
        minor = -minor;
        std::swap(line.end1, line.end2);
    }
    if (minor < 0) {
        minor = -minor;
        line.minorStep = -line.minorStep;
    }
    line.slope = static_cast<int>(65536.0 * static_cast<double>(minor) / static_cast<double>(line.length));
    return line;
}

// Draws along the longer axis, from the first whole place on it to the last.
void DrawFloatLine(Segment<FloatEdge> s, const Target& target, LICE_pixel color, int mode, int ia) {
    const bool wide = std::abs(s.x2 - s.x1) > std::abs(s.y2 - s.y1);
    float start = wide ? s.x1 : s.y1, end = wide ? s.x2 : s.y2;
    float startMinor = wide ? s.y1 : s.x1, endMinor = wide ? s.y2 : s.x2;
    if (end < start) {
        std::swap(start, end);
        std::swap(startMinor, endMinor);
    }
    const ptrdiff_t majorStep = wide ? 1 : target.span, minorStep = wide ? target.span : 1;
    const int minorSize = wide ? target.height : target.width;
    const int direction = endMinor - startMinor < 0 ? -1 : 1;

    const int first = static_cast<int>(std::ceil(start));
    const int n = static_cast<int>(std::floor(end) - std::ceil(start));
    const float slope = (endMinor - startMinor) / (end - start);
    const float m = (std::ceil(start) - start) * slope + startMinor;
    int moved = static_cast<int>(65536.0f * (m - std::floor(m)));
    if (direction < 0) moved = 65535 - moved;
    const int step = static_cast<int>(65536.0f * std::abs(slope));
    int minor = static_cast<int>(m) + (direction < 0 ? 1 : 0);

    const auto inside = [minorSize](int place) { return place >= 0 && place < minorSize; };
    const auto draw = [&](auto combine) {
        const Pen<decltype(combine)> pen = {combine, color, ia};
        LICE_pixel* pixel = target.bits + first * majorStep + minor * minorStep;
        for (int i = 0; i <= n; ++i, pixel += majorStep) {
            // Rounding alone may carry a line past the edge that it was clipped to.
            if (inside(minor)) pen.Draw(pixel, pen.Share(255 - (moved >> 8)));
            if (inside(minor + direction)) pen.Draw(pixel + direction * minorStep, pen.Share(moved >> 8));
            moved += step;
            if (moved >= 0x10000) {
                minor += direction;
                pixel += direction * minorStep;
                moved -= 0x10000;
            }
        }
    };
    // A line that rounding starts a hair off the surface begins with a weight of -1, which plain copying
    // does not take.
    if (moved < 0 && ia > 0 && (mode & LICE_BLIT_MODE_MASK) == LICE_BLIT_MODE_COPY) {
        draw(CombineCopyBeyond{});
    } else {
        WithCombine<CopyForms::General>(mode, ia, draw);
    }
}

}  // namespace

void LICE_Line(LICE_IBitmap* dest, int x1, int y1, int x2, int y2, LICE_pixel color, float alpha, int mode, bool aa) {
    const Target target(dest);
    if (target.Empty()) return;
    Segment<IntegerEdge> s = {x1, y1, x2, y2};
    if (target.Scales(mode)) {
        s = {LICE_ScaleCoord(x1, target.scale), LICE_ScaleCoord(y1, target.scale), LICE_ScaleCoord(x2, target.scale),
             LICE_ScaleCoord(y2, target.scale)};
    }
    if (target.flipped) {
        s.y1 = target.height - 1 - s.y1;
        s.y2 = target.height - 1 - s.y2;
    }
    if (!s.Clip(target)) return;

    const int ia = Opacity(alpha);
    const int64_t dx = s.x2 - s.x1, dy = s.y2 - s.y1;
    if (dx == 0 || dy == 0) {
        LICE_pixel* const from = target.At(std::min(s.x1, s.x2), std::min(s.y1, s.y2));
        const auto draw = [&](auto combine) {
            if (dy == 0) {
                CombineRun(combine, from, std::abs(dx) + 1, OneColor{color}, ia);
            } else {
                DrawColumn(Pen<decltype(combine)>{combine, color, ia}, from, target.span, std::abs(dy) + 1);
            }
        };
        // The fast forms are for these opacities exactly, not for what truncates to them.
        const bool fast = alpha == 1.0f || alpha == 0.75f || alpha == 0.5f || alpha == 0.25f;
        return fast ? WithCombine<CopyForms::Fast>(mode, ia, draw) : WithCombine<CopyForms::SolidHalf>(mode, ia, draw);
    }

    if (std::abs(dx) == std::abs(dy)) {
        LICE_pixel* const from = target.At(s.x1, s.y1);
        const ptrdiff_t xStep = dx > 0 ? 1 : -1, yStep = dy > 0 ? target.span : -target.span;
        if (!aa) {
            return WithCombine<CopyForms::SolidHalf>(mode, ia, [&](auto combine) {
                DrawColumn(Pen<decltype(combine)>{combine, color, ia}, from, xStep + yStep, std::abs(dx) + 1);
            });
        }
        const auto draw = [&](auto core, auto fringe) {
            DrawSoftDiagonal(
                from, xStep, yStep, std::abs(dx),
                [&](LICE_pixel* p) { *p = core(*p, color, static_cast<int>(Wide{ia} * 3 / 4)); },
                [&](LICE_pixel* p) { *p = fringe(*p, color, ia / 4); });
        };
        if ((mode & LICE_BLIT_MODE_MASK) == LICE_BLIT_MODE_COPY && alpha == 1.0f)
            return draw(CombineFastThreeQuarters{}, CombineFastQuarter{});
        return WithCombine<CopyForms::General>(mode, ia, [&](auto combine) { draw(combine, combine); });
    }

    const GeneralLine line = MakeGeneralLine(s, target);
    if (aa) {
        WithCombine<CopyForms::General>(mode, ia, [&](auto combine) {
            line.DrawSoft(Pen<decltype(combine)>{combine, color, ia});
        });
    } else {
        WithCombine<CopyForms::SolidHalf>(mode, ia, [&](auto combine) {
            line.DrawPlain(Pen<decltype(combine)>{combine, color, ia});
        });
    }
}

void LICE_FLine(LICE_IBitmap* dest, float x1, float y1, float x2, float y2, LICE_pixel color, float alpha, int mode,
                bool aa) {
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2)) return;
    if (!aa) {
        LICE_Line(dest, TruncateToInt(x1), TruncateToInt(y1), TruncateToInt(x2), TruncateToInt(y2), color, alpha, mode,
                  false);
        return;
    }
    const Target target(dest);
    if (target.Empty()) return;
    Segment<FloatEdge> s = {x1, y1, x2, y2};
    if (target.flipped) {
        s.y1 = static_cast<float>(target.logicalHeight - 1) - y1;
        s.y2 = static_cast<float>(target.logicalHeight - 1) - y2;
    }
    if (target.Scales(mode)) {
        const auto scaled = [&](float v) { return static_cast<float>(LICE_ScaleFloat(v, target.scale)); };
        s = {scaled(s.x1), scaled(s.y1), scaled(s.x2), scaled(s.y2)};
    }
    if (!s.Clip(target)) return;
    if (s.x1 == s.x2 && s.y1 == s.y2) return;
    DrawFloatLine(s, target, color, mode, Opacity(alpha));
}

void LICE_DrawRect(LICE_IBitmap* dest, int x, int y, int w, int h, LICE_pixel color, float alpha, int mode) {
    const Target target(dest);
    if (target.Empty()) return;
    // On a scaled surface the corners lie where the middles of the logical corner pixels do.
    const bool scales = target.Scales(mode);
    const double inset = scales ? 1.0 - 256.0 / target.scale : 0;
    const double left = x + inset, right = static_cast<double>(int64_t{x} + w) - inset;
    const double top = y + inset, bottom = static_cast<double>(int64_t{y} + h) - inset;
    const auto side = [&](double x1, double y1, double x2, double y2) {
        if (!scales) {
            LICE_Line(dest, TruncateToInt(x1), TruncateToInt(y1), TruncateToInt(x2), TruncateToInt(y2), color, alpha,
                      mode, false);
        } else {
            LICE_FLine(dest, static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
                       static_cast<float>(y2), color, alpha, mode, true);
        }
    };
    side(left, top, right, top);
    side(right, top, right, bottom);
    side(right, bottom, left, bottom);
    side(left, bottom, left, top);
}
