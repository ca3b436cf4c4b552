// apps/common/render.h
// What the render actions are to write, by the project's settings. Writing is up to whoever answers the actions.
#pragma once
#include <string>
#include <vector>

#include "simhost/host.h"
#include "simhost/mixdown.h"

struct RenderedFile {
    std::string path;  // its ending is its kind: .wav or .mp3
    simhost::MixRange range;
};

// RENDER_FILE is the folder, RENDER_PATTERN the name with $region in it, RENDER_BOUNDSFLAG the range. RENDER_FORMAT and
// RENDER_FORMAT2 are the kinds, RENDER_SRATE and RENDER_CHANNELS their shape. What a file name cannot hold becomes "_";
// no two files have the same name.
std::vector<RenderedFile> FilesToRender(const simhost::Project& project);

// From now on the two actions that render write those files; one that cannot be written is a violation. Not on Windows.
void RenderToFiles(simhost::Host& host);
