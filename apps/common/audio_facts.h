// apps/common/audio_facts.h
// What a recording's file tells beside the sound.
#pragma once
#include <sndfile.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

struct AudioFacts {
    std::map<int, std::string> tags;  // by libsndfile's SF_STR_ numbers
    std::vector<int> channelMap;      // libsndfile's SF_CHANNEL_MAP_ for each channel; empty: not told
    double promisedShare = 1;  // of what the file holds; above 1 where the header counts more, and not as pipes do
};

AudioFacts FactsOf(SNDFILE* file, const SF_INFO& info, const std::string& path);
