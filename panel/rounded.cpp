#include "panel/rounded.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "lice/paint.h"
#include "lice/store_row.h"
#include "lice/target.h"

namespace {

// One of the rows that a corner takes, counted from the edge.
struct LinhaDoCanto {
    int recuo;         // pixels left out at each end
    double cobertura;  // of the last of them

    LinhaDoCanto(int raio, int i) {
        const int e = raio - i;
        const double exato = raio - std::sqrt(static_cast<double>(raio * raio - e * e));
        recuo = static_cast<int>(std::ceil(exato));
        cobertura = recuo - exato;
    }
    bool TemBeirada() const { return cobertura > 0.01 && recuo >= 1; }
};

// The rows of the corner of each radius that the panel uses, worked out once.
struct Canto {
    static constexpr int MaiorRaio = 8;
    int recuos[MaiorRaio], pesos[MaiorRaio];  // of the pixels at the ends, in 1/256; 0: none
    bool misturaExata = true;                 // no weight has a form of its own that rounds otherwise

    explicit Canto(int raio) {
        for (int i = 0; i < raio; ++i) {
            const LinhaDoCanto linha(raio, i);
            recuos[i] = linha.recuo;
            pesos[i] = linha.TemBeirada() ? Opacity(static_cast<float>(linha.cobertura)) : 0;
            misturaExata = misturaExata && pesos[i] != 64 && pesos[i] != 128 && pesos[i] != 192;
        }
    }
    static const Canto& De(int raio) {
        static const Canto cantos[] = {Canto(0), Canto(1), Canto(2), Canto(3), Canto(4),
                                       Canto(5), Canto(6), Canto(7), Canto(8)};
        return cantos[raio];
    }
};

struct Retangulo {
    int x, y, w, h, raio;

    // Its corners do not meet, and all of it lies on a surface without a scale.
    bool CabeInteiro(const Target& alvo) const {
        return !alvo.Empty() && alvo.scale == 0 && raio >= 0 && raio <= Canto::MaiorRaio && w > 2 * raio &&
               h > 2 * raio && x >= 0 && y >= 0 && w <= alvo.width - x && h <= alvo.height - y &&
               Canto::De(raio).misturaExata;
    }

    // Fills row by row. The first and the last row have a colour of their own.
    void Preencher(const Target& alvo, LICE_pixel cor, LICE_pixel corDaBeirada) const {
        const Canto& canto = Canto::De(raio);
        LICE_pixel* linha = alvo.At(x, y);
        for (int de = 0, ate = h - 1; ate >= 0; ++de, --ate, linha += alvo.Down()) {
            const int i = std::min(de, ate);
            if (i >= raio) {
                StoreRow(linha, w, i ? cor : corDaBeirada);
                continue;
            }
            const int recuo = canto.recuos[i];
            StoreRow(linha + recuo, w - 2 * recuo, i ? cor : corDaBeirada);
            if (canto.pesos[i] == 0) continue;
            for (LICE_pixel* const ponta : {linha + recuo - 1, linha + w - recuo})
                *ponta = MixOne(*ponta, cor, canto.pesos[i]);
        }
    }
};

}  // namespace

void PreencheArredondado(LICE_IBitmap* bm, int x, int y, int w, int h, int raio, LICE_pixel cor, float alfa) {
    const Target alvo(bm);
    const Retangulo retangulo = {x, y, w, h, raio};
    if (alfa == 1.0f && retangulo.CabeInteiro(alvo)) return retangulo.Preencher(alvo, cor, cor);

    LICE_FilledRect partes[48];  // given to the raster when there is no room for one more row
    int quantas = 0;
    const auto desenhar = [&] { LICE_FillRects(bm, partes, std::exchange(quantas, 0), cor, LICE_BLIT_MODE_COPY); };
    partes[quantas++] = {x, y + raio, w, h - 2 * raio, alfa};
    for (int i = 0; i < raio; ++i) {
        const LinhaDoCanto canto(raio, i);
        const int recuo = canto.recuo;
        if (quantas + 6 > static_cast<int>(std::size(partes))) desenhar();
        for (const int linha : {y + i, y + h - 1 - i}) {
            if (w - 2 * recuo > 0) partes[quantas++] = {x + recuo, linha, w - 2 * recuo, 1, alfa};
            if (canto.TemBeirada())
                for (const int coluna : {x + recuo - 1, x + w - recuo})
                    partes[quantas++] = {coluna, linha, 1, 1, static_cast<float>(alfa * canto.cobertura)};
        }
    }
    desenhar();
}

void ContornoArredondado(LICE_IBitmap* bm, int x, int y, int w, int h, int raio, LICE_pixel cor, float alfa) {
    LICE_RoundRect(bm, static_cast<float>(x), static_cast<float>(y), static_cast<float>(w - 1),
                   static_cast<float>(h - 1), raio, cor, alfa, LICE_BLIT_MODE_COPY, true);
}

void FaceArredondada(LICE_IBitmap* bm, int x, int y, int w, int h, int raio, LICE_pixel cor, LICE_pixel contorno,
                     float alfa) {
    const Target alvo(bm);
    const Retangulo retangulo = {x, y, w, h, raio};
    const int ia = Opacity(alfa);
    // At quarters the sides of an outline are mixed in forms of their own.
    if (raio < 2 || w < 2 * raio + 2 || h < 2 * raio + 2 || !retangulo.CabeInteiro(alvo) || ia < 1 || ia > 256 ||
        ia % 64 == 0) {
        PreencheArredondado(bm, x, y, w, h, raio, cor, 1.0f);
        return ContornoArredondado(bm, x, y, w, h, raio, contorno, alfa);
    }
    const LICE_pixel beirada = MixOne(cor, contorno, ia);
    retangulo.Preencher(alvo, cor, beirada);
    const ptrdiff_t abaixo = alvo.Down();
    LICE_pixel *esquerda = alvo.At(x, y + raio), *direita = esquerda + w - 1;
    // The outline's left side begins a pixel higher, its lower side a pixel further left.
    for (LICE_pixel* const ponta : {esquerda - abaixo, alvo.At(x + raio - 1, y + h - 1)})
        *ponta = MixOne(*ponta, contorno, ia);
    for (int linhas = h - 2 * raio; linhas > 0; --linhas, esquerda += abaixo, direita += abaixo)
        *esquerda = *direita = beirada;
    LICE_RoundCorners(alvo, x, y, w - 1, h - 1, raio, contorno, ia);
}
