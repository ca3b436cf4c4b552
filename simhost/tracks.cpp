// Tracks: walking, selecting, adding, reordering.
#include "simhost/calls.h"

namespace simhost {

template <class Test>
static Track* NthTrack(TrackList& tracks, int index, Test test) {
    for (int i = 0; i < tracks.Count(); ++i)
        if (Track* track = tracks.At(i); test(*track) && index-- == 0) return track;
    return nullptr;
}

static bool Selected(const Track& track) { return track.selected; }

int api::CountTracks(ReaProject* project) {
    Host& host = Host::Current();
    return host.Know(project) ? host.project.tracks.Count() : 0;
}

MediaTrack* api::GetTrack(ReaProject* project, int index) {
    Host& host = Host::Current();
    Track* track = host.Know(project) ? host.project.tracks.At(index) : nullptr;
    return track ? Host::Handle(*track) : nullptr;
}

int api::CountSelectedTracks(ReaProject* project) {
    Host& host = Host::Current();
    int count = 0;
    if (host.Know(project))
        for (const Box<Track>& track : host.project.tracks.All()) count += track->selected;
    return count;
}

MediaTrack* api::GetSelectedTrack(ReaProject* project, int index) {
    Host& host = Host::Current();
    Track* track = host.Know(project) ? NthTrack(host.project.tracks, index, Selected) : nullptr;
    return track ? Host::Handle(*track) : nullptr;
}

void api::SetTrackSelected(MediaTrack* handle, bool selected) {
    if (Track* track = Host::Current().Know(handle)) track->selected = selected;
}

void api::SetOnlyTrackSelected(MediaTrack* handle) {
    Host& host = Host::Current();
    const Track* only = host.Know(handle);
    if (!only) return;
    for (int i = 0; i < host.project.tracks.Count(); ++i) {
        Track& track = *host.project.tracks.At(i);
        track.selected = &track == only;
    }
}

void api::InsertTrackAtIndex(int index, bool) { Host::Current().project.tracks.Insert(index, Track()); }

bool api::ReorderSelectedTracks(int beforeIndex, int) {
    TrackList& tracks = Host::Current().project.tracks;
    if (!NthTrack(tracks, 0, Selected)) return false;
    tracks.MoveSelectedBefore(beforeIndex);
    return true;
}

}  // namespace simhost
