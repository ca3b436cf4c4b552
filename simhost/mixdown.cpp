#include "simhost/mixdown.h"

#include <algorithm>

#include "simhost/sound.h"

namespace simhost {

static double OnFrame(double seconds, int rate) { return std::floor(seconds * rate + 0.5) / rate; }

int64_t MixRange::Frames() const {
    const double frames = std::floor((end - start) * rate + 0.5);
    return rate > 0 && frames >= 1 && frames < 9e15 ? static_cast<int64_t>(frames) : 0;
}

// What a player plays of a block, in the block's frames.
struct Mix::Part {
    const Player* player;
    int begin, end;
    int risen, falling;  // about where the fades end and begin
    double time;         // at `begin`, behind the item's start

    bool SoundsAt(int frame) const { return begin <= frame && frame < end; }
};

Mix::Mix(std::vector<const Item*> items, const MixRange& range)
    : Source(range.rate, range.channels, range.Frames()), origin_(OnFrame(range.start, range.rate)) {
    std::erase_if(items, [&range](const Item* item) {
        return !(item->End() > range.start && item->position < range.end) || item->mute != 0 || !item->Active();
    });
    std::stable_sort(items.begin(), items.end(),
                     [](const Item* a, const Item* b) { return a->position < b->position; });
    for (const Item* item : items) {
        players_.push_back({*item->Active(), item->Fades(), OnFrame(item->position, range.rate)});
        const double end = players_.back().End();
        latestEnd_.push_back(latestEnd_.empty() ? end : std::max(latestEnd_.back(), end));
    }
    FindRuns();
}

// A run is where one item plays alone, beside its fades, frame for frame.
void Mix::FindRuns() {
    constexpr double most = 1e9;  // a time that is further away does not tell its frame for certain
    for (size_t i = 0; i < players_.size(); ++i) {
        const Player& p = players_[i];
        const Reading reading(p.playback, SampleRate(), Channels(), 0, 0);
        const double start = FrameOf(p.position), rise = p.fades.in * SampleRate(), fall = p.fades.out * SampleRate();
        double begin = std::max(start, 0.0), end = std::min<double>(FrameOf(p.End()), Frames());
        if (rise > 0) begin = std::max(begin, std::ceil(start + rise) + 1);
        if (fall > 0) end = std::min(end, std::floor(FrameOf(p.End()) - fall) - 1);
        if (i > 0) begin = std::max(begin, FrameOf(latestEnd_[i - 1]));
        if (i + 1 < players_.size()) end = std::min(end, FrameOf(players_[i + 1].position));
        if (!(reading.Straight() && begin < end && start > -most && end < most)) continue;
        const auto first = static_cast<int64_t>(begin);
        AddRun({first, static_cast<int64_t>(end), p.playback.source.get(),
                reading.FirstFrame() + first - static_cast<int64_t>(start)});
    }
}

void Mix::AddRun(const Run& run) {
    Run rest = run;
    const auto add = [&](int64_t end, Source* source, int64_t first) {
        Run* last = runs_.empty() ? nullptr : &runs_.back();
        if (last && last->end == rest.begin && last->source == source &&
            last->first + rest.begin - last->begin == first)
            last->end = end;
        else if (end > rest.begin)
            runs_.push_back({rest.begin, end, source, first});
        rest.first += end - rest.begin;
        rest.begin = end;
    };
    if (const auto* mix = dynamic_cast<const Mix*>(run.source))
        for (auto below = mix->RunBehind(rest.first); below != mix->runs_.end() && rest.begin < rest.end; ++below) {
            const int64_t begin = rest.begin + below->begin - rest.first, end = rest.begin + below->end - rest.first;
            if (begin >= rest.end) break;
            if (begin > rest.begin) add(begin, rest.source, rest.first);
            add(std::min(end, rest.end), below->source, below->first + rest.first - below->begin);
        }
    if (rest.begin < rest.end) add(rest.end, rest.source, rest.first);
}

std::vector<Mix::Run>::const_iterator Mix::RunBehind(int64_t frame) const {
    return std::upper_bound(runs_.begin(), runs_.end(), frame, [](int64_t f, const Run& run) { return f < run.end; });
}

bool Mix::ReadInside(int64_t first, int frames, double* out) {
    for (int n; frames > 0; first += n, frames -= n, out += static_cast<ptrdiff_t>(n) * Channels()) {
        const auto run = RunBehind(first);
        if (run != runs_.end() && run->begin <= first) {
            n = static_cast<int>(std::min<int64_t>(frames, run->end - first));
            if (!run->source->Read(run->first + first - run->begin, n, out))
                std::fill_n(out, static_cast<int64_t>(n) * Channels(), 0.0);
            continue;
        }
        const int64_t end = run == runs_.end() ? Frames() : run->begin;
        const int from = static_cast<int>(first % BlockFrames);
        n = static_cast<int>(std::min<int64_t>({frames, end - first, BlockFrames - from}));
        Compose(first / BlockFrames, from, from + n, out);
    }
    return true;
}

std::vector<Mix::Part> Mix::PartsOf(int64_t block) const {
    const double rate = SampleRate();
    const int64_t first = block * BlockFrames, last = std::min(first + BlockFrames, Frames());
    const double start = origin_ + static_cast<double>(first) / rate, end = origin_ + static_cast<double>(last) / rate;
    std::vector<Part> parts;
    const auto late = std::upper_bound(latestEnd_.begin(), latestEnd_.end(), start);
    for (auto p = players_.begin() + (late - latestEnd_.begin()); p != players_.end() && p->position < end; ++p) {
        const double from = std::max(0.0, std::ceil((p->position - start) * rate - 1e-6));
        const double to = std::min(static_cast<double>(last - first), std::ceil((p->End() - start) * rate - 1e-6));
        if (!(p->End() > start && from < to)) continue;
        const double time = start + from / rate - p->position;
        const auto frameAt = [&](double t) {  // the nearest in the part; what is no number is its begin
            const double frame = from + (t - time) * rate;
            return static_cast<int>(frame > from ? std::min(frame, to) : from);
        };
        parts.push_back({&*p, static_cast<int>(from), static_cast<int>(to), frameAt(p->fades.in) + 1,
                         frameAt(p->fades.length - p->fades.out), time});
    }
    return parts;
}

// Goes from each place where an item begins or ends, or a fade does, to the next.
void Mix::Compose(int64_t block, int from, int to, double* out) {
    const std::vector<Part> parts = PartsOf(block);
    while (from < to) {
        int low = 0, high = BlockFrames, count = 0;
        const Part* sounding = nullptr;
        for (const Part& part : parts) {
            for (const int edge : {part.begin, part.risen, part.falling, part.end})
                edge <= from ? low = std::max(low, edge) : high = std::min(high, edge);
            if (!part.SoundsAt(from)) continue;
            sounding = &part;
            ++count;
        }
        if (count > 1) {
            constexpr int step = 1024;
            low = std::max(low, from / step * step);
            high = std::min(high, (from / step + 1) * step);
            KeepSum(parts, block, low, high);
        }
        const int n = std::min(high, to) - from;
        const int64_t samples = static_cast<int64_t>(n) * Channels();
        if (count > 1)
            std::copy_n(sum_.data() + static_cast<ptrdiff_t>(from - low) * Channels(), samples, out);
        else if (!sounding || !Play(*sounding, from, from + n, out))
            std::fill_n(out, samples, 0.0);
        out += samples;
        from += n;
    }
}

// Sums are kept. Where pieces were crossfaded and glued again and again, each depth asks for the same frames twice.
void Mix::KeepSum(const std::vector<Part>& parts, int64_t block, int from, int to) {
    const int64_t first = block * BlockFrames + from;
    const size_t samples = static_cast<size_t>(to - from) * Channels();
    if (sumFirst_ == first && sum_.size() == samples) return;
    sumFirst_ = first;
    sum_.assign(samples, 0.0);
    addend_.resize(samples);
    for (const Part& part : parts)
        if (part.SoundsAt(from) && Play(part, from, to, addend_.data()))
            std::transform(sum_.begin(), sum_.end(), addend_.begin(), sum_.begin(), std::plus<>());
}

// False: the take cannot be read.
bool Mix::Play(const Part& part, int from, int to, double* out) const {
    const Player& player = *part.player;
    const Reading reading(player.playback, SampleRate(), Channels(), part.time, part.end - part.begin);
    if (!reading.Read(from - part.begin, to - from, out)) return false;
    const auto fade = [&](int frame) {
        return player.fades.At(part.time + static_cast<double>(frame - part.begin) / SampleRate());
    };
    if (fade(from) == 1 && fade(to - 1) == 1) return true;
    for (int frame = from; frame < to; ++frame) {
        const double gain = fade(frame);
        for (int c = 0; c < Channels(); ++c) *out++ *= gain;
    }
    return true;
}

bool MixItems(const std::vector<const Item*>& items, const MixRange& range, const MixSink& sink) {
    Mix mix(items, range);
    std::vector<double> block(static_cast<size_t>(Mix::BlockFrames) * std::max(range.channels, 0));
    const int64_t frames = block.empty() ? 0 : range.Frames();
    for (int64_t done = 0; done < frames; done += Mix::BlockFrames) {
        const int n = static_cast<int>(std::min<int64_t>(Mix::BlockFrames, frames - done));
        mix.Read(done, n, block.data());
        if (!sink(block.data(), n)) return false;
    }
    return true;
}

bool MixProject(const Project& project, const MixRange& range, const MixSink& sink) {
    std::vector<const Item*> items;
    for (const Box<Track>& track : project.tracks.All())
        for (const Box<Item>& item : track->items) items.push_back(&*item);
    return MixItems(items, range, sink);
}

}  // namespace simhost
