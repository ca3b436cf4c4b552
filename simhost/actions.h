// simhost/actions.h
// The numbered actions. One that edits is an undo block of its own, or part of the one that is open.
#pragma once
#include "simhost/host.h"

namespace simhost {

struct Action {
    int number;
    const char* name;         // also the undo point's title
    void (*run)(Host& host);  // null: only recorded
    bool edits;
    bool toggles;  // flips its toggle state before it runs
};

const Action* FindAction(int number);  // null when the stand-in does not know it

// transport.cpp
void Play(Host&);
void Stop(Host&);
void Record(Host&);
void PlayPause(Host&);
void PlayStop(Host&);
void PlayStopMovingCursor(Host&);

// edits.cpp; they leave locked items alone
void RemoveByFocus(Host&);
void TrimLeftEdge(Host&);
void TrimRightEdge(Host&);
void DuplicateItems(Host&);
void DuplicateTracks(Host&);
void DeleteActiveTake(Host&);
void ToggleVolumeEnvelope(Host&);

// glue.cpp
void Glue(Host&);
void RenderStereoTake(Host&);
void RenderMonoTake(Host&);

}  // namespace simhost
