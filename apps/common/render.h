// apps/common/render.h
// The render actions for real, as WAV and MP3 files.
#pragma once
#include "simhost/host.h"

// From now on the two actions that render write what FilesToRender says. What cannot be written is a violation.
void RenderToFiles(simhost::Host& host);
