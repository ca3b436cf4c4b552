#include "apps/fatiar/doubts.h"

#include <algorithm>
#include <cmath>

#include "apps/fatiar/text.h"

namespace {

// How loud a recording is. This reads it once more, and so is asked only where a cut is doubtful.
struct Levels {
    double background = 0;  // the tenth percentile of the peaks of 10 ms windows
    double loudest = 0;
};

double PeakOf(const double* samples, size_t count) {
    double peak = 0;
    for (size_t i = 0; i < count; ++i) peak = std::max(peak, std::fabs(samples[i]));
    return peak;
}

// Hands over the peak of each window of 10 ms while `take` wants more. False when the recording cannot be read on.
template <class Take>
bool ForEachWindow(simhost::Source& source, Take take) {
    const int frames = std::max(1, source.SampleRate() / 100), atOnce = 64 * frames;
    const size_t channels = source.Channels();
    std::vector<double> block(atOnce * channels);
    for (int64_t p = 0; p < source.Frames(); p += frames) {
        if (p % atOnce == 0 && !source.Read(p, atOnce, block.data())) return false;
        if (!take(PeakOf(&block[p % atOnce * channels], frames * channels))) break;
    }
    return true;
}

// As far as it can be read.
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

// Whether no sample reaches the level; nothing is read behind the first that does. What cannot be read is not silent.
bool StaysBelow(simhost::Source& source, double level) {
    bool reached = false;
    return ForEachWindow(source, [&](double peak) { return !(reached = peak >= level); }) && !reached;
}

constexpr double MuchRemoved = 0.8;
constexpr int AboveBackground = 4;  // dB, at which the advice puts the threshold
constexpr int LowestThreshold = -200;

double Decibels(double level) { return std::clamp<double>(20 * std::log10(level), LowestThreshold, -LowestThreshold); }

// "o fundo fica perto de -48 dB; tente --piso -44", or `otherwise` where that is on the wrong side of what was used.
std::string Advice(const Levels& levels, double threshold, bool lower, const std::string& otherwise) {
    const auto background = static_cast<int>(std::lround(Decibels(levels.background)));
    const int better = std::clamp(background + AboveBackground, LowestThreshold, 0);
    const std::string about = levels.background > 0 ? Formatted("o fundo fica perto de %d dB; ", background) : "";
    const bool helps =
        levels.background > 0 && better < Decibels(levels.loudest) && (lower ? better < threshold : better > threshold);
    return about + (helps ? Formatted("tente --piso %d", better) : otherwise);
}

}  // namespace

bool Silent(Listener& recording, const Options& options) {
    return recording.HeardToItsEnd() && StaysBelow(recording, std::pow(10.0, options.thresholdDb / 20.0));
}

std::string DoubtSilence(Listener& recording, const Options& options) {
    const Levels levels = Hear(recording);
    if (levels.loudest == 0) return "so ha silencio, do comeco ao fim; confira o microfone ou o canal gravado";
    return Formatted("so ha silencio: nada chega a %g dB; ", options.thresholdDb) +
           Advice(levels, options.thresholdDb, true,
                  Formatted("tente --piso %.0f", std::floor(Decibels(levels.loudest)) - 1));
}

std::string DoubtHeader(double promisedSeconds, double seconds) {
    return Formatted("o cabecalho promete %.3f s, mas o arquivo so tem %.3f s; tente copiar de novo", promisedSeconds,
                     seconds);
}

std::vector<std::string> DoubtCut(const Cut& cut, Listener& recording, const Options& options) {
    const double removed = 1 - static_cast<double>(cut.Kept()) / static_cast<double>(cut.recorded);
    const double threshold = options.thresholdDb, lower = std::max<double>(threshold - 6, LowestThreshold);
    if (removed > MuchRemoved)
        return {Formatted("saiu quase tudo (%.1f%%); ", 100 * removed) +
                Advice(Hear(recording), threshold, true, Formatted("tente --piso %g", lower))};
    if (removed > 0) return {};
    if (!recording.HeardToItsEnd())
        return {"nada foi cortado: a gravacao e curta ou longa demais; tente junta-la ou parti-la"};
    const bool grown = options.beforeMs + options.afterMs > 0;
    return {"nada foi cortado; " + Advice(Hear(recording), threshold, false,
                                          grown ? "tente menos --margem ou --pausa"
                                                : Formatted("tente um --bloco menor que %d", options.blockMs))};
}
