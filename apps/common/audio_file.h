// apps/common/audio_file.h
// Recordings on disk as sources. They are read a block at a time: an hour costs no more memory than a second.
#pragma once
#include <sndfile.h>

#include <map>
#include <string>
#include <vector>

#include "simhost/source.h"

// What a recording's file tells beside the sound.
struct AudioFacts {
    std::map<int, std::string> tags;  // by libsndfile's SF_STR_ numbers
    std::vector<int> channelMap;      // libsndfile's SF_CHANNEL_MAP_ for each channel; empty: not told
    double promisedShare = 1;  // of what the file holds; above 1 where the header counts more, and not as pipes do
};

AudioFacts FactsOf(SNDFILE* file, const SF_INFO& info, const std::string& path);  // audio_facts.cpp

// Any format that libsndfile reads; samples are exactly those of sf_readf_double. Null when the file is no recording,
// with a sentence for the user in *error. Where libsndfile cannot jump, the first jump unpacks the file into a nameless
// temporary one. So does a header that promises frames that are not there: the source is as long as what can be read.
simhost::SourceRef OpenAudioFile(const std::string& path, std::string* error, AudioFacts* facts = nullptr);
