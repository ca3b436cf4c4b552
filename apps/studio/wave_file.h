// apps/studio/wave_file.h
// WAV files, through the system's multimedia calls. PCM of 8, 16, 24 or 32 bits and 32-bit floats are read whole;
// 24 bits are written.
#pragma once
#include <string>

#include "simhost/mixdown.h"

// Null, with a sentence in *error, when the file cannot be read or is of another kind.
simhost::SourceRef OpenWaveFile(const std::string& path, std::string* error);

// Writes the mix of the project's tracks. The file gets its name, or replaces the one there, only when it is whole.
// False, with a sentence in *error, when it cannot be written. `working` is called after each block.
bool WriteWaveFile(const std::string& path, const simhost::Project& project, const simhost::MixRange& range,
                   const std::function<void()>& working, std::string* error);
