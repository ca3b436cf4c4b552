// tests/apps/workshop.h
// Tests of the built programs. Each runs them as users do, in a folder of its own, on recordings made there.
#pragma once
#include <gtest/gtest.h>
#include <sndfile.h>

#include <filesystem>
#include <string>
#include <vector>

constexpr int Wav16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16, Flac16 = SF_FORMAT_FLAC | SF_FORMAT_PCM_16;

struct Outcome {
    int status;  // above 128 when a signal ended it
    std::string out, err;
};

class Workshop : public testing::Test {
  protected:
    Workshop();
    ~Workshop() override;

    std::string Path(const std::string& name) const { return (folder_ / "here" / name).string(); }
    // The names in the folder and below, sorted, with a blank behind each.
    std::string Listing() const;

    // Interleaved samples into a file of libsndfile's format; returns its path. No file when it refuses the format.
    std::string Write(const std::string& name, int format, int rate, int channels, const std::vector<double>& samples);
    static std::vector<double> Noise(int count);  // the same each time, no two neighbours alike, never below 0.2

    // A line of the shell, run in the folder with the built programs at hand.
    Outcome Run(const std::string& line) const;
    Outcome Good(const std::string& line) const;  // one that ends well and complains of nothing

    std::string Text(const std::string& name) const;  // the file's bytes
    // Interleaved, all that can be read, whatever the header promises; empty when it is no recording.
    std::vector<double> Samples(const std::string& name);

    SF_INFO info{};  // of the last recording that was read

  private:
    std::filesystem::path folder_;
};

struct Sound {
    double start, length;  // seconds, whole windows of 10 ms
    double level = 1;
};

class Fatiar : public Workshop {
  protected:
    // Loud, no sample like its neighbours, where there is sound; faint, at -49 dB, elsewhere.
    static std::vector<double> Recording(int rate, double seconds, const std::vector<Sound>& sounds, int channels = 2);

    // What --csv tells: number, place in the result, length and place in the recording, of each piece.
    std::string Pieces(const std::string& line, const std::string& recording) const;
};
