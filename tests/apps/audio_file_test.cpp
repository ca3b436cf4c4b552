#include "apps/common/audio_file.h"

#include <limits>
#include <random>

#include "apps/common/audio_writer.h"
#include "tests/apps/workshop.h"
#include "tests/support/folders.h"

namespace fs = std::filesystem;
using simhost::SourceRef;

class Gravacoes : public Workshop {
  protected:
    SourceRef Open(const std::string& path) {
        error.clear();
        return OpenAudioFile(path, &error);
    }
    std::string error;
};

static std::vector<SF_FORMAT_INFO> Formats(int howMany, int which) {
    int count = 0;
    sf_command(nullptr, howMany, &count, sizeof count);
    std::vector<SF_FORMAT_INFO> formats(count);
    for (int i = 0; i < count; ++i) {
        formats[i].format = i;
        sf_command(nullptr, which, &formats[i], sizeof formats[i]);
    }
    return formats;
}

// Every container with every coding that libsndfile writes here; a test can make no other.
TEST_F(Gravacoes, TodoFormatoSeLeComoALibsndfileEmQualquerOrdem) {
    std::mt19937 random(7);
    int tried = 0;
    for (const SF_FORMAT_INFO& major : Formats(SFC_GET_FORMAT_MAJOR_COUNT, SFC_GET_FORMAT_MAJOR))
        for (const SF_FORMAT_INFO& sub : Formats(SFC_GET_FORMAT_SUBTYPE_COUNT, SFC_GET_FORMAT_SUBTYPE))
            for (int channels : {1, 2, 5}) {
                // No header, a header elsewhere, and two that libsndfile reads differently by the size of the read.
                const int odd[] = {SF_FORMAT_RAW, SF_FORMAT_SD2, SF_FORMAT_PAF, SF_FORMAT_SDS};
                info = {0, 48000, channels, major.format | sub.format, 0, 0};
                if (std::count(odd, std::end(odd), major.format) || !sf_format_check(&info)) continue;
                SCOPED_TRACE(std::string(major.name) + ", " + sub.name + ", " + std::to_string(channels) + " channels");

                std::vector<double> noise(static_cast<size_t>(70001) * channels);  // more than one block when read
                for (double& x : noise) x = std::uniform_real_distribution<>(-0.9, 0.9)(random);
                const std::string path = Write("f", info.format, info.samplerate, channels, noise);
                const std::vector<double> wanted = Samples(path);
                if (wanted.empty()) continue;  // libsndfile cannot make, or cannot read, all that it promises
                const SourceRef source = Open(path);
                ASSERT_TRUE(source) << error;
                const int found = info.channels;
                ASSERT_EQ(source->Channels(), found);
                ASSERT_EQ(source->Frames() * found, static_cast<int64_t>(wanted.size()));
                ++tried;

                std::vector<double> all(wanted.size());
                for (int64_t at = 0, step = 1; at < source->Frames(); at += step, step = step * 3 + 1) {
                    step = std::min(step, source->Frames() - at);
                    ASSERT_TRUE(source->Read(at, static_cast<int>(step), all.data() + at * found));
                }
                ASSERT_EQ(all, wanted);

                for (int round = 0; round < 6; ++round) {
                    const int64_t at = random() % source->Frames();
                    const int n = static_cast<int>(std::min<int64_t>(source->Frames() - at, random() % 40000 + 1));
                    std::vector<double> part(static_cast<size_t>(n) * found);
                    ASSERT_TRUE(source->Read(at, n, part.data()));
                    ASSERT_TRUE(std::equal(part.begin(), part.end(), wanted.begin() + at * found)) << "at " << at;
                }
            }
    EXPECT_GT(tried, 50);
}

// Recorders lose their power and headers lie: the recording is as long as what is there.
TEST_F(Gravacoes, CabecalhoQuePrometeDemaisNaoAtrapalha) {
    const std::vector<double> noise = Noise(2 * 48000);
    for (int format : {Wav16, Flac16, SF_FORMAT_AU | SF_FORMAT_PCM_24, SF_FORMAT_OGG | SF_FORMAT_VORBIS,
                       SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III}) {
        const std::string path = Write("cortada", format, 48000, 1, noise);
        fs::resize_file(path, fs::file_size(path) / 2);
        const SourceRef source = Open(path);
        ASSERT_TRUE(source) << error;
        const std::vector<double> wanted = Samples(path);
        EXPECT_GT(wanted.size(), 20000u);
        ASSERT_EQ(source->Frames(), static_cast<int64_t>(wanted.size()));
        std::vector<double> all(wanted.size());
        EXPECT_TRUE(source->Read(0, static_cast<int>(all.size()), all.data()));
        EXPECT_EQ(all, wanted);
    }

    const std::string path = Write("mente", Flac16, 48000, 1, noise);
    GravarArquivo(path, Text(path).replace(21, 5, 5, '\xff'));  // half of the first and the others count the frames
    const SourceRef source = Open(path);
    ASSERT_TRUE(source) << error;
    EXPECT_EQ(source->Frames(), static_cast<int64_t>(noise.size()));
}

TEST_F(Gravacoes, OQueSeGravaVoltaEm24BitsOuNaoFicaNada) {
    const double huge = std::numeric_limits<double>::infinity(), step = 1 / 8388608.0;
    const std::vector<double> samples = {0, 0.5, -0.25, step,  -step,        1,         -1,
                                         7, -7,  huge,  -huge, std::nan(""), 0.4 * step};
    const std::vector<double> wanted = {0, 0.5, -0.25, step, -step, 1 - step, -1, 1 - step, -1, 1 - step, -1, 0.0, 0};
    for (AudioFormat format : {AudioFormat::Wav, AudioFormat::Flac}) {
        const std::string path = Path("saida");
        {
            auto given_up = AudioWriter::Create(path, {format, 44100, 1, 13}, {}, &error);
            ASSERT_TRUE(given_up) << error;
            EXPECT_TRUE(given_up->Write(samples.data(), 13));
        }
        EXPECT_EQ(Listing(), "");
        auto writer = AudioWriter::Create(path, {format, 44100, 1, 13}, {}, &error);
        ASSERT_TRUE(writer && writer->Write(samples.data(), 13) && writer->Finish()) << error;
        EXPECT_EQ(Samples(path), wanted);
        fs::remove(path);
    }
    EXPECT_FALSE(AudioWriter::Create(Path("x"), {AudioFormat::Flac, 44100, 9, 1}, {}, &error));  // at most 8 channels
    EXPECT_FALSE(AudioWriter::Create(Path("nenhuma/x"), {AudioFormat::Wav, 44100, 1, 1}, {}, &error));
    EXPECT_EQ(Listing(), "");
}
