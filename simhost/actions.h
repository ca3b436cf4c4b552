// simhost/actions.h
// The numbered actions. One that edited something makes an undo point of its own, or belongs to the block that is open.
#pragma once
#include "simhost/host.h"

namespace simhost {

struct Action {
    int number;
    const char* name;                    // also the undo point's title
    void (*run)(Host& host);             // null: only recorded, unless there is an edit
    bool (*edit)(Host& host) = nullptr;  // false: nothing was edited, so there is no undo point
    bool toggles = false;                // flips its toggle state before it runs
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
std::vector<Item*> SelectedItems(Host&);  // without the locked ones
bool RemoveByFocus(Host&);
bool TrimLeftEdge(Host&);
bool TrimRightEdge(Host&);
bool DuplicateItems(Host&);
bool DuplicateTracks(Host&);
bool DeleteActiveTake(Host&);
bool ToggleVolumeEnvelope(Host&);

// glue.cpp
bool Glue(Host&);
bool RenderTakes(Host&, int channels);  // 1 or 2

}  // namespace simhost
