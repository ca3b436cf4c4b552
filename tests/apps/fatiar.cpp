#include "tests/apps/fatiar.h"

#include <sstream>

std::vector<double> Fatiar::Recording(int rate, double seconds, const std::vector<Sound>& sounds, int channels) {
    std::vector<double> samples = Workshop::Noise(static_cast<int>(seconds * rate + 0.5) * channels);
    auto sound = sounds.begin();
    for (size_t i = 0; i < samples.size(); ++i) {
        const double t = static_cast<double>(i / channels) / rate;
        while (sound != sounds.end() && t >= sound->start + sound->length - 1e-9) ++sound;
        samples[i] *= sound != sounds.end() && t >= sound->start - 1e-9 ? sound->level : 0.005;
    }
    return samples;
}

Outcome Fatiar::Good(const std::string& line) {
    const Outcome run = workshop.Run(line);
    EXPECT_EQ(run.status, 0) << line << '\n' << run.err;
    EXPECT_EQ(run.err, "") << line;
    return run;
}

std::string Fatiar::Pieces(const std::string& line, const std::string& recording) {
    std::string pieces, row;
    for (std::istringstream rows(Good("fatiar --csv " + line).out); std::getline(rows, row);)
        if (row.starts_with(recording + ',')) pieces += row.substr(recording.size() + 1) + ' ';
    return pieces;
}
