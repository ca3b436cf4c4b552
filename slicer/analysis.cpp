#include "slicer/analysis.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "slicer/peak_gate.h"

namespace {

constexpr double ComprimentoMinimo = 0.05;  // seconds; a shorter item is left alone
constexpr double SilencioMinimo = 0.001;    // seconds; a span must be longer than this
constexpr int QuadrosPorLeitura = 65536;
constexpr int MaiorQuadro = std::numeric_limits<int>::max();

struct DevolverLeitor {
    void operator()(AudioAccessor* leitor) const { host::DestroyAudioAccessor(leitor); }
};

// An open accessor, and how it is read: as the take's source is, so that the host neither resamples nor mixes down.
struct Leitura {
    std::unique_ptr<AudioAccessor, DevolverLeitor> leitor;
    int taxa = 44100;  // for a take without a source, or one that does not tell
    int canais = 2;
    double inicio = 0.0;  // seconds
};

// The read buffer starts where a cache line does, so that the host copies into it at full speed.
constexpr std::align_val_t AlinhamentoBuffer{64};
struct LiberarBuffer {
    void operator()(double* buffer) const { ::operator delete[](buffer, AlinhamentoBuffer); }
};
using BufferLeitura = std::unique_ptr<double[], LiberarBuffer>;

// Null when there is no memory for that many channels. Zeros, so that what a host leaves unwritten is silence.
BufferLeitura CriarBuffer(int canais) {
    const size_t amostras = static_cast<size_t>(canais) * QuadrosPorLeitura;
    return BufferLeitura(new (AlinhamentoBuffer, std::nothrow) double[amostras]());
}

// The accessor is null when the take has none to give.
Leitura AbrirLeitura(MediaItem_Take* take) {
    Leitura leitura;
    leitura.leitor.reset(host::CreateTakeAudioAccessor(take));
    if (!leitura.leitor) return leitura;
    if (PCM_source* fonte = host::GetMediaItemTake_Source(take)) {
        if (const int taxa = host::GetMediaSourceSampleRate(fonte); taxa > 0) leitura.taxa = taxa;
        if (const int canais = host::GetMediaSourceNumChannels(fonte); canais > 0) leitura.canais = canais;
    }
    leitura.inicio = host::GetAudioAccessorStartTime(leitura.leitor.get());
    return leitura;
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
    PortaDePico porta = {.limiar = limiar,
                         .canais = leitura.canais,
                         .tamanhoJanela = std::max(1, static_cast<int>(leitura.taxa * 0.01)),
                         .blocoMinimo = std::max(1, static_cast<int>(bloco)),
                         .totalQuadros = totalQuadros};
    for (int p = 0, n; p < totalQuadros; p += n) {
        n = std::min(QuadrosPorLeitura, totalQuadros - p);
        const double inicio = leitura.inicio + p / static_cast<double>(leitura.taxa);
        if (host::GetAudioAccessorSamples(leitura.leitor.get(), leitura.taxa, leitura.canais, inicio, n,
                                          buffer.get()) <= 0)
            std::fill_n(buffer.get(), static_cast<size_t>(n) * leitura.canais, 0.0);
        VarrerQuadros(porta, buffer.get(), p, n);
    }
    return std::move(porta.trechos);
}

}  // namespace

std::vector<TrechoSilencio> AnalisarItem(MediaItem_Take* take, double comprimento, double limiarLinear,
                                         double blocoSegundos) {
    if (comprimento < ComprimentoMinimo) return {};
    const Leitura leitura = AbrirLeitura(take);
    if (!leitura.leitor) return {};
    const double quadros = std::ceil(comprimento * leitura.taxa);
    if (!(quadros <= MaiorQuadro)) return {};  // nor a length that is not a number
    const int totalQuadros = static_cast<int>(quadros);
    return SilencioEntre(TrechosDeSom(leitura, totalQuadros, limiarLinear, blocoSegundos), totalQuadros, leitura.taxa);
}
