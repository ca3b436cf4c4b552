// tests/apps/fatiar.h
// The real program, run on recordings made here; what it gives is compared with how they were made.
#pragma once
#include <gtest/gtest.h>

#include "tests/apps/workshop.h"

struct Sound {
    double start, length;  // seconds, whole windows of 10 ms
    double level = 1;
};

class Fatiar : public testing::Test {
  protected:
    static constexpr int Wav16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16;

    // Loud, no sample like its neighbours, where there is sound; faint, at -49 dB, elsewhere.
    static std::vector<double> Recording(int rate, double seconds, const std::vector<Sound>& sounds, int channels = 2);

    Outcome Good(const std::string& line);  // a line of the shell that ends well and complains of nothing
    // What --csv tells: number, place in the result, length and place in the recording, of each piece.
    std::string Pieces(const std::string& line, const std::string& recording);

    Workshop workshop;
    SF_INFO info;
};
