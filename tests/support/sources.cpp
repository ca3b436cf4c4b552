#include "tests/support/sources.h"

#include <algorithm>

using simhost::SourceRef;

namespace {

struct MidiSource : simhost::Source {
    explicit MidiSource(double quarterNotes) : Source(0, 0, 0), quarterNotes_(quarterNotes) {}
    bool ReadInside(int64_t, int, double*) override { return false; }
    double Length() const override { return quarterNotes_; }
    double quarterNotes_;
};

uint64_t Scramble(uint64_t x) {
    x += 0x9E3779B97F4A7C15;
    x = (x ^ x >> 30) * 0xBF58476D1CE4E5B9;
    x = (x ^ x >> 27) * 0x94D049BB133111EB;
    return x ^ x >> 31;
}

}  // namespace

SourceRef Silence(int rate, int channels, int64_t frames) { return Bursts(rate, channels, {{frames, 0.0}}); }

// Runs of one amplitude, found by halving, then copied run by run.
SourceRef Bursts(int rate, int channels, const std::vector<Segment>& segments) {
    std::vector<int64_t> ends;
    for (const Segment& s : segments) ends.push_back(s.frames + (ends.empty() ? 0 : ends.back()));
    const int halfPeriod = std::max(1, rate / 2000);
    return Made(rate, channels, ends.empty() ? 0 : ends.back(), [=](int64_t first, int frames, double* out) {
        auto run = std::upper_bound(ends.begin(), ends.end(), first) - ends.begin();
        for (int64_t i = first; i < first + frames; ++i) {
            while (i >= ends[run]) ++run;
            const Segment& s = segments[run];
            const double value = i / halfPeriod % 2 ? -s.amplitude : s.amplitude;
            for (int c = 0; c < channels; ++c) *out++ = s.channel < 0 || s.channel == c ? value : 0.0;
        }
        return true;
    });
}

SourceRef Noise(int rate, int channels, int64_t frames, uint64_t seed, double amplitude) {
    return Made(rate, channels, frames, [=, start = Scramble(seed)](int64_t first, int count, double* out) {
        const uint64_t begin = start + static_cast<uint64_t>(first) * channels;
        for (uint64_t i = 0; i < static_cast<uint64_t>(count) * channels; ++i) {
            const uint64_t bits = Scramble(begin + i) >> 11;  // 53 bits over -1..1
            out[i] = amplitude * (static_cast<double>(bits) / 4503599627370496.0 - 1.0);
        }
        return true;
    });
}

SourceRef Memory(int rate, int channels, std::vector<double> interleaved) {
    const int64_t frames = static_cast<int64_t>(interleaved.size()) / channels;
    return Made(rate, channels, frames, [=, samples = std::move(interleaved)](int64_t first, int count, double* out) {
        std::copy_n(samples.data() + first * channels, static_cast<int64_t>(count) * channels, out);
        return true;
    });
}

SourceRef Midi(double quarterNotes) { return std::make_shared<MidiSource>(quarterNotes); }

SourceRef Unreadable(int rate, int channels, int64_t frames) {
    return Made(rate, channels, frames, [](int64_t, int, double*) { return false; });
}
