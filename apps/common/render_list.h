// apps/common/render_list.h
// What the render actions are to write, by the project's settings. Writing is up to whoever answers the actions.
#pragma once
#include <string>
#include <vector>

#include "simhost/mixdown.h"

enum class RenderKind { Wav, Mp3 };

struct RenderedFile {
    std::string path;
    RenderKind kind;
    simhost::MixRange range;
};

// RENDER_FILE is the folder, RENDER_PATTERN the name with $region in it, RENDER_BOUNDSFLAG the range, RENDER_FORMAT and
// RENDER_FORMAT2 the kinds, RENDER_SRATE and RENDER_CHANNELS their shape. What a file name cannot hold becomes "_"; no
// two files have the same name.
std::vector<RenderedFile> FilesToRender(const simhost::Project& project);
