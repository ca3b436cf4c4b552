#include "apps/fatiar/listener.h"

#include <algorithm>
#include <cmath>

#include "apps/fatiar/interrupt.h"

namespace {

double PeakOf(const double* samples, size_t count) {
    double peaks[4] = {};  // four chains at once, because each step waits for the one before it
    size_t i = 0;
    for (; i + 4 <= count; i += 4)
        for (size_t k = 0; k < 4; ++k) peaks[k] = std::max(peaks[k], std::fabs(samples[i + k]));
    for (; i < count; ++i) peaks[0] = std::max(peaks[0], std::fabs(samples[i]));
    return std::max({peaks[0], peaks[1], peaks[2], peaks[3]});
}

class Joined : public simhost::Source {
  public:
    Joined(std::vector<simhost::SourceRef> sources, int channels, int64_t frames)
        : Source(sources.front()->SampleRate(), channels, frames), sources_(std::move(sources)) {}

  protected:
    bool ReadInside(int64_t first, int frames, double* out) override {
        std::vector<double> block;
        for (const simhost::SourceRef& source : sources_) {
            const int channels = source->Channels();
            block.resize(static_cast<size_t>(frames) * channels);
            if (!source->Read(first, frames, block.data())) return false;
            for (int i = 0; i < frames; ++i)
                std::copy_n(block.data() + static_cast<ptrdiff_t>(i) * channels, channels,
                            out + static_cast<ptrdiff_t>(i) * Channels());
            out += channels;
        }
        return true;
    }

  private:
    std::vector<simhost::SourceRef> sources_;
};

}  // namespace

Listener::Listener(simhost::SourceRef inner, Progress* progress)
    : Source(inner->SampleRate(), inner->Channels(), inner->Frames()),
      inner_(std::move(inner)),
      progress_(progress),
      windowFrames_(std::max(1, static_cast<int>(SampleRate() * 0.01))) {}

bool Listener::ReadInside(int64_t first, int frames, double* out) {
    if (InterruptedBy()) return false;  // nobody waits for the rest
    if (!inner_->Read(first, frames, out)) {
        failed_ = true;
        return false;
    }
    const int64_t fresh = first + frames - heard_;
    if (first <= heard_ && fresh > 0) Listen(out + (heard_ - first) * Channels(), static_cast<int>(fresh));
    return true;
}

void Listener::Listen(const double* samples, int frames) {
    heard_ += frames;
    if (progress_) progress_->Advance(frames);
    while (frames > 0) {
        const int n = std::min(frames, windowFrames_ - filled_);
        const auto count = static_cast<size_t>(n) * Channels();
        peak_ = std::max(peak_, PeakOf(samples, count));
        samples += count;
        frames -= n;
        filled_ += n;
        if (filled_ < windowFrames_ && heard_ - frames < Frames()) continue;
        peaks_.push_back(static_cast<float>(peak_));
        loudest_ = std::max(loudest_, peak_);
        peak_ = filled_ = 0;
    }
}

Levels Listener::Heard() {
    if (peaks_.empty() || heard_ < Frames()) return {};
    const auto tenth = peaks_.begin() + static_cast<ptrdiff_t>(peaks_.size() / 10);
    std::nth_element(peaks_.begin(), tenth, peaks_.end());
    return {*tenth, loudest_, true};
}

simhost::SourceRef SideBySide(std::vector<simhost::SourceRef> sources) {
    int channels = 0;
    int64_t frames = 0;
    for (const simhost::SourceRef& source : sources) {
        channels += source->Channels();
        frames = std::max(frames, source->Frames());
    }
    return std::make_shared<Joined>(std::move(sources), channels, frames);
}
