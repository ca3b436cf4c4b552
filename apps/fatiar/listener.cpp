#include "apps/fatiar/listener.h"

#include <algorithm>

#include "apps/fatiar/interrupt.h"

namespace {

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
    : Source(inner->SampleRate(), inner->Channels(), inner->Frames()), inner_(std::move(inner)), progress_(progress) {}

bool Listener::ReadInside(int64_t first, int frames, double* out) {
    if (InterruptedBy()) return false;  // nobody waits for the rest
    if (!inner_->Read(first, frames, out)) {
        failed_ = true;
        return false;
    }
    const int64_t fresh = first + frames - heard_;
    if (first > heard_ || fresh <= 0) return true;
    heard_ += fresh;
    if (progress_) progress_->Advance(fresh);
    return true;
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
