// Actions that make audio: they render what items sound like into new sources.
#include <algorithm>
#include <cmath>

#include "simhost/actions.h"
#include "simhost/mixdown.h"
#include "simhost/sound.h"

namespace simhost {

static SourceRef Keep(Host& host, int rate, int channels, std::vector<double> samples) {
    return host.keepRendered ? host.keepRendered(rate, channels, std::move(samples))
                             : Memory(rate, channels, std::move(samples));
}

static size_t FramesIn(double seconds, int rate) {
    return static_cast<size_t>(std::clamp(std::ceil(seconds * rate - 1e-6), 0.0, 1e9));
}

static bool HasAudio(const Item& item) {
    const Take* take = item.Active();
    return take && take->source && !take->source->IsMidi();
}

// One new item over the whole stretch of these, at the first audio's rate and the most channels of any. Items without
// audio count as gaps; without any audio at all the items stay as they are.
static bool GlueOnTrack(Host& host, const std::vector<Item*>& items) {
    const auto [start, end] = SpanOf(items);
    int rate = 0, channels = 1;
    for (const Item* item : items) {
        if (!HasAudio(*item)) continue;
        if (!rate) rate = item->Active()->source->SampleRate();
        channels = std::max(channels, item->Active()->source->Channels());
    }
    if (rate <= 0) return false;
    const double held = std::min(end, start + 1e9 / rate);  // what memory can hold of items that end absurdly late
    std::vector<double> mix;
    MixItems({items.begin(), items.end()}, {rate, channels, start, held}, [&](const double* block, int frames) {
        mix.insert(mix.end(), block, block + static_cast<size_t>(frames) * channels);
        return true;
    });

    Track& track = *items[0]->track;
    Item glued = MakeItem(items[0]->Name() + "-glued", start, end, Keep(host, rate, channels, std::move(mix)));
    glued.selected = true;
    for (Item* item : items) host.project.tracks.Remove(*item);
    host.project.tracks.Add(track, std::move(glued));
    return true;
}

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

// The active take as it sounds before the item's volume and fades, as a new take behind the others, which becomes the
// active one.
bool RenderTakes(Host& host, int channels) {
    bool rendered = false;
    for (Item* item : SelectedItems(host)) {
        if (!HasAudio(*item)) continue;
        const Take& active = *item->Active();
        const int rate = active.source->SampleRate(), wide = std::max(channels, active.source->Channels());
        const size_t frames = FramesIn(item->length, rate);
        std::vector<double> samples(frames * wide), narrow(frames * channels);
        ReadTake(active, rate, wide, 0, static_cast<int>(frames), samples.data());
        for (size_t f = 0; f < frames; ++f)
            for (int c = 0; c < wide; ++c)  // mono is the mean of all channels; stereo drops those beyond the second
                if (channels == 1)
                    narrow[f] += active.volume * samples[f * wide + c] / wide;
                else if (c < channels)
                    narrow[f * channels + c] = active.volume * samples[f * wide + c];
        Take take;
        take.name = active.name + "-render";
        take.source = Keep(host, rate, channels, std::move(narrow));
        take.item = item;
        item->takes.emplace_back(std::move(take));
        item->activeTake = static_cast<int>(item->takes.size()) - 1;
        rendered = true;
    }
    return rendered;
}

}  // namespace simhost
