// apps/common/recording.h
// Recordings on the stand-in host's tracks.
#pragma once
#include <string>

#include "simhost/host.h"

// A track of its own behind the last, with the recording as one selected item. False, with a sentence in *error, when
// the file is no recording.
bool PutOnTrack(const std::string& path, simhost::Host& host, std::string* error);
