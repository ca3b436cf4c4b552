#include "tests/support/sources.h"

#include <algorithm>

using simhost::SourceRef;

namespace {

class MemorySource : public simhost::Source {
  public:
    MemorySource(int rate, int channels, std::vector<double> samples)
        : Source(rate, channels, static_cast<int64_t>(samples.size()) / channels), samples_(std::move(samples)) {}

  protected:
    bool ReadInside(int64_t first, int frames, double* out) override {
        std::copy_n(samples_.data() + first * Channels(), static_cast<int64_t>(frames) * Channels(), out);
        return true;
    }

  private:
    std::vector<double> samples_;
};

// Runs of one amplitude, found by halving, then copied run by run.
class BurstSource : public simhost::Source {
  public:
    BurstSource(int rate, int channels, int64_t frames, std::vector<Segment> segments)
        : Source(rate, channels, frames), segments_(std::move(segments)) {
        int64_t end = 0;
        for (const Segment& s : segments_) ends_.push_back(end += s.frames);
        halfPeriod_ = std::max(1, rate / 2000);
    }

  protected:
    bool ReadInside(int64_t first, int frames, double* out) override {
        const int channels = Channels();
        auto run = std::upper_bound(ends_.begin(), ends_.end(), first) - ends_.begin();
        for (int64_t i = first; i < first + frames; ++i) {
            while (i >= ends_[run]) ++run;
            const Segment& s = segments_[run];
            const double value = i / halfPeriod_ % 2 ? -s.amplitude : s.amplitude;
            for (int c = 0; c < channels; ++c) *out++ = s.channel < 0 || s.channel == c ? value : 0.0;
        }
        return true;
    }

  private:
    std::vector<Segment> segments_;
    std::vector<int64_t> ends_;
    int64_t halfPeriod_;
};

class MidiSource : public simhost::Source {
  public:
    explicit MidiSource(double quarterNotes) : Source(0, 0, 0), quarterNotes_(quarterNotes) {}
    double Length() const override { return quarterNotes_; }

  protected:
    bool ReadInside(int64_t, int, double*) override { return false; }

  private:
    double quarterNotes_;
};

class UnreadableSource : public simhost::Source {
  public:
    using simhost::Source::Source;

  protected:
    bool ReadInside(int64_t, int, double*) override { return false; }
};

uint64_t Scramble(uint64_t x) {
    x += 0x9E3779B97F4A7C15;
    x = (x ^ x >> 30) * 0xBF58476D1CE4E5B9;
    x = (x ^ x >> 27) * 0x94D049BB133111EB;
    return x ^ x >> 31;
}

class NoiseSource : public simhost::Source {
  public:
    NoiseSource(int rate, int channels, int64_t frames, uint64_t seed, double amplitude)
        : Source(rate, channels, frames), start_(Scramble(seed)), amplitude_(amplitude) {}

  protected:
    bool ReadInside(int64_t first, int frames, double* out) override {
        const uint64_t begin = start_ + static_cast<uint64_t>(first) * Channels();
        for (uint64_t i = 0; i < static_cast<uint64_t>(frames) * Channels(); ++i) {
            const uint64_t bits = Scramble(begin + i) >> 11;  // 53 bits over -1..1
            out[i] = amplitude_ * (static_cast<double>(bits) / 4503599627370496.0 - 1.0);
        }
        return true;
    }

  private:
    uint64_t start_;
    double amplitude_;
};

}  // namespace

SourceRef Silence(int rate, int channels, int64_t frames) {
    return Bursts(rate, channels, {{frames, 0.0}});
}

SourceRef Bursts(int rate, int channels, const std::vector<Segment>& segments) {
    int64_t frames = 0;
    for (const Segment& s : segments) frames += s.frames;
    return std::make_shared<BurstSource>(rate, channels, frames, segments);
}

SourceRef Noise(int rate, int channels, int64_t frames, uint64_t seed, double amplitude) {
    return std::make_shared<NoiseSource>(rate, channels, frames, seed, amplitude);
}

SourceRef Memory(int rate, int channels, std::vector<double> interleaved) {
    return std::make_shared<MemorySource>(rate, channels, std::move(interleaved));
}

SourceRef Midi(double quarterNotes) {
    return std::make_shared<MidiSource>(quarterNotes);
}

SourceRef Unreadable(int rate, int channels, int64_t frames) {
    return std::make_shared<UnreadableSource>(rate, channels, frames);
}
