// lice/segment.h
// A line's two ends, moved along it onto the surface.
#pragma once
#include <cstdint>

#include "lice/target.h"

// Integer lines end on the last row and column.
struct IntegerEdge {
    using Number = int64_t;
    static Number Out(int size) { return size; }          // the first place beyond the surface
    static Number MovedTo(int size) { return size - 1; }  // where a point beyond goes
    static Number Along(Number from, Number across, Number reach, Number whole) {
        return from + static_cast<Number>(static_cast<double>(across) * static_cast<double>(reach) /
                                          static_cast<double>(whole));
    }
};

// Float lines stay one pixel further in, since each of their pixels has a neighbour.
struct FloatEdge {
    using Number = float;
    static Number Out(int size) { return static_cast<float>(size - 1); }
    static Number MovedTo(int size) { return static_cast<float>(size - 2); }
    static Number Along(Number from, Number across, Number reach, Number whole) {
        return from + across * reach / whole;
    }
};

// Rows count as they lie in memory.
template <class Edge>
struct Segment {
    using Number = typename Edge::Number;
    Number x1, y1, x2, y2;

    // False when nothing of the line is on the surface.
    bool Clip(const Target& t) {
        for (int pass = 0; pass < 33; ++pass) {
            const int first = Outside(x1, y1, t), second = Outside(x2, y2, t);
            if (!first && !second) return true;
            if (first & second) return false;
            const int side = first ? first : second;
            Number x, y;
            if (side & (Above | Below)) {
                y = side & Below ? Edge::MovedTo(t.height) : 0;
                x = Edge::Along(x1, x2 - x1, y - y1, y2 - y1);
            } else {
                x = side & Right ? Edge::MovedTo(t.width) : 0;
                y = Edge::Along(y1, y2 - y1, x - x1, x2 - x1);
            }
            (first ? x1 : x2) = x;
            (first ? y1 : y2) = y;
        }
        return false;
    }

  private:
    enum { Left = 1, Right = 2, Above = 4, Below = 8 };
    // The sides on which a point lies off the surface.
    static int Outside(Number x, Number y, const Target& t) {
        const auto within = [](Number v, int size) { return v < Edge::Out(size); };  // and NaN is not
        return (x < 0 ? Left : within(x, t.width) ? 0 : Right) | (y < 0 ? Above : within(y, t.height) ? 0 : Below);
    }
};
