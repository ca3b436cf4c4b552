// The mix-down: what reaches the sink is the sum of what tracks and items play, whatever the blocks it comes in.
#include "simhost/mixdown.h"

#include "tests/support/scene.h"

namespace {

class MixDown : public Cena {
  protected:
    std::vector<double> Mix(simhost::MixRange range) {
        std::vector<double> mix;
        EXPECT_TRUE(simhost::MixProject(host.project, range, [&](const double* block, int frames) {
            mix.insert(mix.end(), block, block + static_cast<size_t>(frames) * range.channels);
            return true;
        }));
        return mix;
    }
};

// Mono, frame f holds f.
simhost::SourceRef Counting(int rate, int frames) {
    std::vector<double> samples(frames);
    for (int f = 0; f < frames; ++f) samples[f] = f;
    return simhost::Memory(rate, 1, samples);
}

using Samples = std::vector<double>;

}  // namespace

TEST_F(MixDown, TracksAndItemsAddUpWithTheirVolumesAndMutes) {
    Faixa("Voz", {{"A", 0, 0.6, Counting(10, 100)}, {"B", 0.4, 1, Counting(10, 100)}});
    Faixa("Baixo", {{"C", 0.2, 0.5, Counting(10, 100)}});
    simhost::Item& b = Dados(ItemChamado("B"));
    b.volume = 10;
    b.takes[0]->startOffset = 5;
    b.takes[0]->playRate = 2;
    b.autoFadeIn = 0.2;
    simhost::Track& bass = Dados(FaixaChamada("Baixo"));
    bass.volume = 100;
    const Samples all = {0, 1, 2, 3 + 100, 4 + 200, 5 + 260, 540, 560, 580, 600};
    EXPECT_EQ(Mix({10, 1, 0, 1}), all);
    EXPECT_EQ(Mix({10, 1, 0.3, 0.72}), Samples(all.begin() + 3, all.begin() + 7));
    EXPECT_EQ(Mix({10, 1, 0.9, 1.1}), (Samples{600, 0}));
    EXPECT_EQ(Mix({10, 1, 1, 0}), Samples());

    bass.mute = 1;
    EXPECT_EQ(Mix({10, 1, 0.3, 0.4}), Samples{3});
    bass.mute = 0;
    bass.solo = 1;
    EXPECT_EQ(Mix({10, 1, 0.3, 0.4}), Samples{100});
    Dados(ItemChamado("C")).mute = 1;
    EXPECT_EQ(Mix({10, 2, 0.3, 0.4}), (Samples{0, 0}));
}

// Long enough for many blocks, with pieces that begin between two frames: no frame is lost, doubled or blurred.
TEST_F(MixDown, PiecesBetweenFramesAreCopiedWhole) {
    const int rate = 44100, frames = 100000;
    std::vector<ItemDeCena> pieces;
    for (int i = 0; i < 10; ++i)
        pieces.push_back({"p", i * 10000.49 / rate, (i * 10000.49 + 10000) / rate, Counting(rate, frames)});
    Faixa("Voz", pieces);
    const Samples mix = Mix({rate, 1, 0, 10 * 10000.49 / rate});
    ASSERT_EQ(mix.size(), 100005u);
    for (int i = 0; i < 10; ++i) {
        const int first = static_cast<int>(i * 10000.49 + 0.5);
        for (int f = 0; f < 10000; ++f) ASSERT_EQ(mix[first + f], f) << "piece " << i;
    }

    int blocks = 0;
    EXPECT_FALSE(simhost::MixProject(host.project, {rate, 1, 0, 2}, [&](const double*, int) { return ++blocks < 2; }));
    EXPECT_EQ(blocks, 2);
}
