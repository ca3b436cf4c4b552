// apps/studio/wave_file.h
// WAV files, read whole through the system's multimedia calls: PCM of 8, 16, 24 or 32 bits, and 32-bit floats.
#pragma once
#include <string>

#include "simhost/source.h"

// Null, with a sentence in *error, when the file cannot be read or is of another kind.
simhost::SourceRef OpenWaveFile(const std::string& path, std::string* error);
