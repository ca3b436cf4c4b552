// apps/studio/render.h
// What studio answers to the panel's render buttons: it writes WAV files.
#pragma once
#include "simhost/host.h"

// Renders go into a folder beside the recording, under its name and at its rate, unless the project names a place.
void RenderBeside(simhost::Project& project, const std::string& recording, const simhost::Source& source);
// From now on the host's render actions write files, ask for the settings, and show the folder. `working` is called now
// and then while they write.
void AnswerRenderActions(simhost::Host& host, const std::function<void()>& working);
// Opens the folder in the system's file manager. False: there is none at that path.
bool ShowFolder(HWND owner, const std::string& folder);
