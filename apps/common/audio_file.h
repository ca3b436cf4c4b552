// apps/common/audio_file.h
// Recordings on disk as sources. A recording is read when it is asked for, a block at a time, so that an hour costs no
// more memory than a second.
#pragma once
#include <string>

#include "apps/common/audio_facts.h"
#include "simhost/source.h"

// Any format that libsndfile reads; samples are exactly those of sf_readf_double. Null when the file is no recording,
// with a sentence for the user in *error. Where libsndfile cannot jump, the first jump unpacks the file into a nameless
// temporary one. So does a header that promises frames that are not there: the source is as long as what can be read.
simhost::SourceRef OpenAudioFile(const std::string& path, std::string* error, AudioFacts* facts = nullptr);
