// apps/fatiar/report.h
// What came of each recording, and the three forms it is told in. Times are seconds.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "apps/fatiar/options.h"

struct Piece {
    double position;  // on the track
    double length;
    double source;  // where it was in the recording
};

struct Result {
    std::string input;   // as given on the command line
    std::string output;  // the sliced audio; empty when none was written
    int rate, channels;
    double length;              // of the recording
    std::vector<Piece> pieces;  // by position
    double Kept() const;        // all pieces, overlaps counted twice
    double Removed() const;
};

std::string AsTable(const std::vector<Result>& results);  // for the screen
std::string AsCsv(const std::vector<Result>& results);    // one line a piece, below a heading; to the nanosecond
std::string AsJson(const std::vector<Result>& results, const Options& options);  // one object; exact doubles
