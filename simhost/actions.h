// simhost/actions.h
// What the host's numbered actions do.
#pragma once
#include "simhost/host.h"

namespace simhost {

// transport.cpp
void Play(Host&);
void Stop(Host&);
void Record(Host&);
void PlayPause(Host&);
void PlayStop(Host&);
void PlayStopMovingCursor(Host&);

// edits.cpp; they leave locked items alone
std::vector<Item*> SelectedItems(Host&);  // without the locked ones
std::vector<Track*> SelectedTracks(Host&);
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
