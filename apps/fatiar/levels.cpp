#include "apps/fatiar/levels.h"

#include <algorithm>
#include <cmath>
#include <vector>

static double PeakOf(const double* samples, size_t count) {
    double peak = 0;
    for (size_t i = 0; i < count; ++i) peak = std::max(peak, std::fabs(samples[i]));
    return peak;
}

// Hands over the peak of each window of 10 ms while `take` wants more.
template <class Take>
static void ForEachWindow(simhost::Source& source, Take take) {
    const int frames = std::max(1, source.SampleRate() / 100), atOnce = 64 * frames;
    const size_t channels = source.Channels();
    std::vector<double> block(atOnce * channels);
    for (int64_t p = 0; p < source.Frames(); p += frames) {
        if (p % atOnce == 0 && !source.Read(p, atOnce, block.data())) return;
        if (!take(PeakOf(&block[p % atOnce * channels], frames * channels))) return;
    }
}

Levels Hear(simhost::Source& source) {
    std::vector<float> peaks;
    double loudest = 0;
    ForEachWindow(source, [&](double peak) {
        peaks.push_back(static_cast<float>(peak));
        loudest = std::max(loudest, peak);
        return true;
    });
    if (peaks.empty()) return {};
    const auto tenth = peaks.begin() + static_cast<ptrdiff_t>(peaks.size() / 10);
    std::nth_element(peaks.begin(), tenth, peaks.end());
    return {*tenth, loudest};
}

bool Reaches(simhost::Source& source, double level) {
    bool reached = false;
    ForEachWindow(source, [&](double peak) { return !(reached = peak >= level); });
    return reached;
}
