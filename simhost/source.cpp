#include "simhost/source.h"

#include <algorithm>
#include <utility>

namespace simhost {

bool Source::Read(int64_t first, int frames, double* interleaved) {
    const int channels = Channels();
    const int64_t begin = std::clamp<int64_t>(first, 0, Frames());
    const int64_t end = std::clamp<int64_t>(first + frames, begin, Frames());
    double* const from = interleaved + (begin - first) * channels;
    if (begin >= end) {
        std::fill_n(interleaved, static_cast<int64_t>(frames) * channels, 0.0);
        return true;
    }
    double* const to = interleaved + (end - first) * channels;
    std::fill(interleaved, from, 0.0);
    std::fill(to, interleaved + static_cast<int64_t>(frames) * channels, 0.0);
    return ReadInside(begin, static_cast<int>(end - begin), from);
}

namespace {

// Any sample computed from its frame and channel alone.
template <class Sample>
class Generated : public Source {
  public:
    Generated(int rate, int channels, int64_t frames, Sample sample)
        : Source(rate, channels, frames), sample_(std::move(sample)) {}

  protected:
    bool ReadInside(int64_t first, int frames, double* out) override {
        const int channels = Channels();
        for (int i = 0; i < frames; ++i)
            for (int c = 0; c < channels; ++c) *out++ = sample_(first + i, c);
        return true;
    }

  private:
    Sample sample_;
};

template <class Sample>
SourceRef Generate(int rate, int channels, int64_t frames, Sample sample) {
    return std::make_shared<Generated<Sample>>(rate, channels, frames, std::move(sample));
}

class MemorySource : public Source {
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
class BurstSource : public Source {
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

class MidiSource : public Source {
  public:
    explicit MidiSource(double quarterNotes) : Source(0, 0, 0), quarterNotes_(quarterNotes) {}
    double Length() const override { return quarterNotes_; }

  protected:
    bool ReadInside(int64_t, int, double*) override { return false; }

  private:
    double quarterNotes_;
};

class ReversedSource : public Source {
  public:
    explicit ReversedSource(SourceRef inner)
        : Source(inner->SampleRate(), inner->Channels(), inner->Frames()), inner_(std::move(inner)) {}

  protected:
    bool ReadInside(int64_t first, int frames, double* out) override {
        const int channels = Channels();
        if (!inner_->Read(Frames() - first - frames, frames, out)) return false;
        for (double *a = out, *b = out + static_cast<int64_t>(frames - 1) * channels; a < b;
             a += channels, b -= channels)
            std::swap_ranges(a, a + channels, b);
        return true;
    }

  private:
    SourceRef inner_;
};

class UnreadableSource : public Source {
  public:
    using Source::Source;

  protected:
    bool ReadInside(int64_t, int, double*) override { return false; }
};

// sin(2 pi x / 2^32) from a full turn in 32 bits: folded to a quarter turn, then a polynomial with plain products.
double SineOfTurn(uint32_t turn) {
    const bool lower = turn >> 31;
    uint32_t half = turn & 0x7FFFFFFF;
    if (half > 0x40000000) half = 0x80000000 - half;
    const double x = half * (3.14159265358979323846 / 2147483648.0), q = x * x;
    const double s = x * (1 - q / 6 * (1 - q / 20 * (1 - q / 42 * (1 - q / 72 * (1 - q / 110 * (1 - q / 156))))));
    return lower ? -s : s;
}

uint64_t Scramble(uint64_t x) {
    x += 0x9E3779B97F4A7C15;
    x = (x ^ x >> 30) * 0xBF58476D1CE4E5B9;
    x = (x ^ x >> 27) * 0x94D049BB133111EB;
    return x ^ x >> 31;
}

}  // namespace

SourceRef Silence(int rate, int channels, int64_t frames) {
    return Generate(rate, channels, frames, [](int64_t, int) { return 0.0; });
}

SourceRef Sine(int rate, int channels, int64_t frames, double hertz, double amplitude) {
    const auto step = static_cast<uint64_t>(hertz / rate * 18446744073709551616.0);  // a full turn is 2^64
    return Generate(rate, channels, frames, [step, amplitude](int64_t frame, int) {
        return amplitude * SineOfTurn(static_cast<uint32_t>(static_cast<uint64_t>(frame) * step >> 32));
    });
}

SourceRef Bursts(int rate, int channels, const std::vector<Segment>& segments) {
    int64_t frames = 0;
    for (const Segment& s : segments) frames += s.frames;
    return std::make_shared<BurstSource>(rate, channels, frames, segments);
}

SourceRef Noise(int rate, int channels, int64_t frames, uint64_t seed, double amplitude) {
    const uint64_t start = Scramble(seed);
    return Generate(rate, channels, frames, [start, amplitude, channels](int64_t frame, int c) {
        const uint64_t bits = Scramble(start + static_cast<uint64_t>(frame) * channels + c) >> 11;
        return amplitude * (static_cast<double>(bits) / 4503599627370496.0 - 1.0);  // 53 bits over -1..1
    });
}

SourceRef Memory(int rate, int channels, std::vector<double> interleaved) {
    return std::make_shared<MemorySource>(rate, channels, std::move(interleaved));
}

SourceRef Midi(double quarterNotes) {
    return std::make_shared<MidiSource>(quarterNotes);
}

SourceRef Reversed(SourceRef source) {
    return std::make_shared<ReversedSource>(std::move(source));
}

SourceRef Unreadable(int rate, int channels, int64_t frames) {
    return std::make_shared<UnreadableSource>(rate, channels, frames);
}

}  // namespace simhost
