#include "simhost/mixdown.h"

#include <algorithm>
#include <cmath>

#include "simhost/sound.h"

namespace simhost {
namespace {

struct Voice {
    const Item* item;
    double gain;
};

constexpr int BlockFrames = 16384;

double OnFrame(double seconds, int rate) {
    return std::floor(seconds * rate + 0.5) / rate;
}

// Goes through the voices once, from the earliest on; each is held only while it sounds.
bool Mix(std::vector<Voice> voices, const MixRange& range, const MixSink& sink) {
    std::erase_if(voices,
                  [&](const Voice& v) { return !(v.item->End() > range.start && v.item->position < range.end); });
    std::stable_sort(voices.begin(), voices.end(),
                     [](const Voice& a, const Voice& b) { return a.item->position < b.item->position; });
    const int64_t frames = range.Frames();
    if (frames == 0 || range.channels <= 0) return true;

    const double start = OnFrame(range.start, range.rate);
    std::vector<double> block(static_cast<size_t>(BlockFrames) * range.channels);
    std::vector<Item> sounding;
    auto next = voices.begin();
    for (int64_t done = 0; done < frames; done += BlockFrames) {
        const int n = static_cast<int>(std::min<int64_t>(BlockFrames, frames - done));
        const double from = start + static_cast<double>(done) / range.rate;
        const double to = start + static_cast<double>(done + n) / range.rate;
        for (; next != voices.end() && OnFrame(next->item->position, range.rate) < to; ++next) {
            Item& item = sounding.emplace_back(*next->item);
            item.position = OnFrame(item.position, range.rate);
            item.volume *= next->gain;
        }
        std::fill(block.begin(), block.end(), 0.0);
        for (const Item& item : sounding) MixItem(item, range.rate, range.channels, from, n, block.data());
        if (!sink(block.data(), n)) return false;
        std::erase_if(sounding, [&](const Item& item) { return item.End() <= to; });
    }
    return true;
}

}  // namespace

int64_t MixRange::Frames() const {
    const double frames = std::floor((end - start) * rate + 0.5);
    return rate > 0 && frames >= 1 && frames < 9e15 ? static_cast<int64_t>(frames) : 0;
}

bool MixItems(const std::vector<const Item*>& items, const MixRange& range, const MixSink& sink) {
    std::vector<Voice> voices;
    for (const Item* item : items) voices.push_back({item, 1.0});
    return Mix(std::move(voices), range, sink);
}

bool MixProject(const Project& project, const MixRange& range, const MixSink& sink) {
    const auto& tracks = project.tracks.All();
    const bool soloing = std::any_of(tracks.begin(), tracks.end(), [](const Box<Track>& t) { return t->solo != 0; });
    std::vector<Voice> voices;
    for (const Box<Track>& track : tracks) {
        if (track->mute != 0 || (soloing && track->solo == 0)) continue;
        for (const Box<Item>& item : track->items) voices.push_back({&*item, track->volume});
    }
    return Mix(std::move(voices), range, sink);
}

}  // namespace simhost
