#include "simhost/sound.h"

#include <algorithm>
#include <cmath>

namespace simhost {

// Frame of the source at `start`, held where 64 bits can count. A time that was computed from a frame number is that
// frame, whatever the last bit of the division says.
static double SourceFrame(const Take& take, double start) {
    const double frame = (take.startOffset + start * take.playRate) * take.source->SampleRate();
    if (!std::isfinite(frame)) return -1e15;
    const double nearest = std::nearbyint(frame);
    return std::clamp(std::fabs(frame - nearest) < 1e-4 ? nearest : frame, -1e15, 1e15);
}

static void SpreadChannels(const double* from, int fromChannels, double* to, int channels, int frames) {
    for (int i = 0; i < frames; ++i)
        for (int c = 0; c < channels; ++c)
            *to++ = fromChannels == 1  ? from[i]
                    : c < fromChannels ? from[static_cast<size_t>(i) * fromChannels + c]
                                       : 0.0;
}

bool ReadTake(const Take& take, int rate, int channels, double start, int frames, double* out) {
    if (!take.source || take.source->IsMidi() || take.source->SampleRate() <= 0) return false;
    Source& source = *take.source;
    const int sourceChannels = source.Channels();
    const double at = SourceFrame(take, start);
    const double step = take.playRate * source.SampleRate() / rate;
    std::vector<double> block;
    if (!std::isfinite(step)) return false;

    if (step == 1 && at == std::floor(at)) {
        const auto first = static_cast<int64_t>(at);
        if (channels == sourceChannels) return source.Read(first, frames, out);
        block.resize(static_cast<size_t>(frames) * sourceChannels);
        if (!source.Read(first, frames, block.data())) return false;
        SpreadChannels(block.data(), sourceChannels, out, channels, frames);
        return true;
    }

    const double last = std::clamp(at + frames * step, -1e15, 1e15);
    const auto first = static_cast<int64_t>(std::floor(std::min(at, last)));
    const int64_t span = static_cast<int64_t>(std::floor(std::max(at, last))) - first + 2;
    if (span > 1 << 28) return false;  // a rate too absurd to hold a block for
    block.resize(static_cast<size_t>(span) * sourceChannels);
    if (!source.Read(first, static_cast<int>(span), block.data())) return false;
    std::vector<double> resampled(static_cast<size_t>(frames) * sourceChannels);
    double* to = resampled.data();
    for (int i = 0; i < frames; ++i) {
        const double x = std::clamp(at + i * step - static_cast<double>(first), 0.0, static_cast<double>(span - 2));
        const double* a = block.data() + static_cast<int64_t>(x) * sourceChannels;
        const double part = x - std::floor(x);
        for (int c = 0; c < sourceChannels; ++c) *to++ = a[c] + (a[c + sourceChannels] - a[c]) * part;
    }
    SpreadChannels(resampled.data(), sourceChannels, out, channels, frames);
    return true;
}

int To24Bits(double sample) {
    const double scaled = std::nearbyint(sample * 8388608.0);
    if (!(scaled > -8388608.0)) return scaled == scaled ? -8388608 : 0;
    return scaled < 8388607.0 ? static_cast<int>(scaled) : 8388607;
}

double FadeAt(const Item& item, double t) {
    const double in = item.FadeIn(), out = item.FadeOut();
    double gain = 1;
    if (t < in) gain *= t / in;
    if (item.length - t < out) gain *= (item.length - t) / out;
    return gain;
}

void MixItem(const Item& item, int rate, int channels, double start, int frames, double* mix) {
    const Take* take = item.Active();
    if (!take || item.mute != 0 || rate <= 0 || channels <= 0) return;
    const double from = std::max(0.0, std::ceil((item.position - start) * rate - 1e-6));
    const double to = std::min<double>(frames, std::ceil((item.End() - start) * rate - 1e-6));
    if (!(from < to)) return;
    const int first = static_cast<int>(from), count = static_cast<int>(to) - first;
    const double within = start + static_cast<double>(first) / rate - item.position;  // seconds behind the item's start

    std::vector<double> block(static_cast<size_t>(count) * channels);
    if (!ReadTake(*take, rate, channels, within, count, block.data())) return;
    double* sum = mix + static_cast<size_t>(first) * channels;
    const double* sample = block.data();
    for (int i = 0; i < count; ++i) {
        const double gain = item.volume * take->volume * FadeAt(item, within + static_cast<double>(i) / rate);
        for (int c = 0; c < channels; ++c) *sum++ += gain * *sample++;
    }
}

}  // namespace simhost
