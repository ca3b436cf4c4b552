#include "slicer/peak_gate.h"

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace {

constexpr size_t AmostrasPorBloco = 64;
constexpr size_t AntecipacaoBytes = 1536;  // how far ahead memory is asked for

// The upper halves of four samples; the top 16 bits of each are a sign, the exponent and the first digits.
__m128i MetadesAltas(const double* amostras) {
    const __m128 primeiras = _mm_castpd_ps(_mm_loadu_pd(amostras));
    const __m128 seguintes = _mm_castpd_ps(_mm_loadu_pd(amostras + 2));
    return _mm_castps_si128(_mm_shuffle_ps(primeiras, seguintes, _MM_SHUFFLE(3, 1, 3, 1)));
}

// Whether some sample of a block of 64 may reach the threshold. Without their sign, bits order as the numbers do:
// where all top 16 bits stay below the threshold's, all samples stay below it.
bool ChegaPerto(const double* bloco, double limiar) {
    const int topoDoLimiar = static_cast<int>(std::bit_cast<int64_t>(limiar) >> 48);
    const __m128i semSinal = _mm_set1_epi32(0x7fffffff);
    __m128i pares = _mm_setzero_si128(), impares = pares;  // two, so that neither waits for the other
    for (size_t i = 0; i < AmostrasPorBloco; i += 8) {
        pares = _mm_max_epi16(pares, _mm_and_si128(MetadesAltas(bloco + i), semSinal));
        impares = _mm_max_epi16(impares, _mm_and_si128(MetadesAltas(bloco + i + 4), semSinal));
    }
    // The lower lanes hold further digits, which do not count: nothing is above theirs.
    const __m128i abaixo = _mm_set1_epi32((topoDoLimiar - 1) * 0x10000 | 0x7fff);
    return _mm_movemask_epi8(_mm_cmpgt_epi16(_mm_max_epi16(pares, impares), abaixo)) != 0;
}

// The first sample that reaches the threshold; `quantas` when none does.
size_t PrimeiraQueAlcanca(const double* amostras, size_t quantas, double limiar) {
    if (0.0 >= limiar) return 0;
    const auto procurar = [=](size_t de, size_t ate) {
        return static_cast<size_t>(
            std::find_if(amostras + de, amostras + ate, [=](double amostra) { return std::fabs(amostra) >= limiar; }) -
            amostras);
    };
    if (quantas < AmostrasPorBloco) return procurar(0, quantas);
    for (size_t i = 0; i < quantas; i += AmostrasPorBloco) {
        const size_t bloco = std::min(i, quantas - AmostrasPorBloco);  // the last one overlaps the one before it
        _mm_prefetch(reinterpret_cast<const char*>(amostras + bloco) + AntecipacaoBytes, _MM_HINT_T0);
        if (!ChegaPerto(amostras + bloco, limiar)) continue;
        const size_t achada = procurar(bloco, bloco + AmostrasPorBloco);
        if (achada < bloco + AmostrasPorBloco) return achada;
    }
    return quantas;
}

// The frames that one call was given.
struct Trecho {
    const double* amostras;
    int inicio, fim;
};

// The first sounding frame from `de` to before `ate`; `ate` when none sounds.
int PrimeiroQuadroQueSoa(const PortaDePico& porta, const Trecho& lidos, int de, int ate) {
    const size_t canais = porta.canais, quantas = (ate - de) * canais;
    const size_t achada = PrimeiraQueAlcanca(lidos.amostras + (de - lidos.inicio) * canais, quantas, porta.limiar);
    return achada < quantas ? de + static_cast<int>(achada / canais) : ate;
}

int InicioDaJanela(const PortaDePico& porta, int quadro) { return quadro - quadro % porta.tamanhoJanela; }

// The frame behind the window that begins there.
int FimDaJanela(const PortaDePico& porta, int inicio) {
    return inicio + std::min(porta.tamanhoJanela, porta.totalQuadros - inicio);
}

// Outside a run: the next sounding frame opens one. Returns the frame to go on from.
int AbrirTrecho(PortaDePico& porta, const Trecho& lidos, int quadro) {
    const int achado = PrimeiroQuadroQueSoa(porta, lidos, quadro, lidos.fim);
    if (achado == lidos.fim) return achado;
    const int inicio = InicioDaJanela(porta, achado), fim = FimDaJanela(porta, inicio);
    porta.trechos.push_back({inicio, fim});
    return fim;
}

// The first frame, at a window's start, whose sound would no longer belong to the last run.
int64_t AlcanceDoTrecho(const PortaDePico& porta) {
    const int64_t janela = porta.tamanhoJanela;
    return porta.trechos.back().fim + (porta.blocoMinimo + janela - 1) / janela * janela;
}

// Inside a run: of the windows within its reach only the last that sounds counts, so they are tried from the last one
// backwards. Returns the frame to go on from.
int ProlongarTrecho(PortaDePico& porta, const Trecho& lidos, int quadro) {
    const int ate = static_cast<int>(std::min<int64_t>(AlcanceDoTrecho(porta), lidos.fim));
    for (int fim = ate; fim > quadro;) {
        const int janela = InicioDaJanela(porta, fim - 1), inicio = std::max(janela, quadro);
        if (PrimeiroQuadroQueSoa(porta, lidos, inicio, fim) < fim)
            return porta.trechos.back().fim = FimDaJanela(porta, janela);
        fim = inicio;
    }
    return ate;
}

}  // namespace

void VarrerQuadros(PortaDePico& porta, const double* amostras, int p, int n) {
    const Trecho lidos = {amostras, p, p + n};
    const auto dentroDeUm = [&porta](int quadro) { return !porta.trechos.empty() && quadro < AlcanceDoTrecho(porta); };
    // A window that sounds is not looked at any further, so the last run may already end behind p.
    for (int quadro = porta.trechos.empty() ? p : std::max(p, porta.trechos.back().fim); quadro < lidos.fim;)
        quadro = dentroDeUm(quadro) ? ProlongarTrecho(porta, lidos, quadro) : AbrirTrecho(porta, lidos, quadro);
}
