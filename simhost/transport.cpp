// Playing and recording. Time passes only in Elapse.
#include <cmath>

#include "simhost/actions.h"
#include "simhost/calls.h"

namespace simhost {

static constexpr int Playing = 1, Paused = 2, Recording = 4;

int api::GetPlayState() {
    return Host::Current().playState;
}

void Host::Elapse(double seconds) {
    if (playState & Playing) playPosition += seconds;
}

// Each armed track gets what was recorded, unless the user is asked and says no.
static void KeepRecording(Host& host) {
    const double length = host.playPosition - host.recordStart;
    if (!(length > 0)) return;
    if (host.ConfigInt("promptendrec") != 0 && api::ShowMessageBox("Save recorded media?", "Recording", 4) != 6) return;
    host.BeginBlock();
    for (int i = 0; i < host.project.tracks.Count(); ++i) {
        Track& track = *host.project.tracks.At(i);
        if (track.armed == 0) continue;
        SourceRef source = host.recordingSource;
        if (!source) source = Sine(48000, 2, std::llround(length * 48000), 440, 0.25);
        host.project.tracks.Add(track, MakeItem("rec", host.recordStart, host.playPosition, source));
    }
    host.EndBlock("Recorded media");
}

void Stop(Host& host) {
    const bool recorded = host.playState & Recording;
    host.playState = 0;
    if (recorded) KeepRecording(host);
}

static void Start(Host& host, int state) {
    host.playState = state;
    host.playPosition = host.recordStart = host.project.cursor;
}

void Play(Host& host) {
    if (host.playState & Paused)
        host.playState = (host.playState & ~Paused) | Playing;
    else if (!(host.playState & Playing))
        Start(host, Playing);
}

void Record(Host& host) {
    if (host.playState & Recording)
        Stop(host);
    else
        Start(host, Playing | Recording);
}

void PlayPause(Host& host) {
    if (host.playState & Playing)
        host.playState = (host.playState & ~Playing) | Paused;
    else
        Play(host);
}

void PlayStop(Host& host) {
    if (host.playState & Playing)
        Stop(host);
    else
        Play(host);
}

void PlayStopMovingCursor(Host& host) {
    const bool stops = host.playState & Playing;
    PlayStop(host);
    if (stops) host.project.cursor = host.playPosition;
}

}  // namespace simhost
