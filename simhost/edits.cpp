// Editing actions on the selected items and tracks.
#include <algorithm>

#include "simhost/actions.h"

namespace simhost {

std::vector<Item*> SelectedItems(Host& host) {
    std::vector<Item*> items = host.project.tracks.Selected();
    std::erase_if(items, [](const Item* item) { return item->lock != 0; });
    return items;
}

std::vector<Track*> SelectedTracks(Host& host) {
    std::vector<Track*> tracks;
    for (int i = 0; i < host.project.tracks.Count(); ++i)
        if (Track* track = host.project.tracks.At(i); track->selected) tracks.push_back(track);
    return tracks;
}

bool RemoveByFocus(Host& host) {
    const auto remove = [&host](const auto& things) {
        for (auto* thing : things) host.project.tracks.Remove(*thing);
        return !things.empty();
    };
    return host.preferences.deletesTracks ? remove(SelectedTracks(host)) : remove(SelectedItems(host));
}

// The selected items that the cursor stands in.
static std::vector<Item*> ItemsUnderCursor(Host& host) {
    std::vector<Item*> items = SelectedItems(host);
    std::erase_if(items, [cursor = host.project.cursor](const Item* item) {
        return !(cursor > item->position && cursor < item->End());
    });
    return items;
}

bool TrimLeftEdge(Host& host) {
    const double cursor = host.project.cursor;
    const std::vector<Item*> items = ItemsUnderCursor(host);
    for (Item* item : items) {
        for (Box<Take>& take : item->takes) take->startOffset += (cursor - item->position) * take->playRate;
        item->length = item->End() - cursor;
        host.project.tracks.Reposition(*item, cursor);
    }
    return !items.empty();
}

bool TrimRightEdge(Host& host) {
    const std::vector<Item*> items = ItemsUnderCursor(host);
    for (Item* item : items) item->length = host.project.cursor - item->position;
    return !items.empty();
}

// The copies stand behind the originals as a whole and are what is selected afterwards.
bool DuplicateItems(Host& host) {
    const std::vector<Item*> originals = SelectedItems(host);
    if (originals.empty()) return false;
    const TimeRange span = SpanOf(originals);
    for (Item* item : originals) {
        Item copy = *item;
        copy.guid = 0;
        copy.position += span.end - span.start;
        host.project.tracks.Add(*item->track, std::move(copy));
        host.project.tracks.Select(*item, false);
    }
    return true;
}

bool DuplicateTracks(Host& host) {
    const std::vector<Track*> tracks = SelectedTracks(host);
    for (Track* track : tracks) {
        Track copy = *track;
        copy.guid = 0;
        host.project.tracks.Insert(track->index + 1, std::move(copy));
        track->selected = false;
    }
    return !tracks.empty();
}

// An item whose only take goes, goes with it.
bool DeleteActiveTake(Host& host) {
    const std::vector<Item*> items = SelectedItems(host);
    for (Item* item : items) {
        if (item->takes.size() <= 1) {
            host.project.tracks.Remove(*item);
            continue;
        }
        const Take* active = item->Active();
        std::erase_if(item->takes, [active](const Box<Take>& take) { return &*take == active; });
        item->activeTake = std::min<int>(item->activeTake, static_cast<int>(item->takes.size()) - 1);
    }
    return !items.empty();
}

bool ToggleVolumeEnvelope(Host& host) {
    bool found = false;
    for (Item* item : SelectedItems(host))
        if (Take* take = item->Active()) {
            take->volumeEnvelope = !take->volumeEnvelope;
            found = true;
        }
    return found;
}

}  // namespace simhost
