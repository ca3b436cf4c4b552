// Playing and recording.
#include <cmath>

#include "simhost/actions.h"
#include "simhost/calls.h"

namespace simhost {

int api::GetPlayState() { return Host::Current().transport.state; }

void Transport::Elapse(double seconds) {
    if (state & Playing) position += seconds;
}

// Each armed track gets what was recorded, unless the user is asked and says no.
static void KeepRecording(Host& host) {
    const double start = host.transport.recordStart, end = host.transport.position;
    if (!(end > start)) return;
    if (host.settings.Number("promptendrec") != 0 && api::ShowMessageBox("Save recorded media?", "Recording", 4) != 6)
        return;
    host.undo.Begin();
    for (int i = 0; i < host.project.tracks.Count(); ++i) {
        Track& track = *host.project.tracks.At(i);
        if (track.armed == 0) continue;
        SourceRef source = host.transport.recorded;
        if (!source) source = Sine(48000, 2, std::llround((end - start) * 48000), 440, 0.25);
        host.project.tracks.Add(track, MakeItem("rec", start, end, source));
    }
    host.undo.End("Recorded media");
}

void Stop(Host& host) {
    const bool recorded = host.transport.state & Transport::Recording;
    host.transport.state = 0;
    if (recorded) KeepRecording(host);
}

static void Start(Host& host, int state) {
    host.transport.state = state;
    host.transport.position = host.transport.recordStart = host.project.cursor;
}

void Play(Host& host) {
    int& state = host.transport.state;
    if (state & Transport::Paused)
        state = (state & ~Transport::Paused) | Transport::Playing;
    else if (!(state & Transport::Playing))
        Start(host, Transport::Playing);
}

void Record(Host& host) {
    host.transport.state& Transport::Recording ? Stop(host) : Start(host, Transport::Playing | Transport::Recording);
}

void PlayPause(Host& host) {
    int& state = host.transport.state;
    if (state & Transport::Playing)
        state = (state & ~Transport::Playing) | Transport::Paused;
    else
        Play(host);
}

void PlayStop(Host& host) { host.transport.state& Transport::Playing ? Stop(host) : Play(host); }

void PlayStopMovingCursor(Host& host) {
    const bool stops = host.transport.state & Transport::Playing;
    PlayStop(host);
    if (stops) host.project.cursor = host.transport.position;
}

}  // namespace simhost
