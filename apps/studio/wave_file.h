// apps/studio/wave_file.h
// WAV files: read whole through the system's multimedia calls, PCM of 8, 16, 24 or 32 bits, and 32-bit floats; written
// with 24 bits.
#pragma once
#include <string>

#include "simhost/mixdown.h"

// Null, with a sentence in *error, when the file cannot be read or is of another kind.
simhost::SourceRef OpenWaveFile(const std::string& path, std::string* error);

// The mix of the project's tracks. The file has its name only when it is whole, and replaces any that was there. False,
// with a sentence in *error, when it cannot be written.
bool WriteWaveFile(const std::string& path, const simhost::Project& project, const simhost::MixRange& range,
                   std::string* error);
