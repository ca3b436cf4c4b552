#include "tests/support/wave_writer.h"

#include <filesystem>
#include <fstream>

static std::string Bytes(uint32_t value, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> 8 * i);
    return bytes;
}

static std::string Chunk(const std::string& name, const std::string& content, uint32_t announced = 0) {
    return name + Bytes(announced ? announced : static_cast<uint32_t>(content.size()), 4) + content +
           std::string(content.size() % 2, '\0');
}

std::string WriteBytes(const std::string& name, const std::string& bytes) {
    const auto path = std::filesystem::temp_directory_path() / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
}

std::string WriteWave(const std::string& name, const WaveText& wave) {
    const uint32_t frameBytes = wave.channels * wave.bits / 8;
    const std::string format = Bytes(wave.tag, 2) + Bytes(wave.channels, 2) + Bytes(wave.rate, 4) +
                               Bytes(wave.rate * frameBytes, 4) + Bytes(frameBytes, 2) + Bytes(wave.bits, 2);
    return WriteBytes(name, Chunk("RIFF", "WAVE" + Chunk("LIST", "INFOabc") + Chunk("fmt ", format + wave.extra) +
                                              Chunk("data", wave.samples, wave.announced)));
}
