#include "apps/studio/wave_file.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "apps/common/text.h"
#include "apps/studio/multimedia.h"
#include "platform/files.h"
#include "simhost/sound.h"

namespace {

constexpr WORD Pcm = 1, Float = 3, Extensible = 0xFFFE;

struct Format {
    WORD tag, channels;
    DWORD rate, bytesPerSecond;
    WORD frameBytes, bits;
};

// The sample as -1..1; its least significant byte comes first.
double Sample(const unsigned char* bytes, const Format& format) {
    if (format.tag == Float) {
        float value;
        std::memcpy(&value, bytes, sizeof value);
        return value;
    }
    if (format.bits == 8) return (bytes[0] - 128) / 128.0;  // the only unsigned kind
    uint32_t value = 0;                                     // with the sample's top bit on top
    for (int i = 0; i < format.bits / 8; ++i) value = value >> 8 | static_cast<uint32_t>(bytes[i]) << 24;
    return static_cast<int32_t>(value) / 2147483648.0;
}

using File = std::unique_ptr<HMMIO__, decltype([](HMMIO file) { mmioClose(file, 0); })>;

// What the chunk holds of its announced size; empty when there is none of that name.
std::vector<unsigned char> Chunk(HMMIO file, const MMCKINFO& riff, FOURCC name) {
    MMCKINFO chunk{};
    chunk.ckid = name;
    mmioSeek(file, static_cast<LONG>(riff.dwDataOffset + sizeof(FOURCC)), SEEK_SET);
    if (mmioDescend(file, &chunk, &riff, MMIO_FINDCHUNK) != MMSYSERR_NOERROR) return {};
    const LONG end = mmioSeek(file, 0, SEEK_END), start = static_cast<LONG>(chunk.dwDataOffset);
    mmioSeek(file, start, SEEK_SET);
    const DWORD there = end > start ? static_cast<DWORD>(end - start) : 0;
    std::vector<unsigned char> bytes(std::min(chunk.cksize, there));  // a file may be cut short
    const LONG got = mmioRead(file, reinterpret_cast<char*>(bytes.data()), static_cast<LONG>(bytes.size()));
    bytes.resize(got > 0 ? got : 0);
    return bytes;
}

bool Readable(const Format& f) {
    const bool known = f.tag == Float ? f.bits == 32 : f.tag == Pcm && f.bits % 8 == 0 && f.bits >= 8 && f.bits <= 32;
    return known && f.channels >= 1 && f.rate >= 1 && f.rate <= 1'000'000 && f.frameBytes == f.channels * f.bits / 8;
}

}  // namespace

simhost::SourceRef OpenWaveFile(const std::string& path, std::string* error) {
    const auto refuse = [&](const char* why) {
        *error = "'" + path + "' " + why;
        return nullptr;
    };
    std::error_code unknown;
    const uintmax_t size = std::filesystem::file_size(Wide(path), unknown);
    if (!unknown && size > INT32_MAX) return refuse("passa de 2 GB");  // the system's calls count no further
    const File file(mmioOpenW(Wide(path).data(), nullptr, MMIO_READ | MMIO_ALLOCBUF));
    if (!file) return refuse("não pode ser aberto");
    MMCKINFO riff{};
    riff.fccType = mmioFOURCC('W', 'A', 'V', 'E');
    if (mmioDescend(file.get(), &riff, nullptr, MMIO_FINDRIFF) != MMSYSERR_NOERROR)
        return refuse("não é um arquivo WAV");
    const std::vector<unsigned char> head = Chunk(file.get(), riff, mmioFOURCC('f', 'm', 't', ' '));
    Format format{};
    std::memcpy(&format, head.data(), std::min(head.size(), sizeof format));
    constexpr size_t subFormat = 24;  // where an extensible format says what it is
    if (format.tag == Extensible && head.size() >= subFormat + sizeof format.tag)
        std::memcpy(&format.tag, head.data() + subFormat, sizeof format.tag);
    if (!Readable(format)) return refuse("não é um WAV de amostras PCM");
    try {
        std::vector<unsigned char> bytes = Chunk(file.get(), riff, mmioFOURCC('d', 'a', 't', 'a'));
        if (bytes.size() < format.frameBytes) return refuse("não tem nenhuma amostra");
        const auto frames = static_cast<int64_t>(bytes.size() / format.frameBytes);
        auto read = [format, all = std::move(bytes)](int64_t first, int count, double* out) {
            const unsigned char* from = all.data() + first * format.frameBytes;
            for (int64_t i = 0; i < int64_t{count} * format.channels; ++i, from += format.bits / 8)
                *out++ = Sample(from, format);
            return true;
        };
        return simhost::Made(static_cast<int>(format.rate), format.channels, frames, std::move(read));
    } catch (const std::bad_alloc&) {
        return refuse("não cabe na memória");
    }
}

bool WriteWaveFile(const std::string& path, const simhost::Project& project, const simhost::MixRange& range,
                   const std::function<void()>& working, std::string* error) {
    const auto refuse = [&](const char* why) {
        *error = "'" + path + "' " + why;
        return false;
    };
    constexpr int sampleBytes = 3;
    const int frameBytes = range.channels * sampleBytes;
    constexpr double mostBytes = 4.29e9;  // what the sizes in the file can count
    if (static_cast<double>(range.Frames()) * frameBytes > mostBytes) return refuse("passaria de 4 GB");
    const std::string unfinished = path + ".tmp";
    std::FILE* const file = OpenFile(unfinished, "wb");
    if (!file) return refuse("não pode ser criado");

    const auto bytes = static_cast<uint32_t>(range.Frames() * frameBytes), padding = bytes % 2;
    std::string block;
    const auto put = [&block](uint32_t value, int count) {
        for (int i = 0; i < count; ++i) block += static_cast<char>(value >> 8 * i);
    };
    block = "RIFF";
    put(4 + 8 + 16 + 8 + bytes + padding, 4);
    block += "WAVEfmt ";
    put(16, 4);
    put(Pcm, 2);
    put(range.channels, 2);
    put(range.rate, 4);
    put(range.rate * frameBytes, 4);
    put(frameBytes, 2);
    put(8 * sampleBytes, 2);
    block += "data";
    put(bytes, 4);
    bool written = std::fwrite(block.data(), 1, block.size(), file) == block.size();
    written = written && MixProject(project, range, [&](const double* mix, int frames) {
                  working();
                  block.clear();
                  for (int i = 0; i < frames * range.channels; ++i) put(simhost::To24Bits(mix[i]), sampleBytes);
                  return std::fwrite(block.data(), 1, block.size(), file) == block.size();
              });
    if (padding) written = std::fputc(0, file) == 0 && written;
    written = std::fclose(file) == 0 && written;
    if (written && MoveFileExW(Wide(unfinished).c_str(), Wide(path).c_str(), MOVEFILE_REPLACE_EXISTING)) return true;
    RemoveFile(unfinished);
    return refuse("não pode ser gravado até o fim");
}
