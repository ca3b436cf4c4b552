// Editing actions on the selected items and tracks.
#include <algorithm>

#include "simhost/actions.h"

namespace simhost {

static std::vector<Item*> SelectedItems(Host& host) {
    std::vector<Item*> items;
    for (int i = 0; i < host.project.tracks.SelectedCount(); ++i)
        if (Item* item = host.project.tracks.SelectedAt(i); item->lock == 0) items.push_back(item);
    return items;
}

static std::vector<Track*> SelectedTracks(Host& host) {
    std::vector<Track*> tracks;
    for (int i = 0; i < host.project.tracks.Count(); ++i)
        if (Track* track = host.project.tracks.At(i); track->selected) tracks.push_back(track);
    return tracks;
}

void RemoveByFocus(Host& host) {
    using Focus = Preferences::Focus;
    if (host.preferences.deleteFocus == Focus::Items)
        for (Item* item : SelectedItems(host)) host.project.tracks.Remove(*item);
    if (host.preferences.deleteFocus == Focus::Tracks)
        for (Track* track : SelectedTracks(host)) host.project.tracks.Remove(*track);
}

void TrimLeftEdge(Host& host) {
    const double cursor = host.project.cursor;
    for (Item* item : SelectedItems(host)) {
        const double cut = cursor - item->position, end = item->End();
        if (!(cut > 0 && cursor < end)) continue;
        for (Box<Take>& take : item->takes) take->startOffset += cut * take->playRate;
        item->length = end - cursor;
        host.project.tracks.Reposition(*item, cursor);
    }
}

void TrimRightEdge(Host& host) {
    const double cursor = host.project.cursor;
    for (Item* item : SelectedItems(host))
        if (cursor > item->position && cursor < item->End()) item->length = cursor - item->position;
}

// The copies stand behind the originals as a whole and are what is selected afterwards.
void DuplicateItems(Host& host) {
    const std::vector<Item*> originals = SelectedItems(host);
    if (originals.empty()) return;
    double start = originals[0]->position, end = originals[0]->End();
    for (const Item* item : originals) {
        start = std::min(start, item->position);
        end = std::max(end, item->End());
    }
    for (Item* item : originals) {
        Item copy = *item;
        copy.guid = 0;
        copy.position += end - start;
        host.project.tracks.Add(*item->track, std::move(copy));
        host.project.tracks.Select(*item, false);
    }
}

void DuplicateTracks(Host& host) {
    for (Track* track : SelectedTracks(host)) {
        Track copy = *track;
        copy.guid = 0;
        host.project.tracks.Insert(track->index + 1, std::move(copy));
        track->selected = false;
    }
}

// An item whose only take goes, goes with it.
void DeleteActiveTake(Host& host) {
    for (Item* item : SelectedItems(host)) {
        if (item->takes.size() <= 1) {
            host.project.tracks.Remove(*item);
            continue;
        }
        const Take* active = item->Active();
        std::erase_if(item->takes, [active](const Box<Take>& take) { return &*take == active; });
        item->activeTake = std::min<int>(item->activeTake, static_cast<int>(item->takes.size()) - 1);
    }
}

void ToggleVolumeEnvelope(Host& host) {
    for (Item* item : SelectedItems(host))
        if (Take* take = item->Active()) take->volumeEnvelope = !take->volumeEnvelope;
}

}  // namespace simhost
