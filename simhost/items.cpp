// Items, takes and sources: walking, selecting, splitting, moving, deleting.
#include "simhost/calls.h"

namespace simhost {

int api::CountMediaItems(ReaProject* project) {
    return Of(project, [](Host& host) { return host.project.tracks.ItemCount(); });
}

MediaItem* api::GetMediaItem(ReaProject* project, int index) {
    return Of(project, [=](Host& host) { return HandleOf(host.project.tracks.ItemAt(index)); });
}

int api::CountSelectedMediaItems(ReaProject* project) {
    return Of(project, [](Host& host) { return host.project.tracks.SelectedCount(); });
}

MediaItem* api::GetSelectedMediaItem(ReaProject* project, int index) {
    return Of(project, [=](Host& host) { return HandleOf(At(host.project.tracks.Selected(), index)); });
}

bool api::IsMediaItemSelected(MediaItem* handle) {
    return Of(handle, [](Item& item) { return item.selected; });
}

void api::SetMediaItemSelected(MediaItem* handle, bool selected) {
    if (Item* item = Host::Know(handle)) Host::Current().project.tracks.Select(*item, selected);
}

void api::SelectAllMediaItems(ReaProject* project, bool selected) {
    if (Host* host = Host::Know(project)) host->project.tracks.SelectAll(selected);
}

int api::CountTrackMediaItems(MediaTrack* handle) {
    return Of(handle, [](Track& track) { return static_cast<int>(track.items.size()); });
}

MediaItem* api::GetTrackMediaItem(MediaTrack* handle, int index) {
    return Of(handle, [=](Track& track) { return HandleOf(At(track.items, index)); });
}

MediaTrack* api::GetMediaItem_Track(MediaItem* handle) {
    return Of(handle, [](Item& item) { return Host::Handle(*item.track); });
}

bool api::SetMediaItemPosition(MediaItem* handle, double seconds, bool) {
    Host& host = Host::Current();
    Item* item = host.Know(handle);
    if (item) host.project.tracks.Reposition(*item, seconds, host.preferences.sortsAtOnce);
    return item;
}

MediaItem* api::SplitMediaItem(MediaItem* handle, double seconds) {
    return Of(handle, [seconds, &host = Host::Current()](Item& item) {
        return HandleOf(Split(host.project, item, seconds, host.preferences.splitCrossfade));
    });
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
    Item* item = Host::Know(itemHandle);
    Track* track = Host::Know(trackHandle);
    if (track && item) Host::Current().project.tracks.MoveTo(*item, *track);
    return track && item;
}

int api::CountTakes(MediaItem* handle) {
    return Of(handle, [](Item& item) { return static_cast<int>(item.takes.size()); });
}

MediaItem_Take* api::GetTake(MediaItem* handle, int index) {
    return Of(handle, [=](Item& item) { return HandleOf(At(item.takes, index)); });
}

MediaItem_Take* api::GetActiveTake(MediaItem* handle) {
    return Of(handle, [](Item& item) { return HandleOf(item.Active()); });
}

void api::SetActiveTake(MediaItem_Take* handle) {
    const Take* take = Host::Know(handle);
    if (!take) return;
    Item& item = *take->item;
    for (size_t i = 0; i < item.takes.size(); ++i)
        if (&*item.takes[i] == take) item.activeTake = static_cast<int>(i);
}

PCM_source* api::GetMediaItemTake_Source(MediaItem_Take* handle) {
    return Of(handle, [](Take& take) { return take.source ? Host::SourceHandle(take) : nullptr; });
}

// A take's source may have been taken away after its handle was given.
double api::GetMediaSourceLength(PCM_source* handle, bool* lengthIsInBeats) {
    const Take* take = Host::Know(handle);
    const Source* source = take ? take->source.get() : nullptr;
    if (lengthIsInBeats) *lengthIsInBeats = source && source->IsMidi();
    return source ? source->Length() : 0.0;
}

int api::GetMediaSourceNumChannels(PCM_source* handle) {
    return Of(handle, [](Take& take) { return take.source ? take.source->Channels() : 0; });
}

int api::GetMediaSourceSampleRate(PCM_source* handle) {
    return Of(handle, [](Take& take) { return take.source ? take.source->SampleRate() : 0; });
}

}  // namespace simhost
