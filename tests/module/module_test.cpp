// The built module itself, in the host as it would be loaded there.

#include <cstdio>

#include "module/entry.h"
#include "simhost/host.h"
#include "slicer/autosplit.h"
#include "tests/support/kept.h"
#include "tests/support/module_file.h"
#include "tests/support/sources.h"

using simhost::SourceRef;

struct Caso {
    const char* nome;
    SourceRef fonte;
    double inicio, comprimento;
    bool fechar;
    int blocoMs;
    double thresholdDb;
};

// A minute of bursts and pauses of many lengths and levels around -37 dB, from a plain generator of our own.
static SourceRef Misto(int taxa, int canais, int64_t quadros, uint64_t semente) {
    const auto sorteia = [&semente](uint64_t ate) {
        semente = semente * 6364136223846793005u + 1442695040888963407u;
        return (semente >> 33) % ate;
    };
    std::vector<Segment> trechos;
    for (int64_t feitos = 0; feitos < quadros;) {
        const int64_t n = 1 + static_cast<int64_t>(sorteia(static_cast<uint64_t>(taxa) / 2));
        trechos.push_back({n, static_cast<double>(sorteia(8)) / 256.0, static_cast<int>(sorteia(canais + 1)) - 1});
        feitos += n;
    }
    return Bursts(taxa, canais, trechos);
}

const Caso Casos[] = {
    {"mono 44100", Misto(44100, 1, 44100 * 60, 1), 0, 60, true, 55, -37},
    {"stereo 48000, open", Misto(48000, 2, 48000 * 60, 2), 7.3, 60, false, 55, -37},
    {"stereo 48000, short block", Misto(48000, 2, 48000 * 30, 3), 1e6 + 1.0 / 3, 30, true, 1, -37},
    {"six channels at 96000, long block", Misto(96000, 6, 96000 * 20, 4), 0.1, 20, true, 400, -40},
    {"11025, not a whole number of frames", Misto(11025, 1, 11025 * 10, 5), 2.0 / 3, 9.87654321, true, 0, -36.5},
    {"8000, the item longer than its source", Misto(8000, 2, 8000 * 5, 6), 3, 8.5, true, 55, -48},
    {"a level at the threshold", Bursts(48000, 1, {{24000, 0.1}, {24000, 0.0999}, {24000, 0.1}}), 0, 1.5, true, 55,
     -20},
    {"noise", Noise(44100, 2, 44100 * 5, 7, 0.01886), 0, 5, true, 10, -34.5},
    {"a tone", simhost::Sine(48000, 1, 48000 * 2, 19, 0.02), 0, 2, true, 10, -34.5},
    {"all silent", Silence(48000, 2, 48000), 0, 1, true, 55, -37},
    {"everything sounds", Silence(48000, 2, 48000), 0, 1, true, 55, -INFINITY},
    {"nothing can", Misto(48000, 2, 48000, 8), 0, 1, true, 55, NAN},
};

// Every piece, to the last bit: position, length, source offset, fades.
static std::string Pecas(simhost::Host& host) {
    std::string texto;
    for (const simhost::Item* item : host.project.tracks.Items()) {
        char linha[200];
        std::snprintf(linha, sizeof linha, "%.17g %.17g %.17g %g %g\n", item->position, item->length,
                      item->Active()->startOffset, item->fadeIn, item->fadeOut);
        texto += linha;
    }
    return texto;
}

TEST(Modulo, ExportaQuatroNomesEMaisNada) {
    const std::vector<std::string> quatro = {"Quilmo_AbrirPainel", "Quilmo_AutoSplit", "Quilmo_Teste",
                                             "ReaperPluginEntry"};
    EXPECT_EQ(ModuleFile().ExportedNames(), quatro);
}

TEST(Modulo, FatiaIgualEmTodaPlataforma) {
    const ModuleFile modulo;
    auto* entrada = modulo.Find<decltype(ReaperPluginEntry)>("ReaperPluginEntry");
    ASSERT_NE(entrada, nullptr);
    std::string achado;
    for (const Caso& caso : Casos) {
        simhost::Host host;
        host.resourcePath = "nowhere/that/exists";  // the log line is lost, and nobody minds
        ASSERT_EQ(entrada(nullptr, host.Record()), 1);
        simhost::Track& faixa = AddTrack(host.project, "Voz");
        simhost::Item& item = host.project.tracks.Add(
            faixa, simhost::MakeItem("A", caso.inicio, caso.inicio + caso.comprimento, caso.fonte));
        item.length = caso.comprimento;
        host.project.tracks.Select(item, true);
        auto* fatiar = reinterpret_cast<decltype(&Quilmo_AutoSplit)>(host.extension.Function("Quilmo_AutoSplit"));
        ASSERT_NE(fatiar, nullptr);
        EXPECT_TRUE(fatiar(caso.fechar, caso.blocoMs, caso.thresholdDb));
        EXPECT_TRUE(host.Check()) << host.FirstViolation();
        EXPECT_EQ(entrada(nullptr, nullptr), 0);
        achado += std::string("# ") + caso.nome + '\n' + Pecas(host);
    }
    ConfereGuardado("tests/module/slices.txt", achado);
}
