// A user's whole path through the panel of the real module, on a real recording that is heard again.

#include <numeric>

#include "tests/apps/workshop.h"
#include "tests/support/folders.h"

class Passeio : public Workshop {};

// Peaks of blocks of 10 ms, over all channels.
static std::vector<double> Peaks(const std::vector<double>& samples, const SF_INFO& info) {
    const size_t block = static_cast<size_t>(info.samplerate / 100 * info.channels);
    std::vector<double> peaks;
    for (size_t at = 0; at < samples.size(); at += block) {
        double peak = 0;
        for (size_t i = at; i < std::min(samples.size(), at + block); ++i) peak = std::max(peak, std::fabs(samples[i]));
        peaks.push_back(peak);
    }
    return peaks;
}

static double Energy(const std::vector<double>& samples, const SF_INFO& info) {
    return std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0) / info.channels / info.samplerate;
}

TEST_F(Passeio, OSilencioSaiEAFalaFica) {
    const std::string recording = SourceFolder() + "/data/fala.flac";
    const Outcome run = Run("passeio '" + recording + "' .");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_LE(std::count(run.out.begin(), run.out.end(), '\n'), 24) << run.out;
    for (const char* picture :
         {"painel", "fatiador", "pergunta", "arranjo-antes", "arranjo-previa", "arranjo-aplicado"})
        EXPECT_GT(Text(picture + std::string(".png")).size(), 2000u) << picture;

    const std::vector<double> spoken = Samples(recording);
    const SF_INFO before = info;
    const size_t lossy = Samples("casa-do-passeio/Desktop/fala.mp3").size();
    const std::vector<double> exported = Samples("casa-do-passeio/Desktop/fala.wav");
    ASSERT_FALSE(exported.empty());
    EXPECT_GT(lossy, exported.size() / 2);
    EXPECT_EQ(info.samplerate, 48000);
    EXPECT_EQ(info.channels, 2);

    // The first word stays where it was; from there on no pause is as long as a tenth of a second.
    const std::vector<double> peaks = Peaks(exported, info);
    const auto quiet = [](double peak) { return peak < 0.01; };
    const auto word = std::find_if_not(peaks.begin(), peaks.end(), quiet);
    EXPECT_NEAR(static_cast<double>(word - peaks.begin()), 61, 1);
    EXPECT_EQ(std::search_n(word, peaks.end(), 10, true, [&](double peak, bool) { return quiet(peak); }), peaks.end());
    // No word is lost, none said twice: fades at the cuts take less than a hundredth of the sound.
    EXPECT_NEAR(Energy(exported, info) / Energy(spoken, before), 1, 0.01);
    EXPECT_LT(peaks.size(), Peaks(spoken, before).size() * 2 / 3);
}

TEST_F(Passeio, DizEmUmaLinhaPorQueNaoAnda) {
    const Outcome none = Run("passeio nada.wav out");
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.err.find("passeio: "), 0u);
    EXPECT_EQ(std::count(none.err.begin(), none.err.end(), '\n'), 1);
    EXPECT_EQ(Run("passeio").status, 2);
}
