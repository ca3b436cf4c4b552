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

int64_t FramesIn(double seconds, int rate) {
    return static_cast<int64_t>(std::clamp(std::ceil(seconds * rate - 1e-6), 0.0, 1e9));
}

// A take as it sounds before its item's volume and fades.
class Rendered : public Source {
  public:
    Rendered(const Take& take, int channels, double seconds)
        : Source(take.source->SampleRate(), channels, FramesIn(seconds, take.source->SampleRate())), playback_(take) {}

  protected:
    // Mono is the mean of all channels; stereo drops those beyond the second. What cannot be read is silence.
    bool ReadInside(int64_t first, int frames, double* out) override {
        const int channels = Channels(), wide = std::max(channels, playback_.source->Channels());
        std::vector<double> samples(static_cast<size_t>(frames) * wide);
        const double* from = samples.data();
        const bool read = Reading(playback_, SampleRate(), wide, 0, Frames()).Read(first, frames, samples.data());
        std::fill_n(out, static_cast<int64_t>(frames) * channels, 0.0);
        for (; read && frames > 0; --frames, from += wide, out += channels)
            for (int c = 0; c < wide; ++c)
                if (channels == 1)
                    *out += from[c] / wide;
                else if (c < channels)
                    out[c] = from[c];
        return true;
    }

  private:
    Playback playback_;
};

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
        take.source = std::make_shared<Rendered>(*item->Active(), channels, item->length);
        take.item = item;
        item->takes.emplace_back(std::move(take));
        item->activeTake = static_cast<int>(item->takes.size()) - 1;
        rendered = true;
    }
    return rendered;
}

}  // namespace simhost
