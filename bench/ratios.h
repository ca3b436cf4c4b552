// bench/ratios.h
// Runs the benchmarks of one program and prints, below the usual table, how the ones that belong together compare.
// Ratios within one run say more than seconds: the machine's own speed drops out. The fastest repetition counts.
#pragma once
#include <vector>

struct Ratio {
    const char* what;
    const char* numerator;    // a benchmark, "NAME" or "NAME/ARGUMENT", whose CPU time is divided
    const char* denominator;  // by this one's
    double goal;              // 0: none, only told
    bool atMost = false;      // the goal is an upper bound, not a lower one
};

// Takes over main's arguments; the result is main's. A benchmark that says an error fails the program; a goal that is
// missed is told and is no failure, since a busy machine may miss any.
int RunWithRatios(int argc, char** argv, const std::vector<Ratio>& ratios);
