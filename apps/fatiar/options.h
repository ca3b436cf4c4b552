// apps/fatiar/options.h
// What the command line asks for. Nothing here touches a file.
#pragma once
#include <optional>
#include <span>
#include <string>
#include <vector>

struct FrameRate {  // of a video: frames in so many seconds
    int frames = 25, seconds = 1;
};

struct WantedList {
    std::string format;  // one of lists.h
    std::string path;    // empty: beside the audio, under its name
};

struct Options {
    std::vector<std::string> inputs;  // files, folders, "-"; at least one, unless `help` or `version` is set
    std::string output;  // -o: a folder, "-", or one audio file when it ends in .wav or .flac; empty: only analyse
    std::string format;  // "wav", "flac", or empty: by ending
    double thresholdDb = -37.0;  // -200 to 0
    int blockMs = 55;            // 1 to 600000
    bool closeGaps = true;
    double beforeMs = 0, afterMs = 0;  // of silence kept at each side of a piece
    std::optional<double> pauseMs;     // what is left of each pause; both of the above are then half of it
    bool margin = false;               // --margem was given
    bool together = false;             // --juntas
    bool csv = false, json = false;
    bool pictures = true;
    bool overwrite = false;
    std::vector<WantedList> lists;
    std::optional<FrameRate> frameRate;
    std::string origin;  // --origem: what lists refer to; empty: the input
    bool help = false, version = false;

    bool ToStandardOutput() const { return output == "-"; }
};

extern const char HelpText[];

Options ParseOptions(std::span<const char* const> arguments);  // throws a sentence for the user
