// apps/fatiar/cut.h
// What is left of a recording. Its pieces are whole frames of it. Their places in what is written are not, because a
// join of 5 ms is no whole number of frames at every rate.
#pragma once
#include <cstdint>
#include <vector>

constexpr double JoinSeconds = 0.005;  // the overlap of two pieces moved together, and each of their fades

struct Piece {
    double position;                 // seconds, in what is written
    int64_t length;                  // frames
    int64_t source;                  // frames, in the recording
    double fadeIn = 0, fadeOut = 0;  // seconds
    int64_t SourceEnd() const { return source + length; }
};

struct Cut {
    int rate = 0;
    int64_t recorded = 0;  // of the recording
    bool closed = false;   // the pieces were moved together; else each is where it was
    std::vector<Piece> pieces;

    int64_t Written() const;  // frames of the file: up to the last piece, or as long as the recording
    int64_t Kept() const;     // frames of the recording
    double Seconds(int64_t frames) const { return static_cast<double>(frames) / rate; }
    double End(const Piece& piece) const { return piece.position + Seconds(piece.length); }
};

// Each piece of a cut that is not closed grows by so much silence, as far as there is any; pieces that meet become one.
void Grow(Cut& cut, double beforeMs, double afterMs);
// Moves the pieces together with the module's joins and fades; a single piece gets no fade.
void CloseUp(Cut& cut);

// A piece for those who know no overlaps: seconds, each join cut at its middle.
struct Span {
    double source, start, end;
};
std::vector<Span> WithoutOverlaps(const Cut& cut);
