// Actions that make audio. What they make is not held but composed anew when it is read.
#include <algorithm>
#include <cmath>

#include "simhost/actions.h"
#include "simhost/mixdown.h"
#include "simhost/sound.h"

namespace simhost {
namespace {

bool HasAudio(const Item& item) {
    const Take* take = item.Active();
    return take && take->source && !take->source->IsMidi();
}

// One new item over the whole stretch of these, at the first audio's rate and the most channels of any. Items without
// audio count as gaps; without any audio at all the items stay as they are.
bool GlueOnTrack(Host& host, const std::vector<Item*>& items) {
    const auto [start, end] = SpanOf(items);
    int rate = 0, channels = 1;
    for (const Item* item : items) {
        if (!HasAudio(*item)) continue;
        if (!rate) rate = item->Active()->source->SampleRate();
        channels = std::max(channels, item->Active()->source->Channels());
    }
    if (rate <= 0) return false;
    const auto mix = std::make_shared<Mix>(std::vector<const Item*>(items.begin(), items.end()),
                                           MixRange{rate, channels, start, end});
    Item glued = MakeItem(items[0]->Name() + "-glued", start, end, mix);
    glued.selected = true;
    Track& track = *items[0]->track;
    for (Item* item : items) host.project.tracks.Remove(*item);
    host.project.tracks.Add(track, std::move(glued));
    return true;
}

// A take as it sounds before its item's volume and fades. Mono is the mean of all channels; stereo drops those beyond
// the second. What cannot be read is silence.
SourceRef Rendered(const Take& take, int channels, double seconds) {
    const int rate = take.source->SampleRate(), wide = std::max(channels, take.source->Channels());
    const auto all = static_cast<int64_t>(std::clamp(std::ceil(seconds * rate - 1e-6), 0.0, 1e9));
    return Made(rate, channels, all, [=, playback = Playback(take)](int64_t first, int frames, double* out) {
        std::vector<double> samples(static_cast<size_t>(frames) * wide);
        const double* from = samples.data();
        const bool read = Reading(playback, rate, wide, 0, all).Read(first, frames, samples.data());
        std::fill_n(out, static_cast<int64_t>(frames) * channels, 0.0);
        for (; read && frames > 0; --frames, from += wide, out += channels)
            for (int c = 0; c < wide; ++c)
                if (channels == 1)
                    *out += from[c] / wide;
                else if (c < channels)
                    out[c] = from[c];
        return true;
    });
}

}  // namespace

bool Glue(Host& host) {
    bool glued = false;
    TrackList& tracks = host.project.tracks;
    for (int t = 0; t < tracks.Count(); ++t) {
        std::vector<Item*> items = SelectedItems(host);
        std::erase_if(items, [track = tracks.At(t)](const Item* item) { return item->track != track; });
        glued |= !items.empty() && GlueOnTrack(host, items);
    }
    return glued;
}

// The active take, as a new take behind the others, which becomes the active one.
bool RenderTakes(Host& host, int channels) {
    bool rendered = false;
    for (Item* item : SelectedItems(host)) {
        if (!HasAudio(*item)) continue;
        Take take;
        take.name = item->Active()->name + "-render";
        take.source = Rendered(*item->Active(), channels, item->length);
        take.item = item;
        item->takes.emplace_back(std::move(take));
        item->activeTake = static_cast<int>(item->takes.size()) - 1;
        rendered = true;
    }
    return rendered;
}

}  // namespace simhost
