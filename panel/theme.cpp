#include "panel/theme.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "platform/font.h"

LICE_CachedFont* FontePainel(int altura) {
    static LICE_CachedFont* fontes[64];  // never freed: glyph caches live to the end of the process
    LICE_CachedFont*& fonte = fontes[std::clamp(altura, 1, 63)];
    if (!fonte) {
        fonte = new LICE_CachedFont;
        fonte->SetFromHFont(CreateInterfaceFont(-altura), LICE_FONT_FLAG_OWNS_HFONT);
    }
    return fonte;
}

int LarguraTexto(const char* texto, int altura) {
    RECT medida = {};
    FontePainel(altura)->DrawText(nullptr, texto, -1, &medida, DT_CALCRECT | DT_NOPREFIX | DT_SINGLELINE);
    return medida.right - medida.left;
}

int TamanhoDaFonte(int largura) {
    if (largura > 200) return 16;
    if (largura >= 100) return 15;
    return largura >= 50 ? 14 : 12;
}

TextoAjustado AjustarTexto(const char* texto, int tamanho, float extra, int larguraDoWidget) {
    constexpr int menorTamanho = 9, margens = 6;
    int largura = LarguraTexto(texto, tamanho);
    while (largura + extra > larguraDoWidget - margens && tamanho > menorTamanho)
        largura = LarguraTexto(texto, --tamanho);
    return {tamanho, largura};
}

void EscreverTexto(LICE_IBitmap* bm, const char* texto, int altura, LICE_pixel cor, RECT lugar, UINT formato) {
    LICE_CachedFont* fonte = FontePainel(altura);
    fonte->SetTextColor(cor);
    fonte->DrawText(bm, texto, -1, &lugar, formato);
}

void PreencheArredondado(LICE_IBitmap* bm, int x, int y, int w, int h, int raio, LICE_pixel cor, float alfa) {
    LICE_FilledRect partes[48];  // given to the raster when there is no room for one more row
    int quantas = 0;
    const auto desenhar = [&] { LICE_FillRects(bm, partes, std::exchange(quantas, 0), cor, LICE_BLIT_MODE_COPY); };
    partes[quantas++] = {x, y + raio, w, h - 2 * raio, alfa};
    for (int i = 0; i < raio; ++i) {
        const int e = raio - i;
        const double recuoExato = raio - std::sqrt(static_cast<double>(raio * raio - e * e));
        const int recuo = static_cast<int>(std::ceil(recuoExato));
        const double cobertura = recuo - recuoExato;  // of the pixel at each end of the row
        if (quantas + 6 > static_cast<int>(std::size(partes))) desenhar();
        for (const int linha : {y + i, y + h - 1 - i}) {
            if (w - 2 * recuo > 0) partes[quantas++] = {x + recuo, linha, w - 2 * recuo, 1, alfa};
            if (cobertura > 0.01 && recuo >= 1)
                for (const int coluna : {x + recuo - 1, x + w - recuo})
                    partes[quantas++] = {coluna, linha, 1, 1, static_cast<float>(alfa * cobertura)};
        }
    }
    desenhar();
}

void ContornoArredondado(LICE_IBitmap* bm, int x, int y, int w, int h, int raio, LICE_pixel cor, float alfa) {
    LICE_RoundRect(bm, static_cast<float>(x), static_cast<float>(y), static_cast<float>(w - 1),
                   static_cast<float>(h - 1), raio, cor, alfa, LICE_BLIT_MODE_COPY, true);
}
