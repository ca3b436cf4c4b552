#include "panel/widgets.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "panel/icons.h"
#include "panel/observer.h"
#include "panel/rounded.h"

static bool DentroDaCelula(const Celula& c, const EstadoMouse& mouse) {
    return mouse.x >= c.x && mouse.x <= c.x + c.w && mouse.y >= c.y && mouse.y <= c.y + c.h;
}

static CorBase Somar(CorBase cor, int degraus) {
    const auto canal = [degraus](int c) { return std::clamp(c + degraus, 0, 255); };
    return {canal(cor.r), canal(cor.g), canal(cor.b)};
}

// Darker while pressed or dragged, else lighter under the pointer.
static CorBase CorDoEstado(CorBase cor, bool apertado, bool aceso) {
    if (apertado) return Somar(cor, -20);
    return aceso ? Somar(cor, 15) : cor;
}

static float Brilho(bool aceso) { return aceso ? 1.0f : 0.88f; }

static float AlfaDoContorno(bool aceso) { return aceso ? 0.12f : 0.03f; }

static LICE_pixel CorDeFundo(CorBase cor, bool aceso) {
    const float brilho = Brilho(aceso);
    const auto canal = [brilho](int c) { return static_cast<int>(c * brilho) & 0xFF; };
    return LICE_RGBA(canal(cor.r), canal(cor.g), canal(cor.b), 0xFF);
}

static void Contornar(LICE_IBitmap* bm, const Celula& c, LICE_pixel cor, float alfa) {
    ContornoArredondado(bm, c.x, c.y, c.w, c.h, RaioDoCanto, cor, alfa);
}

// A red line from corner to corner, thickened by a second one half a pixel further on.
static void AmostraDeLimpar(LICE_IBitmap* bm, const Celula& c) {
    constexpr LICE_pixel contorno = 0xFF2D2D30, risco = 0xFFD94040;
    constexpr float recuo = 2.5f;
    Contornar(bm, c, contorno, 1.0f);
    for (const float mais : {0.0f, 0.5f})
        LICE_Line(bm, static_cast<int>(c.x + recuo + mais), static_cast<int>(c.y + recuo + mais),
                  static_cast<int>(c.x + c.w - recuo + mais), static_cast<int>(c.y + c.h - recuo + mais), risco, 1.0f,
                  LICE_BLIT_MODE_COPY, true);
}

static void RotuloNoCentro(LICE_IBitmap* bm, const Celula& c, const char* rotulo, LICE_pixel cor, int d) {
    const int tamanho = AjustarTexto(rotulo, TamanhoDaFonte(c.w), 0, c.w).tamanho;
    EscreverTexto(bm, rotulo, tamanho, cor, {c.x + d, c.y + d, c.x + c.w + d, c.y + c.h + d}, TextoNoCentro);
}

// The icon alone in the middle, or the icon and the label beside it, centred together.
static void IconeERotulo(LICE_IBitmap* bm, const Celula& c, const AspectoBotao& aspecto, LICE_pixel cor, float alfa,
                         int d) {
    constexpr int vao = 6;
    const float lado = 0.45f * std::min(c.w, c.h);
    float ix = c.x + (c.w - lado) / 2 + d;
    const float iy = c.y + (c.h - lado) / 2 + d;
    if (aspecto.rotulo && *aspecto.rotulo) {
        const TextoAjustado texto = AjustarTexto(aspecto.rotulo, TamanhoDaFonte(c.w), lado + vao, c.w);
        ix = c.x + (c.w - (vao + lado + texto.largura)) / 2 + d;
        const int tx = static_cast<int>(ix + lado + vao);
        EscreverTexto(bm, aspecto.rotulo, texto.tamanho, cor, {tx, c.y + d, tx + texto.largura + 4, c.y + c.h + d},
                      TextoAEsquerda);
    }
    DesenhaIcone(bm, static_cast<int>(ix), static_cast<int>(iy), lado, aspecto.icone, cor, alfa);
}

ResultadoBotao Botao(LICE_IBitmap* bm, const EstadoMouse& mouse, const Celula& c, const AspectoBotao& aspecto) {
    const bool sobre = !aspecto.desativado && DentroDaCelula(c, mouse);
    const bool apertado = sobre && (mouse.esquerdoSeguro || mouse.direitoSeguro);
    const ResultadoBotao resultado = {.cliqueEsquerdo = sobre && mouse.esquerdoApertou,
                                      .cliqueDireito = sobre && mouse.direitoApertou,
                                      .sobre = sobre,
                                      .dica = sobre ? aspecto.dica : nullptr};
    if (Observador) Observador({PaginaEmCurso, c, aspecto, sobre, apertado});

    CorBase cor = CorDoEstado(aspecto.cor, apertado, sobre);
    if (aspecto.ativo) cor = Somar(cor, 40);
    const bool fundoClaro = 0.299 * cor.r + 0.587 * cor.g + 0.114 * cor.b > 165;

    const bool contornoEscuro = fundoClaro && !aspecto.ativo;
    const float alfa = aspecto.ativo ? 0.4f : fundoClaro ? (sobre ? 0.15f : 0.04f) : AlfaDoContorno(sobre);
    FaceArredondada(bm, c.x, c.y, c.w, c.h, RaioDoCanto, CorDeFundo(cor, sobre),
                    contornoEscuro ? 0xFF000000 : CorBranca, alfa);

    const LICE_pixel corDoTexto = fundoClaro ? CorTextoEscuro : CorBranca;
    const int d = apertado ? 1 : 0;  // what is pressed sinks by a pixel
    if (aspecto.icone && std::strcmp(aspecto.icone, "clear") == 0)
        AmostraDeLimpar(bm, c);
    else if (aspecto.icone)
        IconeERotulo(bm, c, aspecto, corDoTexto, Brilho(sobre), d);
    else if (aspecto.rotulo)
        RotuloNoCentro(bm, c, aspecto.rotulo, corDoTexto, d);
    return resultado;
}

static AspectoBotao AspectoDe(const AspectoSlider& s) {
    return {.rotulo = s.rotulo, .cor = s.cor, .dica = s.dica, .desativado = s.desativado};
}

ResultadoSlider SliderPainel(LICE_IBitmap* bm, const EstadoMouse& mouse, const char*& arrastado, const Celula& c,
                             const AspectoSlider& aspecto) {
    ResultadoSlider resultado = {.valor = aspecto.valor};
    bool preso = arrastado && std::strcmp(arrastado, aspecto.id) == 0;
    const bool dentro = DentroDaCelula(c, mouse);
    const bool aceso = !aspecto.desativado && (dentro || preso);
    resultado.sobre = aceso;
    resultado.dica = aceso ? aspecto.dica : nullptr;
    if (!aspecto.desativado && dentro && mouse.esquerdoApertou) {
        arrastado = aspecto.id;
        preso = true;
    }
    const float extensao = aspecto.maximo - aspecto.minimo;
    if (preso) {
        const float t = std::clamp(static_cast<float>(mouse.x - c.x) / c.w, 0.0f, 1.0f);
        const float novo = std::floor(t * extensao + aspecto.minimo);
        if (novo != resultado.valor) {
            resultado.valor = novo;
            resultado.mudou = true;
        }
        if (!mouse.esquerdoSeguro) {
            arrastado = nullptr;
            resultado.soltou = true;
            preso = false;
        }
    }
    if (Observador) Observador({PaginaEmCurso, c, AspectoDe(aspecto), aceso, preso, &aspecto});

    PreencheArredondado(bm, c.x, c.y, c.w, c.h, RaioDoCanto, aceso ? 0xFF2E2E32 : 0xFF262628, 1.0f);
    // In this order what is not a number counts as nothing.
    const float parte = std::max(0.0f, std::min((resultado.valor - aspecto.minimo) / extensao, 1.0f));
    const int cheio = static_cast<int>(c.w * parte + 0.5f);
    if (cheio > 2)
        PreencheArredondado(bm, c.x, c.y, cheio, c.h, std::min(RaioDoCanto, cheio / 2),
                            CorDeFundo(CorDoEstado(aspecto.cor, preso, aceso), aceso), 1.0f);
    Contornar(bm, c, CorBranca, AlfaDoContorno(aceso));
    if (aspecto.rotulo && *aspecto.rotulo)
        RotuloNoCentro(bm, c, aspecto.rotulo, aceso ? CorBranca : 0xE0FFFFFF, preso ? 1 : 0);
    return resultado;
}
