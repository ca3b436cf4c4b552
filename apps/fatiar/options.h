// apps/fatiar/options.h
// What the command line asks for. Nothing here touches a file.
#pragma once
#include <span>
#include <string>
#include <vector>

struct Options {
    std::vector<std::string> inputs;  // at least one, unless `help` is set
    std::string output;          // -o: a folder, or one audio file when it ends in .wav or .flac; empty: only analyse
    std::string format;          // "wav", "flac", or empty: by ending
    double thresholdDb = -37.0;  // -200 to 0
    int blockMs = 55;            // 1 to 600000
    bool closeGaps = true;
    bool csv = false;
    bool json = false;
    bool help = false;
};

extern const char HelpText[];

Options ParseOptions(std::span<const char* const> arguments);  // throws a sentence for the user

// "wav" or "flac" when the path ends so, in either case; else empty.
std::string AudioEnding(const std::string& path);
