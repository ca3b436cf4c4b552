#include "panel/status.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "panel/observer.h"

char StatusMsg[160] = "";

void DefinirStatus(const char* formato, ...) {
    va_list argumentos;
    va_start(argumentos, formato);
    std::vsnprintf(StatusMsg, sizeof StatusMsg, formato, argumentos);
    va_end(argumentos);
}

void StatusExecutado(const char* nome) {
    if (std::strncmp(nome, "Action_", 7) == 0)
        StatusMsg[0] = '\0';
    else
        DefinirStatus("Executado: %s", nome);
}

void BarraStatus(LICE_IBitmap* bm, int x, int y, int w, const char* texto) {
    constexpr int altura = 22;
    constexpr CorBase fundo = {20, 20, 23};
    const bool temTexto = texto && *texto;
    char linha[256] = "PAINEL PRONTO";
    if (temTexto) std::snprintf(linha, sizeof linha, "i  %s", texto);
    if (Observador) Observador({PaginaEmCurso, {x, y, w, altura}, {.rotulo = linha, .cor = fundo}});

    LICE_FillRect(bm, x, y, w, altura, LICE_RGBA(fundo.r, fundo.g, fundo.b, 0xFF), 0.95f, LICE_BLIT_MODE_COPY);
    LICE_RoundRect(bm, static_cast<float>(x), static_cast<float>(y), static_cast<float>(w), static_cast<float>(altura),
                   0, CorBranca, 0.03f, LICE_BLIT_MODE_COPY, false);
    EscreverTexto(bm, linha, 12, temTexto ? 0xFF4CA6F2 : 0x66808C99, {x + 8, y, x + w - 8, y + altura}, TextoAEsquerda);
}
