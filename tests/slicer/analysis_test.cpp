#include "slicer/analysis.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <limits>
#include <random>
#include <string>

#include "tests/slicer/plain_analysis.h"

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Inf = std::numeric_limits<double>::infinity();

// The one take that there is to read. The slots answer from it and note what was called.
struct Gravacao {
    int taxa = 48000, canais = 1;  // as its source says
    bool comFonte = true, comLeitor = true;
    double inicio = 0.25;                              // the accessor's
    std::function<double(int64_t, int)> amostra = {};  // of a frame and a channel
    std::function<bool(int64_t)> falha = {};           // whether the read that starts at that frame fails
    std::string chamadas = {};
    int64_t lidos = 0;
};
Gravacao* gravacao;

int Ler(AudioAccessor*, int taxa, int canais, double inicio, int quadros, double* amostras) {
    Gravacao& g = *gravacao;
    EXPECT_EQ(inicio, g.inicio + static_cast<double>(g.lidos) / taxa);
    EXPECT_LE(quadros, 65536);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(amostras) % 64, 0u);
    const int64_t primeiro = g.lidos;
    g.lidos += quadros;
    if (g.chamadas.back() != 'L') g.chamadas += 'L';
    if (g.falha && g.falha(primeiro)) return primeiro % 131072 ? 0 : -1;
    for (int i = 0; i < quadros; ++i)
        for (int c = 0; c < canais; ++c) *amostras++ = g.amostra(primeiro + i, c);
    return 1;
}

class Analise : public testing::Test {
  protected:
    Analise() {
        gravacao = &g;
        host::CreateTakeAudioAccessor = [](MediaItem_Take*) {
            gravacao->chamadas += 'C';
            return gravacao->comLeitor ? reinterpret_cast<AudioAccessor*>(gravacao) : nullptr;
        };
        host::GetMediaItemTake_Source = [](MediaItem_Take*) {
            gravacao->chamadas += 'F';
            return gravacao->comFonte ? reinterpret_cast<PCM_source*>(gravacao) : nullptr;
        };
        host::GetMediaSourceSampleRate = [](PCM_source*) {
            gravacao->chamadas += 'T';
            return gravacao->taxa;
        };
        host::GetMediaSourceNumChannels = [](PCM_source*) {
            gravacao->chamadas += 'N';
            return gravacao->canais;
        };
        host::GetAudioAccessorStartTime = [](AudioAccessor*) {
            gravacao->chamadas += 'I';
            return gravacao->inicio;
        };
        host::GetAudioAccessorSamples = Ler;
        host::DestroyAudioAccessor = [](AudioAccessor*) { gravacao->chamadas += 'D'; };
    }

    std::vector<TrechoSilencio> Analisar(double comprimento, double limiar, double bloco) {
        g.chamadas.clear();
        g.lidos = 0;
        return AnalisarItem(nullptr, comprimento, limiar, bloco);
    }

    Gravacao g;
};

std::string Texto(const std::vector<TrechoSilencio>& trechos) {
    std::string texto;
    for (const auto& [inicio, fim] : trechos) {
        char um[64];
        std::snprintf(um, sizeof um, "%s%g-%g", texto.empty() ? "" : " | ", inicio, fim);
        texto += um;
    }
    return texto;
}

// Sound of one level in the given stretches of milliseconds, and 0 elsewhere.
struct Som {
    double inicioMs, fimMs, nivel;
    int canal = 0;
};

}  // namespace

TEST_F(Analise, PausasBordasELimiar) {
    const double limiar = 0.5, abaixo = std::nextafter(0.5, 0.0);
    const struct {
        const char* caso;
        double comprimento;
        int canais;
        std::vector<Som> sons;
        const char* silencio;
    } casos[] = {
        {"a level at the threshold sounds, one below does not",
         1.0,
         1,
         {{100, 200, limiar}, {500, 600, abaixo}},
         "0-0.1 | 0.2-1"},
        {"its sign does not matter", 1.0, 1, {{100, 200, -limiar}}, "0-0.1 | 0.2-1"},
        {"one channel is enough", 1.0, 3, {{100, 200, 1, 2}, {600, 700, 1, 1}}, "0-0.1 | 0.2-0.6 | 0.7-1"},
        {"55 ms are six windows of silence", 1.0, 1, {{0, 100, 1}, {160, 1000, 1}}, "0.1-0.16"},
        {"five windows are not enough", 1.0, 1, {{0, 100, 1}, {150, 1000, 1}}, ""},
        {"sound in a pause starts it again", 1.0, 1, {{0, 100, 1}, {140, 141, 1}, {190, 1000, 1}}, ""},
        {"a first stretch needs no block, only its millisecond", 1.0, 1, {{10, 1000, 1}}, "0-0.01"},
        {"so does the last", 1.005, 1, {{0, 1000, 1}}, "1-1.005"},
        {"a millisecond is not above a millisecond", 1.001, 1, {{0, 1000, 1}}, ""},
        {"a short last window sounds to the item's end", 1.005, 1, {{300, 1000, 1}, {1004, 1005, 1}}, "0-0.3"},
        {"nothing sounds", 1.0, 2, {{0, 1000, abaixo}}, ""},
        {"exactly 0.05 s is analysed", 0.05, 1, {{20, 50, 1}}, "0-0.02"},
        {"less is not", 0.049, 1, {{20, 49, 1}}, ""},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.caso);
        g.canais = caso.canais;
        g.amostra = [&](int64_t quadro, int canal) {
            for (const Som& som : caso.sons)
                if (som.canal == canal && quadro >= som.inicioMs * 48 && quadro < som.fimMs * 48) return som.nivel;
            return 0.0;
        };
        EXPECT_EQ(Texto(Analisar(caso.comprimento, limiar, 0.055)), caso.silencio);
    }
}

// Whatever the material, the answer is that of looking at each frame in turn.
TEST_F(Analise, IgualAoExameQuadroAQuadro) {
    const char* pedida = std::getenv("QUILMO_SEED");
    const unsigned primeira = pedida ? std::strtoul(pedida, nullptr, 10) : 1u, quantas = pedida ? 1 : 300;
    for (unsigned semente = primeira; semente < primeira + quantas; ++semente) {
        SCOPED_TRACE("QUILMO_SEED=" + std::to_string(semente));
        std::mt19937 sorte(semente);
        const auto um = [&](auto... opcoes) {
            const double lista[] = {static_cast<double>(opcoes)...};
            return lista[sorte() % std::size(lista)];
        };
        const auto entre = [&](double a, double b) { return std::uniform_real_distribution<double>(a, b)(sorte); };

        g.taxa = static_cast<int>(um(48000, 44100, 44100, 96000, 22050, 11025, 8000, 250, 250, 99, 1, 0, -5));
        g.canais = static_cast<int>(um(1, 1, 2, 2, 3, 5, 0, -1));
        g.comFonte = sorte() % 8 != 0;
        const int taxa = g.comFonte && g.taxa > 0 ? g.taxa : 44100, canais = g.comFonte && g.canais > 0 ? g.canais : 2;
        const int quadrosPedidos = static_cast<int>(um(entre(2, 3000), entre(60000, 70000), 65536, 131072, 65537));
        const double comprimento = std::max(0.05, (quadrosPedidos - um(0, 0, 0.5)) / taxa);
        const int quadros = static_cast<int>(std::ceil(comprimento * taxa));
        const double limiar = std::pow(10.0, um(-37, -37, -37, -6, 0, -90, -1e4, -Inf, 1e4, Inf, NaN) / 20.0);
        const double bloco = um(55, 55, 10, 1, 200, 2147483647) / 1000.0;

        // Stretches of a level each, with a stray sample now and then: the levels that a comparison could get wrong.
        std::vector<double> amostras(static_cast<size_t>(quadros) * canais);
        for (size_t i = 0; i < amostras.size();) {
            const size_t fim = i + 1 + sorte() % (taxa / 5 * canais + 1);
            const double base = um(0, 0, limiar, std::nextafter(limiar, 0.0), limiar / 3, 1e-310, NaN, 0.7);
            const double rara =
                um(limiar, std::nextafter(limiar, 2.0), std::nextafter(limiar, 0.0), NaN, Inf, 1e308, 0);
            const double sinal = um(1, -1);
            const unsigned cada = sorte() % 2000 + 1;
            for (; i < fim && i < amostras.size(); ++i) amostras[i] = sinal * (sorte() % cada ? base : rara);
        }
        const unsigned falhas = sorte() % 8;
        g.falha = [&](int64_t primeiro) { return (primeiro / 65536 * 5 + semente) % 8 < falhas; };
        g.amostra = [&](int64_t quadro, int canal) { return amostras[static_cast<size_t>(quadro) * canais + canal]; };

        const std::vector<TrechoSilencio> achado = Analisar(comprimento, limiar, bloco);

        PlainAnalysis plain(limiar, taxa, canais, bloco);
        const std::vector<double> mudo(canais, 0.0);
        for (int i = 0; i < quadros; ++i)
            plain.Frame(g.falha(i / 65536 * 65536) ? mudo.data() : &amostras[static_cast<size_t>(i) * canais], i);
        plain.Finish(quadros);
        const auto esperado = plain.Silence(quadros, taxa);
        ASSERT_EQ(achado.size(), esperado.size());
        for (size_t i = 0; i < achado.size(); ++i)
            ASSERT_EQ(std::pair(achado[i].inicio, achado[i].fim), esperado[i]) << "span " << i;
        EXPECT_EQ(g.lidos, quadros);
        EXPECT_EQ(g.chamadas, g.comFonte ? "CFTNILD" : "CFILD");
    }
}

// What cannot be analysed is left alone, and the accessor is given back all the same.
TEST_F(Analise, OQueNaoCabeFicaIntacto) {
    g.amostra = [](int64_t quadro, int) { return quadro < 20000 ? 1.0 : 0.0; };
    const struct {
        const char* caso;
        double comprimento;
        int taxa, canais;
        bool comLeitor;
        const char* chamadas;
    } casos[] = {
        {"too short", 0.0499, 48000, 1, true, ""},
        {"negative", -5.0, 48000, 1, true, ""},
        {"no accessor", 1.0, 48000, 1, false, "C"},
        {"one frame more than frame numbers reach", 2147483648.0, 1, 1, true, "CFTNID"},
        {"an absurd length", 1e300, 48000, 1, true, "CFTNID"},
        {"an endless one", Inf, 48000, 1, true, "CFTNID"},
        {"not a number", NaN, 48000, 1, true, "CFTNID"},
        {"an absurd rate", 2.0, 2147483647, 1, true, "CFTNID"},
        {"more channels than there is memory for", 1.0, 48000, 2147483647, true, "CFTNID"},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.caso);
        g.taxa = caso.taxa;
        g.canais = caso.canais;
        g.comLeitor = caso.comLeitor;
        EXPECT_EQ(Texto(Analisar(caso.comprimento, 0.5, 0.055)), "");
        EXPECT_EQ(g.chamadas, caso.chamadas);
    }
}
