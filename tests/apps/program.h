// The built programs run as users run them, and what they leave behind read back.
#pragma once
#include <sndfile.h>

#include <string>
#include <vector>

struct Outcome {
    int status;  // above 128 when a signal ended it
    std::string out, err;
};

// `out`: a file for what the program prints, in place of Outcome::out.
Outcome RunProgram(const std::string& name, const std::vector<std::string>& arguments, const char* out = nullptr);

std::string Text(const std::string& path);
// Interleaved, all that can be read, whatever the header promises; empty when it is no recording.
std::vector<double> ReadAll(const std::string& path, SF_INFO* info);
