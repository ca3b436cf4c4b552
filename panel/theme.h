// panel/theme.h
// The look that all pages share: colours, sizes, and the fonts. Sizes are pixels and never scale.
#pragma once
#include "lice/lice.h"

inline constexpr LICE_pixel CorFundo = 0xFF0D0D0F;  // the page, cleared in each pass
inline constexpr LICE_pixel CorBranca = 0xFFFFFFFF;
inline constexpr LICE_pixel CorTextoEscuro = 0xFF14141A;  // on light fills
inline constexpr int RaioDoCanto = 5;                     // of buttons and sliders

// The font of that pixel height, 1 to 63 (others count as the nearest); made once and kept to the end of the process.
LICE_CachedFont* FontePainel(int altura);
// In pixels, on one line.
int LarguraTexto(const char* texto, int altura);
// The font size for a widget of that width.
int TamanhoDaFonte(int largura);
// The largest size, from `tamanho` down to 9, at which the text and `extra` pixels fit between the side margins; and
// the text's width at that size. A text too long at 9 overflows.
struct TextoAjustado {
    int tamanho, largura;
};
TextoAjustado AjustarTexto(const char* texto, int tamanho, float extra, int larguraDoWidget);

// One line of text in the rectangle, centred vertically; `formato` holds the DrawText flags.
void EscreverTexto(LICE_IBitmap* bm, const char* texto, int altura, LICE_pixel cor, RECT lugar, UINT formato);
inline constexpr UINT TextoAEsquerda = DT_NOPREFIX | DT_SINGLELINE | DT_VCENTER;  // 0x824
inline constexpr UINT TextoNoCentro = TextoAEsquerda | DT_CENTER;                 // 0x825
