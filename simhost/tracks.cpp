// Tracks: walking, selecting, adding, reordering.
#include "simhost/actions.h"
#include "simhost/calls.h"

namespace simhost {

int api::CountTracks(ReaProject* project) {
    return Of(project, [](Host& host) { return host.project.tracks.Count(); });
}

MediaTrack* api::GetTrack(ReaProject* project, int index) {
    return Of(project, [=](Host& host) { return HandleOf(host.project.tracks.At(index)); });
}

int api::CountSelectedTracks(ReaProject* project) {
    return Of(project, [](Host& host) { return static_cast<int>(SelectedTracks(host).size()); });
}

MediaTrack* api::GetSelectedTrack(ReaProject* project, int index) {
    return Of(project, [=](Host& host) {
        const std::vector<Track*> tracks = SelectedTracks(host);
        return HandleOf(At(tracks, index));
    });
}

void api::SetTrackSelected(MediaTrack* handle, bool selected) {
    if (Track* track = Host::Know(handle)) track->selected = selected;
}

void api::SetOnlyTrackSelected(MediaTrack* handle) {
    TrackList& tracks = Host::Current().project.tracks;
    const Track* only = Host::Know(handle);
    for (int i = 0; only && i < tracks.Count(); ++i) tracks.At(i)->selected = tracks.At(i) == only;
}

void api::InsertTrackAtIndex(int index, bool) { Host::Current().project.tracks.Insert(index, Track()); }

bool api::ReorderSelectedTracks(int beforeIndex, int) {
    Host& host = Host::Current();
    if (SelectedTracks(host).empty()) return false;
    host.project.tracks.MoveSelectedBefore(beforeIndex);
    return true;
}

}  // namespace simhost
