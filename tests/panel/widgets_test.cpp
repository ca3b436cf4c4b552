// Widgets on a surface of their own: where the mouse counts, which colours come out, what a drag does.
#include "panel/widgets.h"

#include <gtest/gtest.h>

#include <cmath>

#include "panel/icons.h"

namespace {

constexpr LICE_pixel Vazio = 0xFF0D0D0F;

struct Tela {
    LICE_MemBitmap bm{320, 100, 0};
    Tela() { Limpar(); }
    void Limpar() { LICE_Clear(&bm, Vazio); }
    LICE_pixel Em(int x, int y) { return bm.getBits()[y * bm.getRowSpan() + x]; }
    int Pintados(int x0, int y0, int x1, int y1) {
        int n = 0;
        for (int y = y0; y < y1; ++y)
            for (int x = x0; x < x1; ++x) n += Em(x, y) != Vazio;
        return n;
    }
};

constexpr Celula Lugar = {20, 30, 60, 36};
constexpr int MeioX = 50, MeioY = 48;

EstadoMouse MouseEm(int x, int y) {
    EstadoMouse mouse;
    mouse.x = x;
    mouse.y = y;
    return mouse;
}

TEST(Widgets, AsQuatroBordasContam) {
    Tela tela;
    const struct {
        int x, y;
        bool sobre;
    } casos[] = {{20, 30, true}, {80, 66, true}, {81, 66, false}, {80, 67, false}, {19, 30, false}, {-1, -1, false}};
    for (const auto& caso : casos) {
        EstadoMouse mouse = MouseEm(caso.x, caso.y);
        mouse.esquerdoApertou = mouse.direitoApertou = true;
        AspectoBotao aspecto = {.rotulo = "", .dica = "dica"};
        const ResultadoBotao botao = Botao(&tela.bm, mouse, Lugar, aspecto);
        EXPECT_EQ(botao.sobre, caso.sobre) << caso.x << ", " << caso.y;
        EXPECT_EQ(botao.cliqueEsquerdo, caso.sobre);
        EXPECT_EQ(botao.cliqueDireito, caso.sobre);
        EXPECT_EQ(botao.dica != nullptr, caso.sobre);
        aspecto.desativado = true;
        const ResultadoBotao legenda = Botao(&tela.bm, mouse, Lugar, aspecto);
        EXPECT_FALSE(legenda.sobre || legenda.cliqueEsquerdo || legenda.cliqueDireito || legenda.dica);
    }
}

TEST(Widgets, CoresSeguemOEstado) {
    Tela tela;
    const struct {
        CorBase cor;
        bool sobre, seguro, ativo;
        LICE_pixel fundo;
    } casos[] = {
        {{100, 150, 250}, false, false, false, 0xFF5884DC},  // dimmed, cut: 150 * 0.88 is 132.0, 250 * 0.88 is 220.0
        {{100, 150, 250}, true, false, false, 0xFF73A5FF},   // + 15, held at 255
        {{100, 150, 10}, true, true, false, 0xFF508200},     // - 20, held at 0
        {{100, 150, 10}, false, true, false, 0xFF588408},    // held elsewhere: idle
        {{100, 150, 230}, true, false, true, 0xFF9BCDFF},    // + 15 and then + 40
        {{100, 150, 10}, false, false, true, 0xFF7BA72C},
    };
    for (const auto& caso : casos) {
        EstadoMouse mouse = caso.sobre ? MouseEm(MeioX, MeioY) : EstadoMouse();
        mouse.direitoSeguro = caso.seguro;
        Botao(&tela.bm, mouse, Lugar, {.rotulo = "", .cor = caso.cor, .ativo = caso.ativo});
        EXPECT_EQ(tela.Em(MeioX, MeioY), caso.fundo) << std::hex << tela.Em(MeioX, MeioY);
    }
}

// Grey 165 is dark, 166 is light: the outline turns from white to black.
TEST(Widgets, LuminanciaEscolheOContorno) {
    for (const int cinza : {165, 166}) {
        Tela tela;
        Botao(&tela.bm, MouseEm(MeioX, MeioY), Lugar, {.rotulo = "", .cor = {cinza - 15, cinza - 15, cinza - 15}});
        const int fundo = tela.Em(MeioX, MeioY) & 0xFF, borda = tela.Em(MeioX, 30) & 0xFF;
        EXPECT_EQ(fundo, cinza);
        if (cinza == 165)
            EXPECT_GT(borda, fundo);
        else
            EXPECT_LT(borda, fundo);
    }
}

TEST(Widgets, CantosArredondadosSaoSimetricosEMeioCobertos) {
    Tela tela;
    PreencheArredondado(&tela.bm, 20, 30, 60, 36, 5, 0xFFFFFFFF, 1.0f);
    EXPECT_EQ(tela.Em(20, 30), Vazio);
    EXPECT_EQ(tela.Em(25, 30), 0xFFFFFFFFu);  // the exact inset of the first row is 5: no partial pixel
    EXPECT_EQ(tela.Em(24, 30), Vazio);
    EXPECT_EQ(tela.Em(22, 31), 0xFFFFFFFFu);  // the second row's is 2: 5 - sqrt(25 - 16)
    EXPECT_EQ(tela.Em(21, 31), Vazio);
    // The third row's is 1, the fourth's 5 - sqrt(21) = 0.417...: its outer pixel is covered by 0.583.
    const int cheio = 255, vazio = 0x0D, alfa = static_cast<int>(static_cast<float>(std::sqrt(21.0) - 4) * 256.0);
    EXPECT_EQ(static_cast<int>(tela.Em(20, 33) >> 16 & 0xFF), cheio + (vazio - cheio) * (256 - alfa) / 256);
    for (int y = 0; y < 36; ++y)
        for (int x = 0; x < 60; ++x) {
            ASSERT_EQ(tela.Em(20 + x, 30 + y), tela.Em(79 - x, 30 + y));
            ASSERT_EQ(tela.Em(20 + x, 30 + y), tela.Em(20 + x, 65 - y));
        }
}

TEST(Widgets, RotuloEncolheAteNoveEAiTransborda) {
    const char texto[] = "RENDERIZA PROJETO";
    const TextoAjustado justo = AjustarTexto(texto, 15, 0, LarguraTexto(texto, 11) + 6);
    EXPECT_EQ(justo.tamanho, 11);
    EXPECT_EQ(justo.largura, LarguraTexto(texto, 11));
    EXPECT_EQ(AjustarTexto(texto, 15, 0, LarguraTexto(texto, 11) + 5).tamanho, 10);
    EXPECT_EQ(AjustarTexto(texto, 15, 20.5f, LarguraTexto(texto, 11) + 26).tamanho, 10);
    EXPECT_EQ(AjustarTexto(texto, 12, 0, 10).tamanho, 9);
    const struct { int largura, tamanho; } tamanhos[] = {{201, 16}, {200, 15}, {100, 15}, {99, 14}, {50, 14}, {49, 12}};
    for (const auto& caso : tamanhos) EXPECT_EQ(TamanhoDaFonte(caso.largura), caso.tamanho);
}

class Slider : public testing::Test {
  protected:
    ResultadoSlider Passar(int x, bool seguro, bool apertou, float valor) {
        EstadoMouse mouse = MouseEm(x, y);
        mouse.esquerdoSeguro = seguro;
        mouse.esquerdoApertou = apertou;
        return SliderPainel(
            &tela.bm, mouse, arrastado, {50, 30, 200, 36},
            {.id = id, .cor = {45, 100, 120}, .valor = valor, .minimo = -80, .maximo = -6, .desativado = desativado});
    }
    // How far the filled part reaches.
    int Cheio() {
        int w = 0;
        while (w < 200 && (tela.Em(50 + w, 48) & 0xFF0000) != 0x2E0000 && (tela.Em(50 + w, 48) & 0xFF0000) != 0x260000)
            ++w;
        return w;
    }
    Tela tela;
    const char* arrastado = nullptr;
    const char* id = "db";
    int y = 40;
    bool desativado = false;
};

TEST_F(Slider, ArrastoSegueForaETerminaUmaVez) {
    EXPECT_FALSE(Passar(100, true, false, -37).mudou) << "a button held elsewhere does not catch it";
    ResultadoSlider r = Passar(150, true, true, -37);
    EXPECT_TRUE(r.mudou);
    EXPECT_EQ(r.valor, -43);  // the middle of -80 to -6
    EXPECT_FALSE(r.soltou);
    y = 90;
    EXPECT_EQ(Passar(153, true, false, -43).valor, -42);  // 0.515 of 74 is 38.11 above -80: the floor
    EXPECT_EQ(Passar(900, true, false, -42).valor, -6);
    id = "ms";
    EXPECT_FALSE(Passar(100, true, false, -42).mudou) << "another slider's drag";
    const std::string db = "db";  // the drag is known by its text, wherever that stands
    id = db.c_str();
    r = Passar(-900, false, false, -42);
    EXPECT_EQ(r.valor, -80);
    EXPECT_TRUE(r.soltou);
    EXPECT_EQ(arrastado, nullptr);
    EXPECT_FALSE(Passar(100, false, false, -80).soltou);
}

TEST_F(Slider, DesativadoNaoPegaEForaDosLimitesFicaNaPonta) {
    desativado = true;
    const ResultadoSlider r = Passar(150, true, true, -37);
    EXPECT_FALSE(r.mudou || r.sobre);
    desativado = false;
    const struct {
        float valor;
        int cheio;
    } casos[] = {{-90, 0}, {-79.3f, 0}, {-43, 100}, {-6, 200}, {3, 200}, {HUGE_VALF, 200}, {std::nanf(""), 0}};
    for (const auto& caso : casos) {
        tela.Limpar();
        y = 0;
        Passar(0, false, false, caso.valor);
        EXPECT_NEAR(Cheio(), caso.cheio, 1) << caso.valor;
    }
}

TEST(Icones, FormasNoLugarENomesPorConteudo) {
    Tela tela;
    DesenhaIcone(&tela.bm, 10, 10, 16.2f, "nada", CorBranca, 1.0f);
    EXPECT_EQ(tela.Pintados(0, 0, 320, 100), 0);
    const std::string pausa = "pause";
    DesenhaIcone(&tela.bm, 10, 10, 16.2f, pausa.c_str(), CorBranca, 1.0f);
    // Two bars of 4 by 16, the second at trunc(10 + 16.2 - 4.86).
    EXPECT_EQ(tela.Pintados(10, 10, 14, 26), 64);
    EXPECT_EQ(tela.Pintados(21, 10, 25, 26), 64);
    EXPECT_EQ(tela.Pintados(0, 0, 320, 100), 128);
    for (const char* nome : {"start", "end"}) {
        tela.Limpar();
        DesenhaIcone(&tela.bm, 10, 10, 9.0f, nome, CorBranca, 1.0f);
        const int barra = nome[0] == 's' ? 10 : 17;
        EXPECT_EQ(tela.Pintados(barra, 10, barra + 2, 19), 18) << "at least 2 pixels wide";
    }
    // Which of the corners are painted: left top, right top, left bottom, right bottom.
    const struct {
        const char *nome, *cantos;
    } casos[] = {{"play", "1010"},     {"right", "1010"},    {"left", "0101"},     {"up", "0011"},
                 {"down", "1100"},     {"stop", "1111"},     {"rec", "0000"},      {"circle", "0000"},
                 {"zoom_in", "0001"},  {"zoom_out", "0001"}, {"zoom_sel", "0001"}, {"zoom_all", "0001"},
                 {"zoom_vert", "0000"}};
    for (const auto& [nome, cantos] : casos) {
        tela.Limpar();
        DesenhaIcone(&tela.bm, 40, 40, 16.2f, nome, CorBranca, 0.88f);
        EXPECT_GT(tela.Pintados(39, 39, 58, 58), 20) << nome;
        EXPECT_EQ(tela.Pintados(39, 39, 58, 58), tela.Pintados(0, 0, 320, 100)) << nome << " stays in its square";
        std::string pintados;
        for (const int y : {40, 54})
            for (const int x : {40, 54}) pintados += tela.Pintados(x, y, x + 2, y + 2) ? '1' : '0';
        EXPECT_EQ(pintados, cantos) << nome;
    }
}

}  // namespace
