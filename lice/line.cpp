#include "lice/line.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "lice/paint.h"
#include "lice/safe_math.h"
#include "lice/segment.h"

namespace {

// What one call draws with.
struct Stroke {
    const Target& target;
    LICE_pixel color;
    float alpha;
    int mode;
    int ia = Opacity(alpha);
};

// A part of 255 of an opacity.
int Share(int ia, int part) { return ia == 256 ? part : static_cast<int>(int64_t{ia} * part >> 8); }

// A line passes between a pixel and its neighbour; `moved` is how far it has come to the neighbour, in 1/65536.
template <class Combine>
void DrawPair(const Paint<Combine>& paint, LICE_pixel* pixel, LICE_pixel* neighbour, int moved) {
    paint.Dot(pixel, Share(paint.ia, 255 - (moved >> 8)));
    paint.Dot(neighbour, Share(paint.ia, moved >> 8));
}

template <class Combine>
void DrawDots(const Paint<Combine>& paint, LICE_pixel* pixel, ptrdiff_t step, int64_t count) {
    for (; count > 0; --count, pixel += step) paint.Dot(pixel);
}

// --- Level and upright

// The fast forms take these opacities exactly, not what truncates to them.
template <class Draw>
void WithStraightPaint(const Stroke& k, Draw draw) {
    if (k.alpha == 1.0f || k.alpha == 0.75f || k.alpha == 0.5f || k.alpha == 0.25f) {
        WithPaint<CopyForms::Fast>(k.color, k.mode, k.ia, draw);
    } else {
        WithPaint<CopyForms::SolidHalf>(k.color, k.mode, k.ia, draw);
    }
}

void DrawLevel(const Stroke& k, const Segment<IntegerEdge>& s) {
    LICE_pixel* const left = k.target.Stored(std::min(s.x1, s.x2), s.y1);
    WithStraightPaint(k, [&](auto paint) { paint.Run(left, std::abs(s.x2 - s.x1) + 1); });
}

void DrawUpright(const Stroke& k, const Segment<IntegerEdge>& s) {
    LICE_pixel* const first = k.target.Stored(s.x1, std::min(s.y1, s.y2));
    WithStraightPaint(k, [&](auto paint) { DrawDots(paint, first, k.target.span, std::abs(s.y2 - s.y1) + 1); });
}

// --- Diagonal

// n + 1 pixels, each but the last with a neighbour on both sides.
template <class Core, class Fringe>
void DrawSoftDiagonal(LICE_pixel* pixel, ptrdiff_t xStep, ptrdiff_t yStep, int64_t n, Core core, Fringe fringe) {
    for (; n > 0; --n, pixel += xStep + yStep) {
        core.Dot(pixel);
        fringe.Dot(pixel + xStep);
        fringe.Dot(pixel + yStep);
    }
    core.Dot(pixel);
}

void DrawDiagonal(const Stroke& k, const Segment<IntegerEdge>& s, bool aa) {
    LICE_pixel* const from = k.target.Stored(s.x1, s.y1);
    const ptrdiff_t xStep = s.x2 > s.x1 ? 1 : -1, yStep = s.y2 > s.y1 ? k.target.span : -k.target.span;
    const int64_t n = std::abs(s.x2 - s.x1);
    if (!aa) {
        return WithPaint<CopyForms::SolidHalf>(k.color, k.mode, k.ia,
                                               [&](auto paint) { DrawDots(paint, from, xStep + yStep, n + 1); });
    }
    if ((k.mode & LICE_BLIT_MODE_MASK) == LICE_BLIT_MODE_COPY && k.alpha == 1.0f) {
        return DrawSoftDiagonal(from, xStep, yStep, n, Paint<CombineFastThreeQuarters>{{}, k.color, 192},
                                Paint<CombineFastQuarter>{{}, k.color, 64});
    }
    WithPaint<CopyForms::General>(k.color, k.mode, k.ia, [&](auto core) {
        auto fringe = core;
        core.ia = static_cast<int>(int64_t{k.ia} * 3 / 4);
        fringe.ia = k.ia / 4;
        DrawSoftDiagonal(from, xStep, yStep, n, core, fringe);
    });
}

// --- Sloping

// The walk goes from both ends toward the middle, which makes the line symmetrical.
struct SlopingLine {
    LICE_pixel *end1, *end2;
    ptrdiff_t majorStep, minorStep;
    int64_t length;  // of the major axis
    int slope;       // of the minor axis, in 1/65536

    SlopingLine(const Segment<IntegerEdge>& s, const Target& target)
        : end1(target.Stored(s.x1, s.y1)),
          end2(target.Stored(s.x2, s.y2)),
          majorStep(target.span),
          minorStep(1),
          length(s.y2 - s.y1) {
        int64_t minor = s.x2 - s.x1;
        if (std::abs(minor) > std::abs(length)) {
            std::swap(minor, length);
            std::swap(majorStep, minorStep);
        }
        if (length < 0) {
            length = -length;
            minor = -minor;
            std::swap(end1, end2);
        }
        if (minor < 0) {
            minor = -minor;
            minorStep = -minorStep;
        }
        slope = static_cast<int>(65536.0 * static_cast<double>(minor) / static_cast<double>(length));
    }

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
    void DrawSoft(const Paint<Combine>& paint) const {
        paint.Dot(end1);
        paint.Dot(end2);
        LICE_pixel *p1 = end1 + majorStep, *p2 = end2 - majorStep;
        int moved = slope;
        for (int64_t i = (length + 1) / 2 - 1; i > 0; --i) {
            DrawPair(paint, p1, p1 + minorStep, moved);
            DrawPair(paint, p2, p2 - minorStep, moved);
            Advance(p1, p2, moved, 0x10000);
        }
        if (length % 2 == 0) DrawPair(paint, p1, p1 + minorStep, moved);
    }

    template <class Combine>
    void DrawPlain(const Paint<Combine>& paint) const {
        LICE_pixel *p1 = end1, *p2 = end2;
        int moved = 0;
        for (int64_t i = (length + 1) / 2; i > 0; --i) {
            paint.Dot(p1);
            paint.Dot(p2);
            Advance(p1, p2, moved, 0x8000);
        }
        if (length % 2 == 0) paint.Dot(p1);
    }
};

void DrawSloping(const Stroke& k, const Segment<IntegerEdge>& s, bool aa) {
    const SlopingLine line(s, k.target);
    if (aa) {
        WithPaint<CopyForms::General>(k.color, k.mode, k.ia, [&](auto paint) { line.DrawSoft(paint); });
    } else {
        WithPaint<CopyForms::SolidHalf>(k.color, k.mode, k.ia, [&](auto paint) { line.DrawPlain(paint); });
    }
}

// --- Between pixels

// A line with float ends, walked along its longer axis from the first whole place to the last.
struct FloatWalk {
    int first, last;  // whole places along
    int minor;        // the pixel across, at the first of them
    int direction;    // in which its neighbour lies and `minor` moves: 1 or -1
    int moved, step;  // from the pixel to its neighbour, in 1/65536: at first, and from place to place

    FloatWalk(float start, float startMinor, float end, float endMinor) {
        if (end < start) {
            std::swap(start, end);
            std::swap(startMinor, endMinor);
        }
        direction = endMinor - startMinor < 0 ? -1 : 1;
        const float whole = std::ceil(start), slope = (endMinor - startMinor) / (end - start);
        const float exact = (whole - start) * slope + startMinor;
        first = static_cast<int>(whole);
        last = static_cast<int>(std::floor(end));
        minor = static_cast<int>(exact) + (direction < 0 ? 1 : 0);
        moved = static_cast<int>(65536.0f * (exact - std::floor(exact)));
        if (direction < 0) moved = 65535 - moved;
        step = static_cast<int>(65536.0f * std::abs(slope));
    }
};

void DrawFloatLine(const Stroke& k, const Segment<FloatEdge>& s) {
    const Target& t = k.target;
    const bool level = std::abs(s.x2 - s.x1) > std::abs(s.y2 - s.y1);
    const FloatWalk walk = level ? FloatWalk(s.x1, s.y1, s.x2, s.y2) : FloatWalk(s.y1, s.x1, s.y2, s.x2);
    const ptrdiff_t alongStep = level ? 1 : t.span, acrossStep = level ? t.span : 1;
    const int size = level ? t.height : t.width;
    const auto draw = [&](auto paint) {
        int minor = walk.minor, moved = walk.moved;
        const auto dot = [&](int along, int across, int part) {
            // Rounding may carry a line past the edge that it was clipped to.
            if (across >= 0 && across < size)
                paint.Dot(t.bits + along * alongStep + across * acrossStep, Share(k.ia, part));
        };
        for (int along = walk.first; along <= walk.last; ++along) {
            dot(along, minor, 255 - (moved >> 8));
            dot(along, minor + walk.direction, moved >> 8);
            moved += walk.step;
            if (moved >= 0x10000) {
                minor += walk.direction;
                moved -= 0x10000;
            }
        }
    };
    // Rounding may start a line a hair off the surface. Its first weight is then -1, which CombineCopy does not take.
    if (walk.moved < 0 && k.ia > 0 && (k.mode & LICE_BLIT_MODE_MASK) == LICE_BLIT_MODE_COPY) {
        draw(Paint<CombineCopyBeyond>{{}, k.color, k.ia});
    } else {
        WithPaint<CopyForms::General>(k.color, k.mode, k.ia, draw);
    }
}

}  // namespace

void LICE_Line(LICE_IBitmap* dest, int x1, int y1, int x2, int y2, LICE_pixel color, float alpha, int mode, bool aa) {
    const Target target(dest, mode);
    if (target.Empty()) return;
    const auto row = [&](int y) { return target.RowOf(int64_t{target.Coord(y)}); };
    Segment<IntegerEdge> s = {target.Coord(x1), row(y1), target.Coord(x2), row(y2)};
    if (!s.Clip(target)) return;

    const Stroke stroke = {target, color, alpha, mode};
    const int64_t across = std::abs(s.x2 - s.x1), down = std::abs(s.y2 - s.y1);
    if (down == 0) return DrawLevel(stroke, s);
    if (across == 0) return DrawUpright(stroke, s);
    if (across == down) return DrawDiagonal(stroke, s, aa);
    DrawSloping(stroke, s, aa);
}

void LICE_FLine(LICE_IBitmap* dest, float x1, float y1, float x2, float y2, LICE_pixel color, float alpha, int mode,
                bool aa) {
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2)) return;
    if (!aa) {
        LICE_Line(dest, TruncateToInt(x1), TruncateToInt(y1), TruncateToInt(x2), TruncateToInt(y2), color, alpha, mode,
                  false);
        return;
    }
    const Target target(dest, mode);
    if (target.Empty()) return;
    const auto row = [&](float y) { return target.Real(target.LogicalRowOf(y)); };
    Segment<FloatEdge> s = {target.Real(x1), row(y1), target.Real(x2), row(y2)};
    if (!s.Clip(target) || (s.x1 == s.x2 && s.y1 == s.y2)) return;
    DrawFloatLine({target, color, alpha, mode}, s);
}

void LICE_DrawRect(LICE_IBitmap* dest, int x, int y, int w, int h, LICE_pixel color, float alpha, int mode) {
    const Target target(dest, mode);
    if (target.Empty()) return;
    // Corners on a scaled surface lie in the middle of their logical pixels.
    const double inset = target.scales ? 1.0 - 256.0 / target.scale : 0;
    const double left = x + inset, right = static_cast<double>(int64_t{x} + w) - inset;
    const double top = y + inset, bottom = static_cast<double>(int64_t{y} + h) - inset;
    const auto side = [&](double x1, double y1, double x2, double y2) {
        if (!target.scales) {
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
