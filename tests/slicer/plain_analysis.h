// tests/slicer/plain_analysis.h
// What the silence analysis must find, said frame by frame without any haste. Benchmarks time it, too.
#pragma once
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

struct PlainAnalysis {
    double threshold;
    int channels, window, block;

    double peak = 0.0;
    int count = 0, windowStart = 0;
    int runStart = -1, runEnd = -1, silent = 0;
    std::vector<std::pair<int, int>> runs = {};

    PlainAnalysis(double linearThreshold, int rate, int channelCount, double blockSeconds)
        : threshold(linearThreshold),
          channels(channelCount),
          window(std::max(1, static_cast<int>(rate * 0.01))),
          block(std::max(1, static_cast<int>(std::min(std::ceil(blockSeconds * rate), 2147483647.0)))) {}

    void Frame(const double* samples, int number) {
        if (count == 0) windowStart = number;
        for (int c = 0; c < channels; ++c) {
            const double size = std::fabs(samples[c]);
            if (size > peak) peak = size;
        }
        if (++count == window) CloseWindow(number + 1);
    }

    void CloseWindow(int end) {
        if (peak >= threshold) {
            if (runStart < 0) runStart = windowStart;
            runEnd = end;
            silent = 0;
        } else if (runStart >= 0) {
            silent += end - windowStart;
            if (silent >= block) CloseRun();
        }
        peak = 0.0;
        count = 0;
    }

    void CloseRun() {
        runs.emplace_back(runStart, runEnd);
        runStart = -1;
        silent = 0;
    }

    // What lies before, between and behind the runs, in seconds; nothing when there is no run.
    std::vector<std::pair<double, double>> Silence(int frames, int rate) {
        if (count > 0) CloseWindow(frames);
        if (runStart >= 0) CloseRun();
        std::vector<std::pair<double, double>> spans;
        int previous = 0;
        const auto add = [&](int start, int end) {
            const double from = previous / static_cast<double>(rate), to = start / static_cast<double>(rate);
            if (start > previous && to - from > 0.001) spans.emplace_back(from, to);
            previous = end;
        };
        for (const auto& [start, end] : runs) add(start, end);
        if (!runs.empty()) add(frames, frames);
        return spans;
    }
};
