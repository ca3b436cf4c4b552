// bench/ratios.h
// Runs the benchmarks of one program and prints, below the usual table, how the ones that belong together compare.
// Ratios within one run say more than seconds: the machine's own speed drops out. The fastest repetition counts.
#pragma once
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

struct Ratio {
    std::string what;
    std::string numerator;    // a benchmark, "NAME" or "NAME/ARGUMENT", whose CPU time is divided
    std::string denominator;  // by this one's
    double goal;              // 0: none, only told
    bool atMost = false;      // the goal is an upper bound, not a lower one
};

// Measures work on memory, which is seen afresh each time, so that none of it is left out.
template <class Work>
void Repeat(benchmark::State& state, Work work) {
    for (auto _ : state) {
        work();
        benchmark::ClobberMemory();
    }
}

// Takes over main's arguments; the result is main's. A benchmark that says an error fails the program; a goal that is
// missed is told and is no failure, since a busy machine may miss any.
int RunWithRatios(int argc, char** argv, const std::vector<Ratio>& ratios);
