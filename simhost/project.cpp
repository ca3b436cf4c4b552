#include "simhost/project.h"

#include <algorithm>
#include <utility>

namespace simhost {

static uint64_t lastGuid = 0;

// Also a total order for positions that are not numbers, which stand last.
static bool Earlier(double a, double b) { return a < b || (a == a && b != b); }

Take* Item::Active() {
    return takes.empty() ? nullptr : &*takes[std::clamp<int>(activeTake, 0, static_cast<int>(takes.size()) - 1)];
}

const Take* Item::Active() const { return const_cast<Item*>(this)->Active(); }

std::string Item::Name() const {
    const Take* take = Active();
    return take ? take->name : std::string();
}

double Fades::At(double time) const {
    double gain = 1;
    if (in > 0 && time < in) gain *= time / in;
    if (out > 0 && length - time < out) gain *= (length - time) / out;
    return gain;
}

static void Link(Item& item, Track& track) {
    item.track = &track;
    for (Box<Take>& take : item.takes) take->item = &item;
}

TrackList::TrackList(const TrackList& other)
    : tracks_(other.tracks_), itemCount_(other.itemCount_), selectedCount_(other.selectedCount_) {
    for (Box<Track>& track : tracks_)
        for (Box<Item>& item : track->items) Link(*item, *track);
}

TrackList& TrackList::operator=(TrackList other) noexcept {
    tracks_.swap(other.tracks_);
    itemCount_ = other.itemCount_;
    selectedCount_ = other.selectedCount_;
    Changed();
    return *this;
}

void TrackList::Renumber() {
    for (size_t i = 0; i < tracks_.size(); ++i) tracks_[i]->index = static_cast<int>(i);
    Changed();
}

Track* TrackList::At(int index) { return index >= 0 && index < Count() ? &*tracks_[index] : nullptr; }

Track& TrackList::Insert(int index, Track track) {
    if (!track.guid) track.guid = ++lastGuid;
    const auto place = tracks_.insert(tracks_.begin() + std::clamp(index, 0, Count()), Box<Track>(std::move(track)));
    Track& inserted = **place;
    for (Box<Item>& item : inserted.items) {
        Link(*item, inserted);
        item->guid = ++lastGuid;
        ++itemCount_;
        selectedCount_ += item->selected;
    }
    Renumber();
    return inserted;
}

void TrackList::Remove(Track& track) {
    for (const Box<Item>& item : track.items) {
        --itemCount_;
        selectedCount_ -= item->selected;
    }
    tracks_.erase(tracks_.begin() + track.index);
    Renumber();
}

void TrackList::MoveSelectedBefore(int index) {
    const auto selected = [](const Box<Track>& t) { return t->selected; };
    const auto middle = tracks_.begin() + std::clamp(index, 0, Count());
    std::stable_partition(tracks_.begin(), middle, [&](const Box<Track>& t) { return !selected(t); });
    std::stable_partition(middle, tracks_.end(), selected);
    Renumber();
}

const std::vector<Item*>& TrackList::Listed(List& list, bool onlySelected) {
    if (!std::exchange(list.fresh, true)) {
        list.items.clear();
        for (Box<Track>& track : tracks_)
            for (Box<Item>& item : track->items)
                if (item->selected || !onlySelected) list.items.push_back(&*item);
    }
    return list.items;
}

Item* TrackList::ItemAt(int index) { return index >= 0 && index < itemCount_ ? Items()[index] : nullptr; }

// How many of the items, which are sorted, stand where `before` is true.
template <class Test>
static size_t CountWhile(const GapList<Box<Item>>& items, Test before) {
    size_t low = 0;
    for (size_t high = items.size(); low < high;) {
        const size_t middle = (low + high) / 2;
        if (before(items[middle]->position))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

size_t TrackList::IndexOf(const Item& item) {
    const GapList<Box<Item>>& items = item.track->items;
    const auto before = [&](double position) { return Earlier(position, item.position); };
    size_t index = item.track->unsorted ? 0 : CountWhile(items, before);
    while (&*items[index] != &item) ++index;
    return index;
}

Box<Item> TrackList::Detach(Item& item) {
    --itemCount_;
    selectedCount_ -= item.selected;
    Changed();
    return item.track->items.Remove(IndexOf(item));
}

Item& TrackList::Attach(Track& track, Box<Item> box) {
    Item& item = *box;
    Link(item, track);
    ++itemCount_;
    selectedCount_ += item.selected;
    Changed();
    const auto notAfter = [&](double position) { return !Earlier(item.position, position); };
    track.items.Insert(CountWhile(track.items, notAfter), std::move(box));
    return item;
}

Item& TrackList::Add(Track& track, Item item) {
    if (!item.guid) item.guid = ++lastGuid;
    return Attach(track, Box<Item>(std::move(item)));
}

void TrackList::Remove(Item& item) { Detach(item); }

void TrackList::MoveTo(Item& item, Track& track) {
    if (item.track != &track) Attach(track, Detach(item));
}

void TrackList::Reposition(Item& item, double position, bool sortNow) {
    Track& track = *item.track;
    if (!sortNow) {
        track.unsorted = true;
        item.position = position;
        return;
    }
    const size_t index = IndexOf(item);
    const bool afterPrevious = index == 0 || !Earlier(position, track.items[index - 1]->position);
    const bool beforeNext = index + 1 == track.items.size() || !Earlier(track.items[index + 1]->position, position);
    if (afterPrevious && beforeNext) {
        item.position = position;
        return;
    }
    Box<Item> box = Detach(item);
    box->position = position;
    Attach(track, std::move(box));
}

void TrackList::Select(Item& item, bool selected) {
    if (item.selected == selected) return;
    item.selected = selected;
    selectedCount_ += selected ? 1 : -1;
    selected_.fresh = false;
}

void TrackList::SelectAll(bool selected) {
    for (Box<Track>& track : tracks_)
        for (Box<Item>& item : track->items) item->selected = selected;
    selectedCount_ = selected ? itemCount_ : 0;
    selected_.fresh = false;
}

void TrackList::Sort() {
    for (Box<Track>& track : tracks_) {
        if (!track->unsorted) continue;
        std::vector<Box<Item>> items;
        for (Box<Item>& item : track->items) items.push_back(std::move(item));
        std::stable_sort(items.begin(), items.end(),
                         [](const Box<Item>& a, const Box<Item>& b) { return Earlier(a->position, b->position); });
        track->items = {};
        for (Box<Item>& item : items) track->items.Insert(track->items.size(), std::move(item));
        track->unsorted = false;
        Changed();
    }
}

TimeRange SpanOf(const std::vector<Item*>& items) {
    TimeRange span = {items[0]->position, items[0]->End()};
    for (const Item* item : items) span = {std::min(span.start, item->position), std::max(span.end, item->End())};
    return span;
}

Item MakeItem(const std::string& name, double start, double end, SourceRef source) {
    Item item;
    item.position = start;
    item.length = end - start;
    Take take;
    take.name = name;
    take.source = std::move(source);
    item.takes.emplace_back(std::move(take));
    return item;
}

Track& AddTrack(Project& project, const std::string& name) {
    Track track;
    track.name = name;
    return project.tracks.Insert(project.tracks.Count(), std::move(track));
}

Item* FindItem(Project& project, const std::string& name) {
    for (int i = 0; i < project.tracks.ItemCount(); ++i)
        if (Item* item = project.tracks.ItemAt(i); item->Name() == name) return item;
    return nullptr;
}

Track* FindTrack(Project& project, const std::string& name) {
    for (int i = 0; i < project.tracks.Count(); ++i)
        if (Track* track = project.tracks.At(i); track->name == name) return track;
    return nullptr;
}

Marker* FindMarker(Project& project, int number, bool isRegion) {
    for (Marker& marker : project.markers)
        if (marker.number == number && marker.isRegion == isRegion) return &marker;
    return nullptr;
}

void SortMarkers(Project& project) {
    std::stable_sort(project.markers.begin(), project.markers.end(),
                     [](const Marker& a, const Marker& b) { return Earlier(a.start, b.start); });
}

int AddMarker(Project& project, Marker marker, int wanted) {
    marker.number = wanted >= 0 ? wanted : 1;
    while (FindMarker(project, marker.number, marker.isRegion)) ++marker.number;
    if (!marker.isRegion) marker.end = marker.start;
    if (marker.end < marker.start) std::swap(marker.start, marker.end);
    project.markers.push_back(marker);
    SortMarkers(project);
    return marker.number;
}

Item* Split(Project& project, Item& item, double time, double crossfade) {
    if (!(time > item.position && time < item.End())) return nullptr;
    Item right = item;
    right.guid = 0;
    right.selected = false;
    right.position = std::max(item.position, time - crossfade);
    right.length = item.End() - right.position;
    right.fadeIn = crossfade > 0 ? crossfade : -1;
    for (Box<Take>& take : right.takes) take->startOffset += (right.position - item.position) * take->playRate;
    item.length = time - item.position;
    item.fadeOut = right.fadeIn;
    return &project.tracks.Add(*item.track, std::move(right));
}

double ProjectEnd(const Project& project) {
    double end = 0;
    for (const Box<Track>& track : project.tracks.All())
        for (const Box<Item>& item : track->items) end = std::max(end, item->End());
    for (const Marker& marker : project.markers) end = std::max(end, marker.end);
    return end;
}

}  // namespace simhost
