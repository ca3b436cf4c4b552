#include "slicer/analysis.h"

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <utility>

namespace {

constexpr double ComprimentoMinimo = 0.05;  // seconds; a shorter item is left alone
constexpr double SilencioMinimo = 0.001;    // seconds; a span must be longer than this
constexpr int QuadrosPorLeitura = 65536;
constexpr int MaiorQuadro = std::numeric_limits<int>::max();

// Frames of sound: the first, and the one behind the last.
struct TrechoSom {
    int inicio;
    int fim;
};

// The window being filled. It keeps no peak, only whether the peak has reached the threshold: nothing else is asked of
// it.
struct JanelaPico {
    int inicio = 0;
    int quadros = 0;
    bool soa = false;
};

// An open accessor, and how it is read: as the take's source is, so that the host neither resamples nor mixes down.
struct Leitura {
    AudioAccessor* leitor;
    int taxa = 44100;  // for a take without a source, or one that does not tell
    int canais = 2;
    double inicio = 0.0;  // seconds
};

struct Varredura {
    const double limiar;
    const size_t canais;
    const int tamanhoJanela;  // frames
    const int blocoMinimo;    // frames of silence that end a run
    JanelaPico janela = {};
    TrechoSom aberto = {-1, -1};  // the open run; none while its start is negative
    int quadrosMudos = 0;         // since the open run's last sounding window
    std::vector<TrechoSom> trechos = {};
};

// The read buffer starts where a cache line does: copies into it, the system's own above all, are then at full speed.
constexpr std::align_val_t AlinhamentoBuffer{64};
struct LiberarBuffer {
    void operator()(double* buffer) const { ::operator delete[](buffer, AlinhamentoBuffer); }
};
using BufferLeitura = std::unique_ptr<double[], LiberarBuffer>;

// Null when there is no memory for that many channels.
BufferLeitura CriarBuffer(int canais) {
    const size_t amostras = static_cast<size_t>(canais) * QuadrosPorLeitura;
    return BufferLeitura(new (AlinhamentoBuffer, std::nothrow) double[amostras]);
}

// The accessor is null when the take has none to give.
Leitura AbrirLeitura(MediaItem_Take* take) {
    Leitura leitura = {.leitor = host::CreateTakeAudioAccessor(take)};
    if (!leitura.leitor) return leitura;
    if (PCM_source* fonte = host::GetMediaItemTake_Source(take)) {
        if (const int taxa = host::GetMediaSourceSampleRate(fonte); taxa > 0) leitura.taxa = taxa;
        if (const int canais = host::GetMediaSourceNumChannels(fonte); canais > 0) leitura.canais = canais;
    }
    leitura.inicio = host::GetAudioAccessorStartTime(leitura.leitor);
    return leitura;
}

// The upper halves of four samples' absolute values.
__m128i MetadesAltas(const double* amostras) {
    const __m128 primeiras = _mm_castpd_ps(_mm_loadu_pd(amostras));
    const __m128 seguintes = _mm_castpd_ps(_mm_loadu_pd(amostras + 2));
    const __m128i altas = _mm_castps_si128(_mm_shuffle_ps(primeiras, seguintes, _MM_SHUFFLE(3, 1, 3, 1)));
    return _mm_and_si128(altas, _mm_set1_epi32(0x7fffffff));
}

// Whether the samples' peak, their largest absolute value and at least 0.0, reaches the threshold. It does when any
// sample does: what is not a number neither reaches a threshold nor raises a peak. Bits without a sign order as the
// numbers do, so a block whose upper halves are all below the threshold's is below it; any other block is asked sample
// by sample.
bool PicoAlcanca(const double* amostras, size_t quantas, double limiar) {
    if (0.0 >= limiar) return true;
    const auto alcanca = [limiar](double amostra) { return std::fabs(amostra) >= limiar; };
    const int metadeLimiar = static_cast<int>(std::bit_cast<int64_t>(limiar) >> 32);
    const __m128i abaixo = _mm_set1_epi32(metadeLimiar - 1);
    const auto chegaPerto = [abaixo](const double* oito) {
        return _mm_or_si128(_mm_cmpgt_epi32(MetadesAltas(oito), abaixo),
                            _mm_cmpgt_epi32(MetadesAltas(oito + 4), abaixo));
    };
    size_t i = 0;
    for (; i + 32 <= quantas; i += 32) {
        const double* bloco = amostras + i;
        const __m128i a = _mm_or_si128(chegaPerto(bloco), chegaPerto(bloco + 8));
        const __m128i b = _mm_or_si128(chegaPerto(bloco + 16), chegaPerto(bloco + 24));
        if (_mm_movemask_epi8(_mm_or_si128(a, b)) && std::any_of(bloco, bloco + 32, alcanca)) return true;
    }
    return std::any_of(amostras + i, amostras + quantas, alcanca);
}

void FecharTrechoSom(Varredura& v) {
    v.trechos.push_back(v.aberto);
    v.aberto.inicio = -1;
    v.quadrosMudos = 0;
}

// fim is the frame behind the window's last. Silence outside a run is not counted.
void FecharJanelaPico(Varredura& v, int fim) {
    if (v.janela.soa) {
        if (v.aberto.inicio < 0) v.aberto.inicio = v.janela.inicio;
        v.aberto.fim = fim;
        v.quadrosMudos = 0;
    } else if (v.aberto.inicio >= 0) {
        v.quadrosMudos += fim - v.janela.inicio;
        if (v.quadrosMudos >= v.blocoMinimo) FecharTrechoSom(v);
    }
    v.janela = {};
}

// Inside a run, whose silence never fills the block yet, of the windows up to where it could only the last that sounds
// matters, so it is looked for from there backwards. Whole windows begin at frame p; the answer is how many frames are
// dealt with.
int SeguirTrechoAberto(Varredura& v, const double* amostras, int p, int janelas) {
    const int ateOBloco = (v.blocoMinimo - v.quadrosMudos - 1) / v.tamanhoJanela + 1;
    const size_t amostrasDaJanela = v.tamanhoJanela * v.canais;
    const int quantas = std::min(janelas, ateOBloco);
    int soam = quantas;
    while (soam > 0 && !PicoAlcanca(amostras + (soam - 1) * amostrasDaJanela, amostrasDaJanela, v.limiar)) --soam;
    if (soam > 0) {
        v.aberto.fim = p + soam * v.tamanhoJanela;
        v.quadrosMudos = 0;
    }
    v.quadrosMudos += (quantas - soam) * v.tamanhoJanela;
    if (v.quadrosMudos >= v.blocoMinimo) FecharTrechoSom(v);
    return quantas * v.tamanhoJanela;
}

// Scans n frames that begin at the item's frame p. A window may begin in one call and end in the next; once it sounds,
// the rest of it need not be looked at.
void VarrerLeitura(Varredura& v, const double* amostras, int p, int n) {
    for (int i = 0; i < n;) {
        JanelaPico& janela = v.janela;
        const double* aqui = amostras + i * v.canais;
        const int janelasInteiras = janela.quadros == 0 ? (n - i) / v.tamanhoJanela : 0;
        if (v.aberto.inicio >= 0 && janelasInteiras > 0) {
            i += SeguirTrechoAberto(v, aqui, p + i, janelasInteiras);
            continue;
        }
        if (janela.quadros == 0) janela.inicio = p + i;
        const int quadros = std::min(v.tamanhoJanela - janela.quadros, n - i);
        janela.soa = janela.soa || PicoAlcanca(aqui, quadros * v.canais, v.limiar);
        janela.quadros += quadros;
        i += quadros;
        if (janela.quadros == v.tamanhoJanela) FecharJanelaPico(v, p + i);
    }
}

// What lies before, between and behind the runs.
std::vector<TrechoSilencio> SilencioEntre(const std::vector<TrechoSom>& trechos, int totalQuadros, double taxa) {
    std::vector<TrechoSilencio> silencio;
    if (trechos.empty()) return silencio;
    int anterior = 0;
    const auto guardarAte = [&](int quadro) {
        const TrechoSilencio trecho = {anterior / taxa, quadro / taxa};
        if (quadro > anterior && trecho.fim - trecho.inicio > SilencioMinimo) silencio.push_back(trecho);
    };
    for (const TrechoSom& som : trechos) {
        guardarAte(som.inicio);
        anterior = som.fim;
    }
    guardarAte(totalQuadros);
    return silencio;
}

// Reads the whole item, once. A read that fails counts as silence.
std::vector<TrechoSom> TrechosDeSom(const Leitura& leitura, int totalQuadros, double limiar, double blocoSegundos) {
    const BufferLeitura buffer = CriarBuffer(leitura.canais);
    if (!buffer) return {};
    const double bloco = std::min<double>(std::ceil(blocoSegundos * leitura.taxa), MaiorQuadro);
    Varredura v = {.limiar = limiar,
                   .canais = static_cast<size_t>(leitura.canais),
                   .tamanhoJanela = std::max(1, static_cast<int>(leitura.taxa * 0.01)),
                   .blocoMinimo = std::max(1, static_cast<int>(bloco))};
    for (int p = 0, n; p < totalQuadros; p += n) {
        n = std::min(QuadrosPorLeitura, totalQuadros - p);
        const double inicio = leitura.inicio + p / static_cast<double>(leitura.taxa);
        if (host::GetAudioAccessorSamples(leitura.leitor, leitura.taxa, leitura.canais, inicio, n, buffer.get()) <= 0)
            std::fill_n(buffer.get(), n * v.canais, 0.0);
        VarrerLeitura(v, buffer.get(), p, n);
    }
    if (v.janela.quadros > 0) FecharJanelaPico(v, totalQuadros);
    if (v.aberto.inicio >= 0) FecharTrechoSom(v);
    return std::move(v.trechos);
}

}  // namespace

std::vector<TrechoSilencio> AnalisarItem(MediaItem_Take* take, double comprimento, double limiarLinear,
                                         double blocoSegundos) {
    if (comprimento < ComprimentoMinimo) return {};
    const Leitura leitura = AbrirLeitura(take);
    if (!leitura.leitor) return {};
    const double quadros = std::ceil(comprimento * leitura.taxa);
    std::vector<TrechoSilencio> silencio;
    if (quadros <= MaiorQuadro) {  // false also for a length that is not a number
        const int totalQuadros = static_cast<int>(quadros);
        silencio =
            SilencioEntre(TrechosDeSom(leitura, totalQuadros, limiarLinear, blocoSegundos), totalQuadros, leitura.taxa);
    }
    host::DestroyAudioAccessor(leitura.leitor);
    return silencio;
}
