#include "apps/studio/player.h"

#include <algorithm>
#include <cmath>

#include "apps/studio/multimedia.h"
#include "simhost/mixdown.h"

constexpr int Rate = 48000, Channels = 2, BlockFrames = 4800, Blocks = 4;

struct Player::Output {
    struct Block {
        WAVEHDR header{};
        std::vector<int16_t> samples = std::vector<int16_t>(static_cast<size_t>(BlockFrames) * Channels);
    };

    HWAVEOUT device = nullptr;
    std::array<Block, Blocks> blocks;

    bool Open() {
        WAVEFORMATEX format{WAVE_FORMAT_PCM, Channels, Rate, Rate * Channels * 2, Channels * 2, 16, 0};
        if (waveOutOpen(&device, WAVE_MAPPER, &format, 0, 0, CALLBACK_NULL) != MMSYSERR_NOERROR) return false;
        for (Block& block : blocks) {
            block.header.lpData = reinterpret_cast<char*>(block.samples.data());
            block.header.dwBufferLength = static_cast<DWORD>(block.samples.size() * sizeof(int16_t));
            waveOutPrepareHeader(device, &block.header, sizeof block.header);
            block.header.dwFlags |= WHDR_DONE;
        }
        return true;
    }
    ~Output() {
        if (!device) return;
        waveOutReset(device);
        for (Block& block : blocks) waveOutUnprepareHeader(device, &block.header, sizeof block.header);
        waveOutClose(device);
    }
};

Player::Player() = default;
Player::~Player() = default;

void Player::Start(double time) {
    Stop();
    next_ = time;
    if (waveOutGetNumDevs() == 0) return;
    auto output = std::make_unique<Output>();
    if (output->Open()) output_ = std::move(output);
}

void Player::Stop() { output_.reset(); }

void Player::Feed(const simhost::Project& project) {
    if (!output_) return;
    for (Output::Block& block : output_->blocks) {
        if (!(block.header.dwFlags & WHDR_DONE)) continue;
        std::vector<int16_t>& samples = block.samples;
        size_t filled = 0;
        const double end = next_ + static_cast<double>(BlockFrames) / Rate;
        MixProject(project, {Rate, Channels, next_, end}, [&](const double* mix, int frames) {
            const size_t count = std::min(static_cast<size_t>(frames) * Channels, samples.size() - filled);
            for (size_t i = 0; i < count; ++i)
                samples[filled++] = static_cast<int16_t>(std::lround(std::clamp(mix[i], -1.0, 1.0) * 32767));
            return true;
        });
        std::fill(samples.begin() + static_cast<ptrdiff_t>(filled), samples.end(), int16_t{0});
        next_ = end;
        block.header.dwFlags &= ~static_cast<DWORD>(WHDR_DONE);
        waveOutWrite(output_->device, &block.header, sizeof block.header);
    }
}
