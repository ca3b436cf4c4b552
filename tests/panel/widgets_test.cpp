// What a widget makes of the mouse, and which size its label gets.
#include "panel/widgets.h"

static LICE_MemBitmap Tela(320, 100, 0);

static EstadoMouse MouseEm(int x, int y) {
    EstadoMouse mouse;
    mouse.x = x;
    mouse.y = y;
    return mouse;
}

TEST(Widgets, AsQuatroBordasContam) {
    const std::tuple<int, int, bool> casos[] = {{20, 30, true},  {80, 66, true},  {81, 66, false}, {80, 67, false},
                                                {19, 30, false}, {20, 29, false}, {-1, -1, false}};
    for (const auto& [x, y, sobre] : casos) {
        EstadoMouse mouse = MouseEm(x, y);
        mouse.esquerdoApertou = mouse.direitoApertou = true;
        AspectoBotao aspecto = {.rotulo = "", .dica = "dica"};
        const auto passar = [&] { return Botao(&Tela, mouse, {20, 30, 60, 36}, aspecto); };
        const ResultadoBotao botao = passar();
        EXPECT_EQ(botao.sobre, sobre) << x << ", " << y;
        EXPECT_EQ(botao.cliqueEsquerdo, sobre);
        EXPECT_EQ(botao.cliqueDireito, sobre);
        EXPECT_EQ(botao.dica != nullptr, sobre);
        aspecto.desativado = true;
        const ResultadoBotao legenda = passar();
        EXPECT_FALSE(legenda.sobre || legenda.cliqueEsquerdo || legenda.cliqueDireito || legenda.dica);
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
    for (const auto& [largura, tamanho] : {std::pair{201, 16}, {200, 15}, {100, 15}, {99, 14}, {50, 14}, {49, 12}})
        EXPECT_EQ(TamanhoDaFonte(largura), tamanho);
    EXPECT_EQ(FontePainel(0), FontePainel(1));
    EXPECT_EQ(FontePainel(64), FontePainel(63));
}

// The ink of a label, whatever the face: in the middle, and in the size of the font.
TEST(Widgets, RotuloEscritoNoMeio) {
    LICE_Clear(&Tela, 0);
    EscreverTexto(&Tela, "HOH", 15, CorBranca, {40, 20, 240, 60}, TextoNoCentro);
    RECT tinta{320, 100, 0, 0};
    for (LONG y = 0; y < 100; ++y)
        for (LONG x = 0; x < 320; ++x)
            if (Tela.getBits()[y * Tela.getRowSpan() + x] != 0)
                tinta = {std::min(tinta.left, x), std::min(tinta.top, y), std::max(tinta.right, x + 1),
                         std::max(tinta.bottom, y + 1)};
    EXPECT_NEAR(tinta.left + tinta.right, 280, 3);
    EXPECT_NEAR(tinta.top + tinta.bottom, 80, 6);
    EXPECT_NEAR(tinta.right - tinta.left, LarguraTexto("HOH", 15), 4);
    EXPECT_NEAR(tinta.bottom - tinta.top, 10, 3);
}

TEST(Widgets, ArrastoSegueForaETerminaUmaVez) {
    const char *arrastado = nullptr, *id = "db";
    int y = 40;
    bool desativado = false;
    const auto passar = [&](int x, bool seguro, bool apertou, float valor) {
        EstadoMouse mouse = MouseEm(x, y);
        mouse.esquerdoSeguro = seguro;
        mouse.esquerdoApertou = apertou;
        return SliderPainel(&Tela, mouse, arrastado, {50, 30, 200, 36},
                            {.id = id, .valor = valor, .minimo = -80, .maximo = -6, .desativado = desativado});
    };
    EXPECT_FALSE(passar(100, true, false, -37).mudou) << "a button held elsewhere does not catch it";
    ResultadoSlider r = passar(150, true, true, -37);
    EXPECT_TRUE(r.mudou);
    EXPECT_EQ(r.valor, -43);  // the middle of -80 to -6
    EXPECT_FALSE(r.soltou);
    y = 90;
    EXPECT_EQ(passar(153, true, false, -43).valor, -42);  // 0.515 of 74 is 38.11 above -80: the floor
    EXPECT_EQ(passar(900, true, false, -42).valor, -6);
    id = "ms";
    EXPECT_FALSE(passar(100, true, false, -42).mudou) << "another slider's drag";
    const std::string db = "db";  // the drag is known by its text, wherever that stands
    id = db.c_str();
    r = passar(-900, false, false, -42);
    EXPECT_EQ(r.valor, -80);
    EXPECT_TRUE(r.soltou);
    EXPECT_EQ(arrastado, nullptr);
    EXPECT_FALSE(passar(100, false, false, -80).soltou);
    desativado = true;
    r = passar(150, true, true, -37);
    EXPECT_FALSE(r.mudou || r.sobre);
}
