// WAV files as other programs write them, good and bad.
#pragma once
#include <cstdint>
#include <string>

struct WaveText {
    uint16_t tag = 1, channels = 1, bits = 16;
    uint32_t rate = 48000;
    std::string samples;     // their bytes
    uint32_t announced = 0;  // the size that the data chunk says; 0: the true one
    std::string extra = {};  // what follows the format's own 16 bytes
};

std::string WriteWave(const std::string& name, const WaveText& wave);  // the path, in the temporary folder
std::string WriteBytes(const std::string& name, const std::string& bytes);
