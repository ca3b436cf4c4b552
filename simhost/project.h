// simhost/project.h
// The project as plain values: copying a Project copies everything but the audio, which is shared. Times are seconds.
// Fields that callers read and write by key are doubles, as they cross the interface; what the keys are is in
// fields.cpp. Tracks and items have addresses that last as long as they do. TrackList keeps
// order and selection, so items are added, moved and selected through it, not by writing to their fields.
#pragma once
#include <map>
#include <string>
#include <vector>

#include "simhost/containers.h"
#include "simhost/handles.h"
#include "simhost/source.h"

namespace simhost {

struct Item;
struct Track;

// What of a source is heard: from where on, and how fast.
struct Playback {
    SourceRef source;        // null: a take without a source
    double startOffset = 0;  // seconds into the source, at the source's own rate
    double playRate = 1;
};

struct Take : Playback {
    std::string name;
    bool volumeEnvelope = false;

    Item* item = nullptr;  // whose it is
    Identity identity, sourceIdentity;
};

// An item's gain over its time: it rises over `in` seconds from its start and falls over `out` seconds to its end.
struct Fades {
    double length, in, out;
    double At(double time) const;  // seconds behind the start
};

struct Item {
    double position = 0, length = 0;   // position: TrackList::Reposition
    double fadeIn = -1, fadeOut = -1;  // the automatic ones; -1: none
    double fadeInDir = 0, fadeOutDir = 0;
    double mute = 0, lock = 0, colour = 0;
    bool selected = false;  // TrackList::Select
    int activeTake = 0;
    std::vector<Box<Take>> takes;  // none: an item without a take

    Track* track = nullptr;  // whose it is
    uint64_t guid = 0;       // the same item before and after an undo
    Identity identity;

    double End() const { return position + length; }
    simhost::Fades Fades() const { return {length, fadeIn, fadeOut}; }
    Take* Active();  // null without a take
    const Take* Active() const;
    std::string Name() const;  // the active take's
};

struct Track {
    std::string name;
    bool selected = false;
    double armed = 0, fxEnabled = 1, colour = 0, height = 0;
    GapList<Box<Item>> items;  // by position, equal ones as they came

    int index = 0;
    bool unsorted = false;  // an item has moved and the order waits for TrackList::Sort
    uint64_t guid = 0;
    Identity identity;
};

class TrackList {
  public:
    TrackList() = default;
    TrackList(const TrackList& other);
    TrackList(TrackList&&) = default;
    TrackList& operator=(TrackList other) noexcept;

    const std::vector<Box<Track>>& All() const { return tracks_; }
    int Count() const { return static_cast<int>(tracks_.size()); }
    Track* At(int index);                   // null outside
    Track& Insert(int index, Track track);  // index held to 0..Count()
    void Remove(Track& track);
    void MoveSelectedBefore(int index);

    // Over all tracks, in their order. The lists last until the next change, and until then cost nothing to ask for.
    const std::vector<Item*>& Items() { return Listed(items_, false); }
    const std::vector<Item*>& Selected() { return Listed(selected_, true); }
    int ItemCount() const { return itemCount_; }
    int SelectedCount() const { return selectedCount_; }
    Item* ItemAt(int index);  // null outside

    Item& Add(Track& track, Item item);  // gets a new guid if it has none
    void Remove(Item& item);             // the item is gone
    void MoveTo(Item& item, Track& track);
    void Reposition(Item& item, double position, bool sortNow = true);
    void Select(Item& item, bool selected);
    void SelectAll(bool selected);
    void Sort();  // what Reposition left unsorted

  private:
    struct List {
        std::vector<Item*> items;
        bool fresh = false;
    };
    const std::vector<Item*>& Listed(List& list, bool onlySelected);
    void Renumber();
    void Changed() { items_.fresh = selected_.fresh = false; }
    Box<Item> Detach(Item& item);
    Item& Attach(Track& track, Box<Item> item);
    static size_t IndexOf(const Item& item);

    std::vector<Box<Track>> tracks_;
    int itemCount_ = 0, selectedCount_ = 0;
    List items_, selected_;
};

struct TimeRange {
    double start = 0, end = 0;
    bool operator==(const TimeRange&) const = default;
};

TimeRange SpanOf(const std::vector<Item*>& items);  // from the first start to the last end; of one item at least

struct Marker {
    bool isRegion = false;
    double start = 0, end = 0;  // a plain marker has both the same
    std::string name;
    int number = 0;  // markers and regions are numbered apart
    int colour = 0;  // 0: the default
};

struct Project {
    // What an undo point holds.
    TrackList tracks;
    std::vector<Marker> markers;  // by start, equal ones as they came

    // What undo leaves as it is.
    TimeRange timeSelection, loop, view{0, 60};
    double cursor = 0;
    std::string path;                          // empty: not saved yet
    std::map<std::string, double> numbers;     // RENDER_SRATE and its kin
    std::map<std::string, std::string> texts;  // RENDER_FILE and its kin
};

// A take of the source's whole length; an item that plays it, ready for TrackList::Add.
Item MakeItem(const std::string& name, double start, double end, SourceRef source);
Track& AddTrack(Project& project, const std::string& name);  // behind the last
Item* FindItem(Project& project, const std::string& name);   // the first of that name, or null
Track* FindTrack(Project& project, const std::string& name);

// The number given, which is `wanted` if that is free.
int AddMarker(Project& project, Marker marker, int wanted);
Marker* FindMarker(Project& project, int number, bool isRegion);
void SortMarkers(Project& project);

// Cuts at a time inside the item: it keeps the left part and loses its fade-out; the right part, unselected, is
// returned. Null when the time is not inside. A crossfade above 0 lets the right part start that much earlier.
Item* Split(Project& project, Item& item, double time, double crossfade = 0);
double ProjectEnd(const Project& project);  // the last end of an item, region or marker

}  // namespace simhost
