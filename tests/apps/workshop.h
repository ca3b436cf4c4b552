// tests/apps/workshop.h
// A folder that lasts as long as one test, and the recordings that it makes there.
#pragma once
#include <string>
#include <vector>

class Workshop {
  public:
    Workshop();
    ~Workshop();

    std::string Path(const std::string& name) const { return folder_ + "/" + name; }
    // The names in the folder and below, sorted, with a blank behind each.
    std::string Listing() const;

    // Interleaved samples into a file of libsndfile's format; returns its path. No file when it refuses the format.
    std::string Write(const std::string& name, int format, int rate, int channels, const std::vector<double>& samples);
    static std::vector<double> Noise(int count);  // the same each time, no two neighbours alike, never below 0.2

  private:
    std::string folder_;
};
