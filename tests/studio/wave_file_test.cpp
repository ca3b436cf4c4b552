#include "apps/studio/wave_file.h"

#include <gtest/gtest.h>

#include "tests/support/wave_writer.h"

using namespace std::string_literals;

TEST(WaveFile, EachKindOfSampleHasItsValue) {
    const std::tuple<const char*, WaveText, std::vector<double>> cases[] = {
        {"8 bits are unsigned", {1, 1, 8, 8000, "\x00\x80\xFF"s}, {-1, 0, 127 / 128.0}},
        {"16 bits", {1, 1, 16, 44100, "\x00\x80\xFF\x7F\x00\x40"s}, {-1, 32767 / 32768.0, 0.5}},
        {"24 bits", {1, 1, 24, 48000, "\x00\x00\x80\x00\x00\x40\x01\x00\x00"s}, {-1, 0.5, 1 / 8388608.0}},
        {"32 bits", {1, 1, 32, 96000, "\x00\x00\x00\x80\x00\x00\x00\xC0"s}, {-1, -0.5}},
        {"floats go beyond 1", {3, 1, 32, 48000, "\x00\x00\x00\xBF\x00\x00\x00\x40"s}, {-0.5, 2}},
        {"stereo", {1, 2, 16, 48000, "\x00\x40\x00\xC0\x00\x20\x00\xE0"s}, {0.5, -0.5, 0.25, -0.25}},
        {"extensible, whose kind stands further back",
         {0xFFFE, 1, 16, 48000, "\x00\x40"s, 0, "\x16\0\x10\0\0\0\0\0\x01\0"s + std::string(14, '\0')},
         {0.5}},
        {"cut short: what is there, without half a frame",
         {1, 2, 16, 48000, "\x00\x40\x00\xC0\x00"s, 4000},
         {0.5, -0.5}},
    };
    for (const auto& [name, wave, wanted] : cases) {
        SCOPED_TRACE(name);
        std::string error;
        const simhost::SourceRef source = OpenWaveFile(WriteWave("quilmo-kind.wav", wave), &error);
        ASSERT_TRUE(source) << error;
        EXPECT_EQ(source->SampleRate(), static_cast<int>(wave.rate));
        ASSERT_EQ(source->Frames() * source->Channels(), static_cast<int64_t>(wanted.size()));
        std::vector<double> samples(wanted.size());
        EXPECT_TRUE(source->Read(0, static_cast<int>(source->Frames()), samples.data()));
        EXPECT_EQ(samples, wanted);
    }
}

TEST(WaveFile, OthersAreRefusedWithASentence) {
    const std::string sound = "\x00\x40\x00\x40"s;
    const std::string paths[] = {
        "C:\\nao\\existe.wav",
        WriteBytes("quilmo-text.wav", "isto nao e som"),
        WriteBytes("quilmo-empty.wav", ""),
        WriteBytes("quilmo-headless.wav", "RIFF\x04\0\0\0WAVE"s),
        WriteWave("quilmo-adpcm.wav", {2, 1, 4, 8000, sound}),
        WriteWave("quilmo-odd.wav", {1, 1, 12, 8000, sound}),
        WriteWave("quilmo-double.wav", {3, 1, 64, 8000, sound + sound}),
        WriteWave("quilmo-mute.wav", {1, 0, 16, 8000, sound}),
        WriteWave("quilmo-still.wav", {1, 1, 16, 0, sound}),
        WriteWave("quilmo-silent.wav", {1, 1, 16, 8000, ""}),
    };
    for (const std::string& path : paths) {
        std::string error;
        EXPECT_FALSE(OpenWaveFile(path, &error)) << path;
        EXPECT_EQ(error.find('\'' + path + '\''), 0u) << error;
    }
}
