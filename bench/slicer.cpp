// The silence analysis of a minute of stereo at 48 kHz, beside what it could at best cost: reading alone, the fastest
// search for each window's peak, and the plain loop that looks at every frame.
#include <emmintrin.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <new>
#include <numbers>
#include <random>

#include "bench/ratios.h"
#include "slicer/analysis.h"
#include "tests/slicer/plain_analysis.h"

namespace {

constexpr int Rate = 48000;
constexpr int Channels = 2;
constexpr int Chunk = 65536;
constexpr int Window = Rate / 100;
constexpr int Minute = 60 * Rate;
constexpr double BlockSeconds = 0.055;
const double Threshold = std::pow(10.0, -37.0 / 20.0);

// Noise 60 dB down: never sounds, and every sample has to be looked at.
std::vector<double> Silence() {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> noise(-0.001, 0.001);
    std::vector<double> samples(static_cast<size_t>(Minute) * Channels);
    for (double& sample : samples) sample = noise(random);
    return samples;
}

// The largest absolute value of n samples, n a multiple of 16. maxpd gives its second operand when one of them is not a
// number, so the running value stands second.
double Peak(const double* samples, int n) {
    const __m128d sign = _mm_set1_pd(-0.0);
    const auto larger = [&](const double* pair, __m128d peak) {
        return _mm_max_pd(_mm_andnot_pd(sign, _mm_loadu_pd(pair)), peak);
    };
    __m128d a = _mm_setzero_pd(), b = a, c = a, d = a;
    for (int i = 0; i < n; i += 16) {
        a = larger(samples + i + 8, larger(samples + i, a));
        b = larger(samples + i + 10, larger(samples + i + 2, b));
        c = larger(samples + i + 12, larger(samples + i + 4, c));
        d = larger(samples + i + 14, larger(samples + i + 6, d));
    }
    a = _mm_max_pd(_mm_max_pd(a, b), _mm_max_pd(c, d));
    return std::max(_mm_cvtsd_f64(a), _mm_cvtsd_f64(_mm_unpackhi_pd(a, a)));
}

double SilentShare(const double* samples, int frames) {
    int windows = 0, silent = 0;
    for (int i = 0; i + Window <= frames; i += Window, ++windows)
        silent += Peak(samples + static_cast<size_t>(i) * Channels, Window * Channels) < Threshold;
    return 100.0 * silent / windows;
}

// Words of a few voiced syllables over that noise, with a short breath between words and a longer one between phrases.
std::vector<double> Speech() {
    std::vector<double> samples = Silence();
    std::mt19937 random(2);
    const auto between = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    double time = 0.1;
    for (int syllable = 0; time < 59.0; ++syllable) {
        const double length = between(0.12, 0.28), level = between(0.08, 0.5), pitch = between(90.0, 220.0);
        const int first = static_cast<int>(time * Rate), count = static_cast<int>(length * Rate);
        for (int i = 0; i < count; ++i) {
            const double phase = 2.0 * std::numbers::pi * pitch * i / Rate;
            const double shape = std::sqrt(std::sin(std::numbers::pi * (i + 0.5) / count));
            const double value =
                level * shape * (std::sin(phase) + 0.5 * std::sin(3 * phase) + 0.3 * std::sin(7 * phase));
            for (int c = 0; c < Channels; ++c) samples[static_cast<size_t>(first + i) * Channels + c] += value / 1.8;
        }
        time += length;
        if (syllable % 4 == 3) time += between(0.03, 0.08);
        if (syllable % 16 == 15) time += between(0.2, 0.5);
    }
    return samples;
}

// What the slots read: a minute from memory. A resident item is ten minutes that repeat its first chunk. The accessor
// copies that once into the reader's buffer, so that only the work on a cached chunk is timed.
struct Item {
    const double* samples;
    bool resident;
    int Frames() const { return resident ? 10 * Minute : Minute; }
};
Item item;

int Read(AudioAccessor*, int, int, double start, int frames, double* buffer) {
    const size_t first = static_cast<size_t>(std::llround(start * Rate));
    if (!item.resident || first == 0)
        std::memcpy(buffer, item.samples + first * Channels, static_cast<size_t>(frames) * Channels * sizeof(double));
    return 1;
}

void UseItem(const std::vector<double>& samples, bool resident) {
    item = {samples.data(), resident};
    host::CreateTakeAudioAccessor = [](MediaItem_Take*) { return reinterpret_cast<AudioAccessor*>(&item); };
    host::GetMediaItemTake_Source = [](MediaItem_Take*) { return reinterpret_cast<PCM_source*>(&item); };
    host::GetMediaSourceSampleRate = [](PCM_source*) { return Rate; };
    host::GetMediaSourceNumChannels = [](PCM_source*) { return Channels; };
    host::GetAudioAccessorStartTime = [](AudioAccessor*) { return 0.0; };
    host::GetAudioAccessorSamples = Read;
    host::DestroyAudioAccessor = [](AudioAccessor*) {};
}

// Reads the item as the analysis does, with a fresh buffer, and hands each chunk to `work` (buffer, first frame,
// frames).
template <class Work>
void ReadInChunks(Work work) {
    constexpr std::align_val_t line{64};
    double* const buffer = new (line) double[size_t{Chunk} * Channels];
    const int frames = item.Frames();
    for (int p = 0; p < frames; p += Chunk) {
        const int n = std::min(Chunk, frames - p);
        host::GetAudioAccessorSamples(nullptr, Rate, Channels, p / static_cast<double>(Rate), n, buffer);
        work(buffer, p, n);
    }
    ::operator delete[](buffer, line);
}

void Copy() {
    ReadInChunks([](const double* buffer, int, int) { benchmark::DoNotOptimize(buffer); });
}

void WindowPeaks() {
    ReadInChunks([](const double* buffer, int, int n) {
        for (int i = 0; i + Window <= n; i += Window)
            benchmark::DoNotOptimize(Peak(buffer + static_cast<size_t>(i) * Channels, Window * Channels));
    });
}

void PlainLoop() {
    PlainAnalysis plain(Threshold, Rate, Channels, BlockSeconds);
    ReadInChunks([&](const double* buffer, int p, int n) {
        for (int i = 0; i < n; ++i) plain.Frame(buffer + static_cast<size_t>(i) * Channels, p + i);
    });
    benchmark::DoNotOptimize(plain.Silence(item.Frames(), Rate));
}

void Analysis() {
    benchmark::DoNotOptimize(AnalisarItem(nullptr, item.Frames() / static_cast<double>(Rate), Threshold, BlockSeconds));
}

void Run(benchmark::State& state, void (*work)(), const std::vector<double>& samples, bool resident) {
    UseItem(samples, resident);
    for (auto _ : state) work();
    const double frames = static_cast<double>(state.iterations()) * item.Frames();
    state.counters["samples/s"] = benchmark::Counter(frames * Channels, benchmark::Counter::kIsRate);
    state.counters["times_real_time"] = benchmark::Counter(frames / Rate, benchmark::Counter::kIsRate);
}

}  // namespace

int main(int argc, char** argv) {
    static const std::vector<double> silence = Silence(), speech = Speech();
    const struct {
        const char* name;
        void (*work)();
    } loops[] = {{"analysis", Analysis}, {"copy", Copy}, {"window_peaks", WindowPeaks}, {"plain_loop", PlainLoop}};
    for (const bool resident : {true, false})
        for (const std::vector<double>* samples : {&silence, &speech})
            for (const auto& [loop, work] : loops) {
                const std::string where = resident ? "cached_" : "memory_";
                const std::string name = where + (samples == &silence ? "silence_" : "speech_") + loop;
                benchmark::RegisterBenchmark(name.c_str(), Run, work, *samples, resident)
                    ->Unit(benchmark::kMillisecond);
            }
    std::printf("Silent windows of the speech: %.1f %% of the minute, %.1f %% of its first chunk\n",
                SilentShare(speech.data(), Minute), SilentShare(speech.data(), Chunk));
    return RunWithRatios(
        argc, argv,
        {{"cached, silence: plain loop / analysis", "cached_silence_plain_loop", "cached_silence_analysis", 6},
         {"cached, speech: plain loop / analysis", "cached_speech_plain_loop", "cached_speech_analysis", 50},
         {"cached, silence: window peaks / analysis", "cached_silence_window_peaks", "cached_silence_analysis", 0},
         {"memory, silence: analysis / copy alone", "memory_silence_analysis", "memory_silence_copy", 1.25, true},
         {"memory, speech: analysis / copy alone", "memory_speech_analysis", "memory_speech_copy", 1.08, true}});
}
