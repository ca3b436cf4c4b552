#include "panel/icons.h"

#include <algorithm>
#include <cstring>

namespace {

// The primitives with what all of an icon's share. Coordinates are floats that are cut to whole pixels one by one.
struct Pincel {
    LICE_IBitmap* bm;
    LICE_pixel cor;
    float alfa;

    static int Pixel(float v) { return static_cast<int>(v); }
    void Retangulo(float x, float y, float w, float h) const {
        LICE_FillRect(bm, Pixel(x), Pixel(y), Pixel(w), Pixel(h), cor, alfa, LICE_BLIT_MODE_COPY);
    }
    void Triangulo(float x1, float y1, float x2, float y2, float x3, float y3) const {
        LICE_FillTriangle(bm, Pixel(x1), Pixel(y1), Pixel(x2), Pixel(y2), Pixel(x3), Pixel(y3), cor, alfa,
                          LICE_BLIT_MODE_COPY);
    }
    void Linha(float x1, float y1, float x2, float y2) const {
        LICE_Line(bm, Pixel(x1), Pixel(y1), Pixel(x2), Pixel(y2), cor, alfa, LICE_BLIT_MODE_COPY, true);
    }
    void Disco(float cx, float cy, float r) const {
        LICE_FillCircle(bm, cx, cy, r, cor, alfa, LICE_BLIT_MODE_COPY, true);
    }
    void Anel(float cx, float cy, float r) const { LICE_Circle(bm, cx, cy, r, cor, alfa, LICE_BLIT_MODE_COPY, true); }
};

// Each icon's shape in the square of side s at x, y.
using Forma = void (*)(const Pincel&, float x, float y, float s);

void Direita(const Pincel& p, float x, float y, float s) { p.Triangulo(x, y, x + s, y + s / 2, x, y + s); }

void Esquerda(const Pincel& p, float x, float y, float s) { p.Triangulo(x + s, y, x + s, y + s, x, y + s / 2); }

void Cima(const Pincel& p, float x, float y, float s) { p.Triangulo(x + s / 2, y, x + s, y + s, x, y + s); }

void Baixo(const Pincel& p, float x, float y, float s) { p.Triangulo(x, y, x + s, y, x + s / 2, y + s); }

void Pausa(const Pincel& p, float x, float y, float s) {
    p.Retangulo(x, y, 0.3f * s, s);
    p.Retangulo(x + s - 0.3f * s, y, 0.3f * s, s);
}

void Quadrado(const Pincel& p, float x, float y, float s) { p.Retangulo(x, y, s, s); }

void Gravar(const Pincel& p, float x, float y, float s) { p.Disco(x + s / 2, y + s / 2, 0.35f * s); }

void Disco(const Pincel& p, float x, float y, float s) { p.Disco(x + s / 2, y + s / 2, s / 2); }

float LarguraDaBarra(float s) { return std::max(2.0f, 0.15f * s); }

void Inicio(const Pincel& p, float x, float y, float s) {
    const int si = static_cast<int>(s);
    p.Retangulo(x, y, LarguraDaBarra(s), si);
    p.Triangulo(x + s, y, x + s, y + (si - 1), x + 0.25f * s, y + (si - 1) / 2);
}

void Fim(const Pincel& p, float x, float y, float s) {
    const int si = static_cast<int>(s);
    p.Triangulo(x, y, x + 0.75f * s, y + (si - 1) / 2, x, y + (si - 1));
    p.Retangulo(x + 0.85f * s, y, LarguraDaBarra(s), si);
}

void SetaDupla(const Pincel& p, float x, float y, float s) {
    const float m = x + s / 2, ponta = 0.28f * s, meia = 0.26f * s;
    p.Linha(m, y + ponta, m, y + s - ponta);
    p.Triangulo(m, y, m + meia, y + ponta, m - meia, y + ponta);
    p.Triangulo(m - meia, y + s - ponta, m + meia, y + s - ponta, m, y + s);
}

struct Lente {
    float cx, cy, r;
};

// The magnifying glass that the zoom icons share; rim and handle are thickened by a second stroke.
Lente Lupa(const Pincel& p, float x, float y, float s) {
    const Lente l = {x + 0.38f * s, y + 0.38f * s, 0.38f * s};
    const float hx = l.cx + 0.707f * l.r, hy = l.cy + 0.707f * l.r;
    const float ex = x + 0.92f * s, ey = y + 0.92f * s;
    p.Anel(l.cx, l.cy, l.r);
    p.Anel(l.cx, l.cy, l.r - 0.5f);
    p.Linha(hx, hy, ex, ey);
    p.Linha(hx + 0.5f, hy - 0.5f, ex + 0.5f, ey - 0.5f);
    return l;
}

void TracoHorizontal(const Pincel& p, const Lente& l, float d) { p.Linha(l.cx - d, l.cy, l.cx + d, l.cy); }

void Cruz(const Pincel& p, const Lente& l, float d) {
    TracoHorizontal(p, l, d);
    p.Linha(l.cx, l.cy - d, l.cx, l.cy + d);
}

void LupaMenos(const Pincel& p, float x, float y, float s) { TracoHorizontal(p, Lupa(p, x, y, s), 0.2f * s); }

void LupaMais(const Pincel& p, float x, float y, float s) { Cruz(p, Lupa(p, x, y, s), 0.2f * s); }

void LupaSelecao(const Pincel& p, float x, float y, float s) {
    const Lente l = Lupa(p, x, y, s);
    const float dx = 0.18f * s, dy = 0.12f * s;
    p.Linha(l.cx - dx, l.cy - dy, l.cx + dx, l.cy - dy);
    p.Linha(l.cx + dx, l.cy - dy, l.cx + dx, l.cy + dy);
    p.Linha(l.cx + dx, l.cy + dy, l.cx - dx, l.cy + dy);
    p.Linha(l.cx - dx, l.cy + dy, l.cx - dx, l.cy - dy);
}

void LupaTudo(const Pincel& p, float x, float y, float s) {
    const Lente l = Lupa(p, x, y, s);
    const float d = 0.2f * s, farpa = 3.0f;
    Cruz(p, l, d);
    for (const float lado : {-1.0f, 1.0f}) {
        const float ponta = l.cx + lado * d, volta = ponta - lado * farpa;
        p.Linha(ponta, l.cy, volta, l.cy - farpa);
        p.Linha(ponta, l.cy, volta, l.cy + farpa);
    }
    for (const float lado : {-1.0f, 1.0f}) {
        const float ponta = l.cy + lado * d, volta = ponta - lado * farpa;
        p.Linha(l.cx, ponta, l.cx - farpa, volta);
        p.Linha(l.cx, ponta, l.cx + farpa, volta);
    }
}

const struct {
    const char* nome;
    Forma forma;
} Icones[] = {
    {"play", Direita},
    {"pause", Pausa},
    {"stop", Quadrado},
    {"rec", Gravar},
    {"circle", Disco},
    {"up", Cima},
    {"down", Baixo},
    {"left", Esquerda},
    {"right", Direita},
    {"start", Inicio},
    {"end", Fim},
    {"zoom_in", LupaMais},
    {"zoom_out", LupaMenos},
    {"zoom_sel", LupaSelecao},
    {"zoom_all", LupaTudo},
    {"zoom_vert", SetaDupla},
};

// The colour with that opacity as its alpha byte.
LICE_pixel CorComAlfa(LICE_pixel cor, float alfa) {
    return (cor & 0x00FFFFFF) | static_cast<LICE_pixel>(static_cast<int>(255 * alfa)) << 24;
}

}  // namespace

void DesenhaIcone(LICE_IBitmap* bm, int x, int y, float s, const char* nome, LICE_pixel cor, float alfa) {
    const Pincel pincel = {bm, CorComAlfa(cor, alfa), alfa};
    for (const auto& icone : Icones)
        if (std::strcmp(icone.nome, nome) == 0)
            return icone.forma(pincel, static_cast<float>(x), static_cast<float>(y), s);
}
