// simhost/native/render.h
// The render actions for real: audio files in the folder and under the names that the project's settings ask for.
#pragma once
#include <string>
#include <vector>

#include "simhost/host.h"

namespace simhost {

// From now on actions 42230 and 41824 write files: RENDER_FILE is the folder, RENDER_PATTERN the name with $region in
// it, RENDER_BOUNDSFLAG the range, RENDER_FORMAT and RENDER_FORMAT2 the kinds (WAV and MP3), RENDER_SRATE and
// RENDER_CHANNELS their shape. What cannot be written is a violation.
void RenderToFiles(Host& host);

}  // namespace simhost
