// The entry bounce: the item stays where it is, and its new source goes on behind both edges.
#include "slicer/bounce.h"

#include "tests/support/story.h"

class Bounce : public Cena {};

TEST_F(Bounce, AbreAteAsAlcasESeEncolheDeVolta) {
    // Of an item of 4 seconds; then of the new source its left handle, and it with the item and both handles.
    const double casos[][6] = {
        {20, 0, 1, 4, 0, 4},            // shows all of its source
        {20, 3, 1, 27, 3, 3 + 4 + 10},  // 3 hidden on the left, 20 on the right
        {20, 8, 2, 16, 4, 4 + 4},       // at twice the speed 8 seconds of source are 4
        {2, 5, 1, 9, 2, 2 + 4},         // not before the project's start
        {20, 30, 1, 100, 10, 24},       // no more than 10
        {20, 3, 0, 27, 3, 3 + 4 + 10},  // a rate that is none counts as 1
    };
    for (const auto& [posicao, inicioNaFonte, taxa, fonte, alcaEsquerda, colado] : casos) {
        Projeto("Voz:");
        const auto silencio = Silence(8000, 2, std::llround(fonte * 8000));
        simhost::Take& take = *Dados(NovoItem(FaixaChamada("Voz"), {"A", posicao, posicao + 4, silencio})).takes[0];
        take.startOffset = inicioNaFonte;
        take.playRate = taxa;
        Selecionar({"A"});
        host.undo.Start();
        SCOPED_TRACE(Retrato());
        EXPECT_TRUE(BounceEntrada(10.0));
        EXPECT_TRUE(BounceEntradaAtivo);
        EXPECT_EQ(Historico(), "Fatiador Bounce Entrada");
        const simhost::Item& novo = *host.project.tracks.ItemAt(0);
        EXPECT_DOUBLE_EQ(novo.position, posicao);
        EXPECT_DOUBLE_EQ(novo.length, 4);
        EXPECT_EQ(novo.Active()->playRate, 1);
        EXPECT_DOUBLE_EQ(novo.Active()->startOffset, alcaEsquerda);
        EXPECT_NEAR(novo.Active()->source->Length(), colado, 1e-3);
    }
}

TEST_F(Bounce, PelaFaixaECadaUmUmaVez) {
    Projeto("1: x 5-7 no take * / 2: a 5-6 * / 3: b 5-8 * | c 20-21");
    EXPECT_TRUE(BounceEntrada(10.0));
    EXPECT_EQ(Retrato(), "1:  5-7 no take / 2: a-glued 5-6 / 3: b-glued 5-8 | c 20-21");
    const auto nada = [] { EXPECT_FALSE(BounceEntrada(10.0) || BounceEntradaAtivo); };
    Contar(nada, "", {{"1: a 5-6"}, {"1: a 5-6 no take *", "1:  5-6 no take *"}});
}
