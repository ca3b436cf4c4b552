#include "panel/theme.h"

#include <algorithm>

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
