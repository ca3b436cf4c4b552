#include "simhost/source.h"

#include <algorithm>

namespace simhost {

bool Source::Read(int64_t first, int frames, double* interleaved) {
    const int channels = Channels();
    const int64_t begin = std::clamp<int64_t>(first, 0, Frames());
    const int64_t end = std::clamp<int64_t>(first + frames, begin, Frames());
    double* const from = interleaved + (begin - first) * channels;
    if (begin >= end) {
        std::fill_n(interleaved, static_cast<int64_t>(frames) * channels, 0.0);
        return true;
    }
    double* const to = interleaved + (end - first) * channels;
    std::fill(interleaved, from, 0.0);
    std::fill(to, interleaved + static_cast<int64_t>(frames) * channels, 0.0);
    return ReadInside(begin, static_cast<int>(end - begin), from);
}

// sin(2 pi x / 2^32) from a full turn in 32 bits: folded to a quarter turn, then a polynomial with plain products.
static double SineOfTurn(uint32_t turn) {
    const bool lower = turn >> 31;
    uint32_t half = turn & 0x7FFFFFFF;
    if (half > 0x40000000) half = 0x80000000 - half;
    const double x = half * (3.14159265358979323846 / 2147483648.0), q = x * x;
    const double s = x * (1 - q / 6 * (1 - q / 20 * (1 - q / 42 * (1 - q / 72 * (1 - q / 110 * (1 - q / 156))))));
    return lower ? -s : s;
}

SourceRef Made(int rate, int channels, int64_t frames, ReadFrames read) {
    struct MadeSource : Source {
        MadeSource(int rate, int channels, int64_t frames, ReadFrames read)
            : Source(rate, channels, frames), read_(std::move(read)) {}
        bool ReadInside(int64_t first, int frames, double* out) override { return read_(first, frames, out); }
        ReadFrames read_;
    };
    return std::make_shared<MadeSource>(rate, channels, frames, std::move(read));
}

SourceRef Sine(int rate, int channels, int64_t frames, double hertz, double amplitude) {
    const auto step = static_cast<uint64_t>(hertz / rate * 18446744073709551616.0);  // of each frame; 2^64 is a turn
    return Made(rate, channels, frames, [=](int64_t first, int count, double* out) {
        for (int64_t frame = first; frame < first + count; ++frame, out += channels) {
            const auto turn = static_cast<uint32_t>(static_cast<uint64_t>(frame) * step >> 32);
            std::fill_n(out, channels, amplitude * SineOfTurn(turn));
        }
        return true;
    });
}

}  // namespace simhost
