// apps/fatiar/inputs.h
// The recordings that the command line names.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "apps/common/audio_file.h"
#include "apps/fatiar/listener.h"
#include "apps/fatiar/options.h"
#include "apps/fatiar/spool.h"

struct Input {
    std::string path;  // "-": standard input
    std::string name;  // of its outputs: the file's, without folder and ending
};

struct Inputs {
    std::vector<Input> found;
    std::vector<std::string> failures;  // a sentence for each folder that gave nothing
};
Inputs FindInputs(const Options& options);

struct Recording {
    Input input;
    std::string label;      // as the user knows it
    std::string reference;  // the file that lists refer to
    AudioFacts facts;
    std::shared_ptr<Spool> spool;  // what came through standard input; else null
    std::shared_ptr<Listener> source;
};
Recording OpenRecording(const Input& input, const Options& options, Progress* progress);  // throws
