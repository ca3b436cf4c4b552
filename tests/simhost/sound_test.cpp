// Samples, as sources generate, accessors read, glue and take renders keep, and the mix-down gives them.
#include <bit>
#include <numeric>

#include "host/actions.h"
#include "simhost/mixdown.h"
#include "tests/lice/support.h"
#include "tests/support/scene.h"

using Samples = std::vector<double>;

class Sound : public Cena {
  protected:
    // Reads frames of an item's active take through an accessor; the result's first value is what the call returned.
    Samples Read(const std::string& item, int rate, int channels, double start, int frames) {
        AudioAccessor* accessor = host::CreateTakeAudioAccessor(host::GetActiveTake(ItemChamado(item)));
        Samples samples(1 + static_cast<size_t>(frames) * channels, 99);
        samples[0] = host::GetAudioAccessorSamples(accessor, rate, channels, start, frames, samples.data() + 1);
        host::DestroyAudioAccessor(accessor);
        return samples;
    }
    Samples Mix(simhost::MixRange range) {
        Samples mix;
        EXPECT_TRUE(simhost::MixProject(host.project, range, [&](const double* block, int frames) {
            mix.insert(mix.end(), block, block + static_cast<size_t>(frames) * range.channels);
            return true;
        }));
        return mix;
    }
};

// Frame f holds f, or a multiple of it, on the left and its opposite on the right.
static simhost::SourceRef Ramp(int rate, int frames, int channels = 2, double scale = 1) {
    Samples samples;
    for (int i = 0; i < frames * channels; ++i) samples.push_back((i % channels ? -scale : scale) * (i / channels));
    return Memory(rate, channels, samples);
}

// The same bits on every system, or a test's picture would differ from machine to machine.
TEST_F(Sound, GeneratedSourcesAreTheSameEverywhere) {
    const auto fingerprint = [](const simhost::SourceRef& source) {
        Samples samples(source->Frames() * source->Channels());
        source->Read(0, static_cast<int>(source->Frames()), samples.data());
        uint64_t sum = 0;
        for (const double sample : samples) sum = sum * 31 + std::bit_cast<uint64_t>(sample);
        return sum;
    };
    EXPECT_EQ(fingerprint(simhost::Sine(48000, 2, 5000, 440, 0.5)), 10607086272258390752u);
    EXPECT_EQ(fingerprint(Noise(44100, 1, 5000, 7, 0.25)), 15351000126211929414u);
    const auto sine = simhost::Sine(48000, 1, 48000, 1000, 1);
    Samples s(48000);
    sine->Read(0, 48000, s.data());
    for (int f = 0; f < 48000; ++f) ASSERT_NEAR(s[f], std::sin(2 * 3.14159265358979 * f / 48), 1e-6) << f;
}

TEST_F(Sound, SourcesAreZeroOutsideAndTheSameInAnyBlocks) {
    const simhost::SourceRef sources[] = {Ramp(8, 20), Noise(8, 2, 20, 1, 1),
                                          Bursts(8000, 2, {{3, 0.5}, {0, 1}, {4, 0}, {5, 0.25, 1}, {8, 1}}),
                                          Silence(8, 2, 20)};
    for (const simhost::SourceRef& source : sources) {
        Samples whole(60 * 2, 99), block(7 * 2);
        ASSERT_TRUE(source->Read(-20, 60, whole.data()));
        for (int f = 0; f < 60; ++f) ASSERT_TRUE((f >= 20 && f < 40) || whole[f * 2] == 0) << f;
        for (int first = -20; first + 7 <= 40; ++first) {
            ASSERT_TRUE(source->Read(first, 7, block.data()));
            ASSERT_TRUE(std::equal(block.begin(), block.end(), whole.begin() + (first + 20) * 2)) << first;
        }
    }
    Samples bursts(20 * 2);
    sources[2]->Read(0, 20, bursts.data());
    EXPECT_EQ(std::fabs(bursts[2 * 2]), 0.5);
    EXPECT_EQ(bursts[3 * 2], 0);
    EXPECT_EQ(bursts[7 * 2], 0);  // that burst is on the right alone
    EXPECT_EQ(std::fabs(bursts[7 * 2 + 1]), 0.25);
    EXPECT_FALSE(Unreadable(8, 2, 20)->Read(0, 1, bursts.data()));
}

TEST_F(Sound, AccessorsReadTheTakeAsItPlays) {
    Faixa("Voz", {{"A", 10, 12, Ramp(10, 40)}});
    EXPECT_EQ(Read("A", 10, 2, 0.2, 2), (Samples{1, 2, -2, 3, -3}));
    EXPECT_EQ(Read("A", 10, 3, 0.2, 1), (Samples{1, 2, -2, 0}));
    EXPECT_EQ(Read("A", 10, 2, 1.9, 2), (Samples{1, 19, -19, 0, 0}));  // nothing behind the item's end
    EXPECT_EQ(Read("A", 10, 2, 2, 1), (Samples{0, 99, 99}));           // the buffer stays
    EXPECT_EQ(Read("A", 20, 1, 0.2, 3), (Samples{1, 2, 2.5, 3}));      // between frames
    EXPECT_EQ(Read("A", 10, 1, 0.25, 1), (Samples{1, 2.5}));
    simhost::Take& take = *Dados(ItemChamado("A")).takes[0];
    take.startOffset = 1;
    EXPECT_EQ(Read("A", 10, 1, 0.2, 2), (Samples{1, 12, 13}));
    take.playRate = 2;
    EXPECT_EQ(Read("A", 10, 1, 0.2, 2), (Samples{1, 14, 16}));

    Faixa("Mono", {{"M", 0, 1, Memory(10, 1, Samples(10, 0.5))}});
    EXPECT_EQ(Read("M", 10, 2, 0, 1), (Samples{1, 0.5, 0.5}));
    int64_t frames = 0;
    host.calls.onRead = [&](int64_t n) { frames += n; };
    Read("M", 10, 2, 0, 7);
    EXPECT_EQ(frames, 7);
}

// Items that have crashed extensions: each is held, read and glued without a word.
TEST_F(Sound, TroublesomeItemsAreAnswered) {
    MediaTrack* track = Faixa(
        "Voz",
        {{"midi", 0, 2, Midi(8)}, {"offline", 2, 4, Unreadable(48000, 1, 96000)}, {"zero", 4, 4}, {"slow", 5, 6}});
    Dados(NovoItem(track, {"bare", 6, 7})).takes.clear();
    Dados(NovoItem(track, {"sourceless", 7, 8})).takes[0]->source = nullptr;
    Dados(ItemChamado("slow")).takes[0]->playRate = 0;
    EXPECT_EQ(Retrato(),
              "Voz: midi 0-2 midi | offline 2-4 | zero 4-4 | slow 5-6 x0 |  6-7 no take | sourceless 7-8 no source");

    EXPECT_EQ(Read("midi", 48000, 2, 0, 4)[0], 0);
    EXPECT_EQ(Read("offline", 48000, 1, 0, 4)[0], -1);
    EXPECT_EQ(Read("zero", 48000, 2, 0, 4)[0], 0);
    EXPECT_EQ(Read("slow", 48000, 2, 0, 4)[0], 1);
    EXPECT_EQ(host::CreateTakeAudioAccessor(host::GetActiveTake(ItemChamado("sourceless"))), nullptr);
    EXPECT_EQ(host::GetActiveTake(ItemChamado("")), nullptr);
    bool beats = false;
    PCM_source* midi = host::GetMediaItemTake_Source(host::GetActiveTake(ItemChamado("midi")));
    EXPECT_EQ(host::GetMediaSourceLength(midi, &beats), 8);
    EXPECT_TRUE(beats);
    EXPECT_EQ(host::GetMediaSourceSampleRate(midi), 0);

    for (const char* name : {"midi", "", "sourceless"}) {
        Selecionar({name});
        host::Main_OnCommand(acao::ColarItens, 0);
        host::Main_OnCommand(acao::RenderTakeMono, 0);
    }
    EXPECT_EQ(Historico(), "");
    host::SelectAllMediaItems(nullptr, true);
    host::Main_OnCommand(acao::ColarItens, 0);
    EXPECT_EQ(Retrato(), "Voz: midi-glued 0-8");
}

TEST_F(Sound, GlueKeepsWhatIsHeard) {
    Faixa("Voz", {{"A", 1, 2, Memory(10, 1, Samples(10, 1))},
                  {"B", 3, 4, Ramp(10, 10)},
                  {"C", 3.5, 4, Memory(10, 2, Samples(20, 1))}});
    simhost::Item& a = Dados(ItemChamado("A"));
    a.fadeIn = 0.4;
    Dados(ItemChamado("C")).mute = 1;
    host::SelectAllMediaItems(nullptr, true);
    host::Main_OnCommand(acao::ColarSelecao, 0);
    EXPECT_EQ(RetratoCompleto(), "Voz: A-glued 1-4 *");
    Samples heard = Read("A-glued", 10, 2, 0, 30);
    for (double& sample : heard) sample = std::round(sample * 1e9) / 1e9;  // a fade's slope is not exact
    EXPECT_EQ(Samples(heard.begin(), heard.begin() + 11), (Samples{1, 0, 0, 0.25, 0.25, 0.5, 0.5, 0.75, 0.75, 1, 1}));
    EXPECT_EQ(Samples(heard.begin() + 19, heard.begin() + 23), (Samples{1, 1, 0, 0}));  // then the gap
    EXPECT_EQ(Samples(heard.end() - 3, heard.end()), (Samples{-8, 9, -9}));
}

// However deep: each glue takes the one before apart and turns its pieces round.
TEST_F(Sound, GluesOfGluesReadTheRecordingOnce) {
    constexpr int frames = 4000;
    int64_t read = 0;
    const auto recording = Made(1000, 1, frames, [&read](int64_t first, int count, double* out) {
        std::iota(out, out + count, static_cast<double>(first));
        read += count;
        return true;
    });
    Faixa("Voz", {{"A", 0, frames / 1000.0, recording}});
    Samples expected(frames);
    std::iota(expected.begin(), expected.end(), 0.0);
    simhost::TrackList& tracks = host.project.tracks;
    const auto glue = [&] {
        tracks.SelectAll(true);
        host::Main_OnCommand(acao::ColarItens, 0);
    };
    Random random;
    for (int depth = 0; depth < 40; ++depth) {
        const int cut = random.In(1, frames - 1);
        simhost::Item& left = *tracks.ItemAt(0);
        simhost::Item& right = *Split(host.project, left, cut / 1000.0);
        tracks.Reposition(right, 0);
        tracks.Reposition(left, (frames - cut) / 1000.0);
        glue();
        std::rotate(expected.begin(), expected.begin() + cut, expected.end());
    }
    // A crossfade reads twice what is below it, and that is a crossfade of the same place again.
    for (int depth = 0; depth < 40; ++depth) {
        Split(host.project, *tracks.ItemAt(0), 2.0, 0.1);
        glue();
    }
    Samples heard = Read(tracks.ItemAt(0)->Name(), 1000, 1, 0, frames);
    heard.erase(heard.begin());
    for (int f = 0; f < frames; ++f) ASSERT_NEAR(heard[f], expected[f], f >= 1900 && f < 2000 ? 1e-6 : 0) << f;
    EXPECT_LE(read, frames + 100);
}

TEST_F(Sound, RenderedTakesKeepTheItemsPlace) {
    Faixa("Voz", {{"A", 1, 2, Ramp(10, 40)}});
    simhost::Take& take = *Dados(ItemChamado("A")).takes[0];
    take.startOffset = 2;
    Selecionar({"A"});
    host::Main_OnCommand(acao::RenderTakeStereo, 0);
    EXPECT_EQ(Read("A-render", 10, 2, 0.1, 1), (Samples{1, 21, -21}));
    host::SetActiveTake(host::GetTake(ItemChamado("A-render"), 0));
    host::Main_OnCommand(acao::RenderTakeMono, 0);  // left and right cancel
    EXPECT_EQ(Read("A-render", 10, 1, 0.1, 1), (Samples{1, 0}));
    EXPECT_EQ(Retrato(), "Voz: A-render 1-2 take 3/3");
}

// The sum of what all items play, whatever the blocks it comes in.
TEST_F(Sound, ItemsAddUpWithTheirFadesAndMutes) {
    Faixa("Voz", {{"A", 0, 0.6, Ramp(10, 100, 1)}, {"B", 0.4, 1, Ramp(10, 100, 1, 10)}});
    Faixa("Baixo", {{"C", 0.2, 0.5, Ramp(10, 100, 1, 100)}});
    simhost::Item& b = Dados(ItemChamado("B"));
    b.takes[0]->startOffset = 5;
    b.takes[0]->playRate = 2;
    b.fadeIn = 0.2;
    const Samples all = {0, 1, 2, 3 + 100, 4 + 200, 5 + 260, 540, 560, 580, 600};
    EXPECT_EQ(Mix({10, 1, 0, 1}), all);
    EXPECT_EQ(Mix({10, 1, 0.3, 0.72}), Samples(all.begin() + 3, all.begin() + 7));
    EXPECT_EQ(Mix({10, 1, 0.9, 1.1}), (Samples{600, 0}));
    EXPECT_EQ(Mix({10, 1, 1, 0}), Samples());

    Dados(ItemChamado("C")).mute = 1;
    EXPECT_EQ(Mix({10, 1, 0.3, 0.4}), Samples{3});
    Dados(ItemChamado("A")).mute = 1;
    EXPECT_EQ(Mix({10, 2, 0.3, 0.4}), (Samples{0, 0}));
}

// Long enough for many blocks, with pieces that begin between two frames: no frame is lost, doubled or blurred.
TEST_F(Sound, PiecesBetweenFramesAreCopiedWhole) {
    const int rate = 44100, frames = 100000;
    std::vector<ItemDeCena> pieces;
    for (int i = 0; i < 10; ++i)
        pieces.push_back({"p", i * 10000.49 / rate, (i * 10000.49 + 10000) / rate, Ramp(rate, frames, 1)});
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
