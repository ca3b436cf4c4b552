// tests/support/sources.h
// Recordings that are made up: by integers and plain arithmetic, so that their bits are the same on every system.
#pragma once
#include <vector>

#include "simhost/source.h"

struct Segment {
    int64_t frames;
    double amplitude;  // 0 is a pause
    int channel = -1;  // the only channel that sounds; -1: all
};

using simhost::Made;
simhost::SourceRef Silence(int rate, int channels, int64_t frames);
// Segments one behind another. A segment is a square wave of about a kilohertz: every one of its samples has exactly
// its amplitude, so that a level at a threshold is exact.
simhost::SourceRef Bursts(int rate, int channels, const std::vector<Segment>& segments);
simhost::SourceRef Noise(int rate, int channels, int64_t frames, uint64_t seed, double amplitude);
simhost::SourceRef Memory(int rate, int channels, std::vector<double> interleaved);  // whole frames only
simhost::SourceRef Midi(double quarterNotes);                                        // no audio to read
simhost::SourceRef Unreadable(int rate, int channels, int64_t frames);  // as a file that went offline: Read fails
