#include "slicer/analysis.h"

#include <cstdlib>
#include <limits>
#include <random>

#include "tests/slicer/plain_analysis.h"
#include "tests/support/portrait.h"

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Inf = std::numeric_limits<double>::infinity();

// The one take that there is to read. The slots answer from it.
struct Gravacao {
    int taxa = 48000, canais = 1;  // as its source says
    bool comFonte = true, comLeitor = true;
    double inicio = 0.25;  // the accessor's
    std::vector<double> amostras = {};
    std::function<bool(int64_t)> falha = [](int64_t) { return true; };  // whether the read that starts there fails
    int64_t pedidos = 0, abertos = 0, lidos = 0;  // accessors asked for and not given back; frames read
};
static Gravacao* gravacao;

static int Ler(AudioAccessor*, int taxa, int canais, double inicio, int quadros, double* amostras) {
    Gravacao& g = *gravacao;
    EXPECT_EQ(inicio, g.inicio + static_cast<double>(g.lidos) / taxa);
    EXPECT_LE(quadros, 65536);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(amostras) % 64, 0u);
    const int64_t primeiro = g.lidos;
    g.lidos += quadros;
    if (g.falha(primeiro)) return primeiro % 131072 ? 0 : -1;
    std::copy_n(&g.amostras[primeiro * canais], static_cast<size_t>(quadros) * canais, amostras);
    return 1;
}

class Analise : public testing::Test {
  protected:
    Analise() {
        gravacao = &g;
        host::CreateTakeAudioAccessor = [](MediaItem_Take*) {
            ++gravacao->pedidos;
            gravacao->abertos += gravacao->comLeitor;
            return gravacao->comLeitor ? reinterpret_cast<AudioAccessor*>(gravacao) : nullptr;
        };
        host::GetMediaItemTake_Source = [](MediaItem_Take*) {
            return gravacao->comFonte ? reinterpret_cast<PCM_source*>(gravacao) : nullptr;
        };
        host::GetMediaSourceSampleRate = [](PCM_source*) { return gravacao->taxa; };
        host::GetMediaSourceNumChannels = [](PCM_source*) { return gravacao->canais; };
        host::GetAudioAccessorStartTime = [](AudioAccessor*) { return gravacao->inicio; };
        host::GetAudioAccessorSamples = Ler;
        host::DestroyAudioAccessor = [](AudioAccessor*) { --gravacao->abertos; };
    }

    std::vector<TrechoSilencio> Analisar(double comprimento, double limiar, double bloco) {
        g.pedidos = g.lidos = 0;
        std::vector<TrechoSilencio> silencio = AnalisarItem(nullptr, comprimento, limiar, bloco);
        EXPECT_EQ(g.abertos, 0);
        return silencio;
    }

    std::string Texto(double comprimento, double limiar, double bloco) {
        std::string texto;
        for (const auto& [inicio, fim] : Analisar(comprimento, limiar, bloco))
            texto += (texto.empty() ? "" : " | ") + Numero(inicio) + '-' + Numero(fim);
        return texto;
    }

    Gravacao g;
};

TEST_F(Analise, PausasBordasELimiar) {
    const double abaixo = std::nextafter(0.5, 0.0);
    struct Som {  // of one level between these milliseconds; elsewhere it is 0
        double inicio, fim, nivel = 1.0;
        int canal = 0;
    };
    const struct {
        std::vector<Som> sons;
        const char* silencio;
        double comprimento = 1.0;
    } casos[] = {
        {{{100, 200, 0.5}, {500, 600, abaixo}}, "0-0.1 | 0.2-1"},           // at the threshold it sounds
        {{{100, 200, -0.5}}, "0-0.1 | 0.2-1"},                              // whatever its sign
        {{{100, 200, 1, 2}, {600, 700, 1, 1}}, "0-0.1 | 0.2-0.6 | 0.7-1"},  // on one channel, too
        {{{0, 100}, {160, 1000}}, "0.1-0.16"},                              // 55 ms are six windows
        {{{0, 100}, {150, 1000}}, ""},                                      // five are not enough
        {{{0, 100}, {140, 141}, {190, 1000}}, ""},                          // a pause interrupted
        {{{10, 1000}}, "0-0.01"},                                           // a first stretch needs no block,
        {{{0, 1000}}, "1-1.005", 1.005},                                    // nor does the last,
        {{{0, 1000}}, "", 1.001},                                           // but more than a millisecond
        {{{300, 1000}, {1004, 1005}}, "0-0.3", 1.005},                      // a short last window
        {{{0, 1000, abaixo}, {0, 1000, abaixo, 2}}, ""},                    // nothing sounds
        {{{20, 50}}, "0-0.02", 0.05},
    };
    g.canais = 3;
    g.falha = [](int64_t) { return false; };
    for (const auto& caso : casos) {
        g.amostras.assign(48 * 1010 * 3, 0.0);
        for (const Som& som : caso.sons)
            for (auto quadro = std::lround(som.inicio * 48); quadro < std::lround(som.fim * 48); ++quadro)
                g.amostras[quadro * 3 + som.canal] = som.nivel;
        EXPECT_EQ(Texto(caso.comprimento, 0.5, 0.055), caso.silencio) << "case " << &caso - casos;
    }
}

// By looking at each frame in turn; those that cannot be read are silent.
static std::vector<std::pair<double, double>> Exame(const Gravacao& g, int taxa, int canais, double limiar,
                                                    double bloco) {
    PlainAnalysis plain(limiar, taxa, canais, bloco);
    const std::vector<double> mudo(canais, 0.0);
    const int quadros = static_cast<int>(g.amostras.size()) / canais;
    for (int i = 0; i < quadros; ++i)
        plain.Frame(g.falha(i / 65536 * 65536) ? mudo.data() : &g.amostras[static_cast<size_t>(i) * canais], i);
    return plain.Silence(quadros, taxa);
}

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
        g.amostras.assign(static_cast<size_t>(quadros) * canais, 0.0);
        for (size_t i = 0; i < g.amostras.size();) {
            const size_t fim = i + 1 + sorte() % (taxa / 5 * canais + 1);
            const double base = um(0, 0, limiar, std::nextafter(limiar, 0.0), limiar / 3, 1e-310, NaN, 0.7);
            const double rara =
                um(limiar, std::nextafter(limiar, 2.0), std::nextafter(limiar, 0.0), NaN, Inf, 1e308, 0);
            const double sinal = um(1, -1);
            const unsigned cada = sorte() % 2000 + 1;
            for (; i < fim && i < g.amostras.size(); ++i) g.amostras[i] = sinal * (sorte() % cada ? base : rara);
        }
        const unsigned falhas = sorte() % 8;
        g.falha = [&](int64_t primeiro) { return (primeiro / 65536 * 5 + semente) % 8 < falhas; };

        std::vector<std::pair<double, double>> achado;
        for (const auto& [inicio, fim] : Analisar(comprimento, limiar, bloco)) achado.emplace_back(inicio, fim);
        ASSERT_EQ(achado, Exame(g, taxa, canais, limiar, bloco));
        EXPECT_EQ(g.lidos, quadros);
    }
}

// What cannot be analysed is left alone.
TEST_F(Analise, OQueNaoCabeFicaIntacto) {
    const std::tuple<double, int, int, bool> casos[] = {
        {0.0499, 48000, 1, true},   {-5.0, 48000, 1, true},         {1.0, 48000, 1, false},
        {2147483648.0, 1, 1, true},  // one frame more than frame numbers reach
        {1e300, 48000, 1, true},    {Inf, 48000, 1, true},          {NaN, 48000, 1, true},
        {2.0, 2147483647, 1, true}, {1.0, 48000, 2147483647, true},  // more channels than there is memory for
    };
    for (const auto& [comprimento, taxa, canais, comLeitor] : casos) {
        g.taxa = taxa;
        g.canais = canais;
        g.comLeitor = comLeitor;
        EXPECT_TRUE(Analisar(comprimento, 0.5, 0.055).empty()) << comprimento << " s at " << taxa;
        EXPECT_EQ(g.pedidos, comprimento < 0.05 ? 0 : 1);
        EXPECT_EQ(g.lidos, 0);
    }
}
