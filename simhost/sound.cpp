#include "simhost/sound.h"

#include <algorithm>
#include <cmath>

namespace simhost {

// Places in a source are held where 64 bits can count.
static double Held(double frame) { return std::clamp(frame, -1e15, 1e15); }

// Where the source stands at `start`. A time that was computed from a frame's number is that frame, whatever the last
// bit of the division says.
static double SourceFrame(const Playback& playback, double start) {
    const double frame = (playback.startOffset + start * playback.playRate) * playback.source->SampleRate();
    if (!std::isfinite(frame)) return -1e15;
    const double nearest = std::nearbyint(frame);
    return Held(std::fabs(frame - nearest) < 1e-4 ? nearest : frame);
}

Reading::Reading(const Playback& playback, int rate, int channels, double start, int64_t frames)
    : playback_(playback), channels_(channels) {
    if (!playback.source || playback.source->IsMidi()) return;
    at_ = SourceFrame(playback, start);
    step_ = playback.playRate * playback.source->SampleRate() / rate;
    readable_ = std::isfinite(step_);
    const double last = Held(at_ + static_cast<double>(frames) * step_);
    low_ = static_cast<int64_t>(std::floor(std::min(at_, last)));
    span_ = std::floor(std::max(at_, last)) - static_cast<double>(low_);
}

bool Reading::OnFrames() const { return step_ == 1 && at_ == std::floor(at_); }

bool Reading::Straight() const { return readable_ && OnFrames() && playback_.source->Channels() == channels_; }

bool Reading::Read(int64_t first, int frames, double* to) const {
    if (!readable_) return false;
    const int own = playback_.source->Channels();
    if (own == channels_) return ReadOwn(first, frames, to);
    std::vector<double> samples(static_cast<size_t>(frames) * own);
    if (!ReadOwn(first, frames, samples.data())) return false;
    for (const double* from = samples.data(); frames > 0; --frames, from += own)
        for (int c = 0; c < channels_; ++c) *to++ = own == 1 ? *from : c < own ? from[c] : 0.0;
    return true;
}

// Counted from the first of the source's frames that are heard, never below 0.
double Reading::PlaceOf(int64_t frame) const {
    return std::clamp(at_ + static_cast<double>(frame) * step_ - static_cast<double>(low_), 0.0, span_);
}

// With the source's own channels.
bool Reading::ReadOwn(int64_t first, int frames, double* to) const {
    Source& source = *playback_.source;
    if (OnFrames()) return source.Read(FirstFrame() + first, frames, to);

    constexpr double mostHeld = 65536;  // of the source's frames at once
    const int channels = source.Channels(),
              atOnce = static_cast<int>(std::clamp(mostHeld / std::fabs(step_), 1.0, mostHeld));
    std::vector<double> held;
    for (const int64_t end = first + frames; first < end;) {
        const int64_t n = std::min<int64_t>(atOnce, end - first);
        const auto [low, high] = std::minmax({PlaceOf(first), PlaceOf(first + n - 1)});
        const auto from = static_cast<int64_t>(low), count = static_cast<int64_t>(high) - from + 2;
        held.resize(static_cast<size_t>(count) * channels);
        if (!source.Read(low_ + from, static_cast<int>(count), held.data())) return false;
        for (const int64_t pieceEnd = first + n; first < pieceEnd; ++first) {
            const double place = PlaceOf(first), part = place - std::floor(place);
            const double* a = held.data() + (static_cast<int64_t>(place) - from) * channels;
            for (int c = 0; c < channels; ++c) *to++ = a[c] + (a[c + channels] - a[c]) * part;
        }
    }
    return true;
}

int To24Bits(double sample) {
    const double scaled = std::nearbyint(sample * 8388608.0);
    if (!(scaled > -8388608.0)) return scaled == scaled ? -8388608 : 0;
    return scaled < 8388607.0 ? static_cast<int>(scaled) : 8388607;
}

}  // namespace simhost
