#include "apps/fatiar/listener.h"

#include <algorithm>

#include "apps/fatiar/interrupt.h"

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
    const int rate = sources.front()->SampleRate();
    return simhost::Made(rate, channels, frames, [=, all = std::move(sources)](int64_t first, int count, double* out) {
        std::vector<double> block;
        for (const simhost::SourceRef& source : all) {
            const int own = source->Channels();
            block.resize(static_cast<size_t>(count) * own);
            if (!source->Read(first, count, block.data())) return false;
            for (ptrdiff_t i = 0; i < count; ++i) std::copy_n(block.data() + i * own, own, out + i * channels);
            out += own;
        }
        return true;
    });
}
