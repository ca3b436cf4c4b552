// Accessors, through which callers hear a take.
#include <algorithm>
#include <cmath>

#include "simhost/calls.h"
#include "simhost/sound.h"

namespace simhost {

AudioAccessor* api::CreateTakeAudioAccessor(MediaItem_Take* handle) {
    const Take* take = Host::Know(handle);
    if (!take || !take->source) return nullptr;
    return Host::Handle(Host::Current().accessors.emplace_back(Accessor{*take, handle, take->item->length, {}}));
}

void api::DestroyAudioAccessor(AudioAccessor* handle) {
    const Accessor* accessor = Host::Know(handle);
    Host::Current().accessors.remove_if([accessor](const Accessor& a) { return &a == accessor; });
}

double api::GetAudioAccessorStartTime(AudioAccessor* handle) {
    Host::Know(handle);
    return 0.0;
}

// Where there is nothing to read, the buffer stays as it was: the caller must not take it for silence.
int api::GetAudioAccessorSamples(AudioAccessor* handle, int rate, int channels, double start, int frames,
                                 double* interleaved) {
    Host& host = Host::Current();
    const Accessor* accessor = Host::Know(handle);
    if (!accessor) return -1;
    if (rate <= 0 || channels <= 0 || frames <= 0 || !interleaved) {
        host.Violate("rate, channels and frames must be above 0, and the buffer not null");
        return -1;
    }
    if (!OwnerOf(accessor->takeHandle, Kind::Take, nullptr)) {
        host.Violate("the accessor's take is gone");
        return -1;
    }
    const double left = std::ceil((accessor->length - start) * rate - 1e-3);  // frames up to the item's end
    if (accessor->playback.source->IsMidi() || !(left > 0) || !(start + static_cast<double>(frames) / rate > 0))
        return 0;
    if (!ReadTake(accessor->playback, rate, channels, start, frames, interleaved)) return -1;
    if (left < frames)
        std::fill(interleaved + static_cast<int64_t>(left) * channels,
                  interleaved + static_cast<int64_t>(frames) * channels, 0.0);
    if (host.calls.onRead) host.calls.onRead(frames);
    return 1;
}

}  // namespace simhost
