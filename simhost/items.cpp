// Items, takes and sources: walking, selecting, splitting, moving, deleting.
#include <cmath>

#include "simhost/calls.h"

namespace simhost {

static MediaItem* HandleOrNull(Item* item) { return item ? Host::Handle(*item) : nullptr; }
static MediaItem_Take* HandleOrNull(Take* take) { return take ? Host::Handle(*take) : nullptr; }

int api::CountMediaItems(ReaProject* project) {
    Host& host = Host::Current();
    return host.Know(project) ? host.project.tracks.ItemCount() : 0;
}

MediaItem* api::GetMediaItem(ReaProject* project, int index) {
    Host& host = Host::Current();
    return host.Know(project) ? HandleOrNull(host.project.tracks.ItemAt(index)) : nullptr;
}

int api::CountSelectedMediaItems(ReaProject* project) {
    Host& host = Host::Current();
    return host.Know(project) ? host.project.tracks.SelectedCount() : 0;
}

MediaItem* api::GetSelectedMediaItem(ReaProject* project, int index) {
    Host& host = Host::Current();
    if (!host.Know(project) || index < 0 || index >= host.project.tracks.SelectedCount()) return nullptr;
    return Host::Handle(*host.project.tracks.Selected()[index]);
}

bool api::IsMediaItemSelected(MediaItem* handle) {
    const Item* item = Host::Current().Know(handle);
    return item && item->selected;
}

void api::SetMediaItemSelected(MediaItem* handle, bool selected) {
    Host& host = Host::Current();
    if (Item* item = host.Know(handle)) host.project.tracks.Select(*item, selected);
}

void api::SelectAllMediaItems(ReaProject* project, bool selected) {
    Host& host = Host::Current();
    if (host.Know(project)) host.project.tracks.SelectAll(selected);
}

int api::CountTrackMediaItems(MediaTrack* handle) {
    const Track* track = Host::Current().Know(handle);
    return track ? static_cast<int>(track->items.size()) : 0;
}

MediaItem* api::GetTrackMediaItem(MediaTrack* handle, int index) {
    Track* track = Host::Current().Know(handle);
    if (!track || index < 0 || static_cast<size_t>(index) >= track->items.size()) return nullptr;
    return Host::Handle(*track->items[index]);
}

MediaTrack* api::GetMediaItem_Track(MediaItem* handle) {
    const Item* item = Host::Current().Know(handle);
    return item ? Host::Handle(*item->track) : nullptr;
}

bool api::SetMediaItemPosition(MediaItem* handle, double seconds, bool) {
    Host& host = Host::Current();
    Item* item = host.Know(handle);
    if (item) host.project.tracks.Reposition(*item, seconds, host.preferences.sortsAtOnce);
    return item;
}

MediaItem* api::SplitMediaItem(MediaItem* handle, double seconds) {
    Host& host = Host::Current();
    Item* item = host.Know(handle);
    return item ? HandleOrNull(Split(host.project, *item, seconds, host.preferences.splitCrossfade)) : nullptr;
}

bool api::DeleteTrackMediaItem(MediaTrack* trackHandle, MediaItem* itemHandle) {
    Host& host = Host::Current();
    const Track* track = host.Know(trackHandle);
    Item* item = host.Know(itemHandle);
    if (!track || !item) return false;
    if (item->track != track) {
        host.Violate("item " + item->Name() + " is not on track " + track->name);
        return false;
    }
    host.project.tracks.Remove(*item);
    return true;
}

bool api::MoveMediaItemToTrack(MediaItem* itemHandle, MediaTrack* trackHandle) {
    Host& host = Host::Current();
    Item* item = host.Know(itemHandle);
    Track* track = host.Know(trackHandle);
    if (!track || !item) return false;
    host.project.tracks.MoveTo(*item, *track);
    return true;
}

int api::CountTakes(MediaItem* handle) {
    const Item* item = Host::Current().Know(handle);
    return item ? static_cast<int>(item->takes.size()) : 0;
}

MediaItem_Take* api::GetTake(MediaItem* handle, int index) {
    Item* item = Host::Current().Know(handle);
    if (!item || index < 0 || static_cast<size_t>(index) >= item->takes.size()) return nullptr;
    return Host::Handle(*item->takes[index]);
}

MediaItem_Take* api::GetActiveTake(MediaItem* handle) {
    Item* item = Host::Current().Know(handle);
    return item ? HandleOrNull(item->Active()) : nullptr;
}

void api::SetActiveTake(MediaItem_Take* handle) {
    Take* take = Host::Current().Know(handle);
    if (!take) return;
    Item& item = *take->item;
    for (size_t i = 0; i < item.takes.size(); ++i)
        if (&*item.takes[i] == take) item.activeTake = static_cast<int>(i);
}

PCM_source* api::GetMediaItemTake_Source(MediaItem_Take* handle) {
    Take* take = Host::Current().Know(handle);
    return take && take->source ? Host::SourceHandle(*take) : nullptr;
}

// Null for a take whose source was taken away after its handle was given.
static const Source* KnownSource(PCM_source* handle) {
    const Take* take = Host::Current().Know(handle);
    return take ? take->source.get() : nullptr;
}

double api::GetMediaSourceLength(PCM_source* handle, bool* lengthIsInBeats) {
    const Source* source = KnownSource(handle);
    if (lengthIsInBeats) *lengthIsInBeats = source && source->IsMidi();
    return source ? source->Length() : 0.0;
}

int api::GetMediaSourceNumChannels(PCM_source* handle) {
    const Source* source = KnownSource(handle);
    return source ? source->Channels() : 0;
}

int api::GetMediaSourceSampleRate(PCM_source* handle) {
    const Source* source = KnownSource(handle);
    return source ? source->SampleRate() : 0;
}

}  // namespace simhost
