// tests/apps/workshop.h
// A folder that lasts as long as one test: recordings are made there, and the built programs run as users run them.
#pragma once
#include <sndfile.h>

#include <filesystem>
#include <string>
#include <vector>

struct Outcome {
    int status;  // above 128 when a signal ended it
    std::string out, err;
};

class Workshop {
  public:
    Workshop();
    ~Workshop();

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }
    // The names in the folder and below, sorted, with a blank behind each.
    std::string Listing() const;

    // Interleaved samples into a file of libsndfile's format; returns its path. No file when it refuses the format.
    std::string Write(const std::string& name, int format, int rate, int channels, const std::vector<double>& samples);
    static std::vector<double> Noise(int count);  // the same each time, no two neighbours alike, never below 0.2

    // A line of the shell, run in the folder with the built programs at hand.
    Outcome Run(const std::string& line) const;

    std::string Text(const std::string& name) const;  // the file's bytes
    // Interleaved, all that can be read, whatever the header promises; empty when it is no recording.
    std::vector<double> Samples(const std::string& name, SF_INFO* info) const;

  private:
    std::filesystem::path folder_;
};
