// The entry bounce: the item stays where it is, and its new source goes on behind both edges.
#include "slicer/bounce.h"

#include "tests/support/story.h"

namespace {

class Bounce : public Cena {};

TEST_F(Bounce, AbreAteAsAlcasESeEncolheDeVolta) {
    const struct {
        double posicao, comprimento, inicioNaFonte, taxa, fonte;
        double alcaEsquerda, comprimentoColado;  // of the new source: left handle + item + right handle
    } casos[] = {
        {20, 4, 0, 1, 4, 0, 4},            // shows all of its source
        {20, 4, 3, 1, 27, 3, 3 + 4 + 10},  // 3 hidden on the left, 20 on the right
        {20, 4, 8, 2, 16, 4, 4 + 4},       // at twice the speed 8 seconds of source are 4
        {2, 4, 5, 1, 9, 2, 2 + 4},         // not before the project's start
        {20, 4, 30, 1, 100, 10, 24},       // no more than 10
        {20, 4, 3, 0, 27, 3, 3 + 4 + 10},  // a rate that is none counts as 1
    };
    MediaTrack* faixa = Faixa("Voz");
    for (const auto& caso : casos) {
        host.project.tracks.SelectAll(true);
        while (host.project.tracks.ItemCount()) host.project.tracks.Remove(*host.project.tracks.ItemAt(0));
        const simhost::SourceRef fonte = simhost::Silence(8000, 2, static_cast<int64_t>(caso.fonte * 8000));
        MediaItem* item = NovoItem(faixa, {"A", caso.posicao, caso.posicao + caso.comprimento, fonte});
        Dados(item).takes[0]->startOffset = caso.inicioNaFonte;
        Dados(item).takes[0]->playRate = caso.taxa;
        Selecionar({"A"});
        host.StartHistory();
        SCOPED_TRACE(Retrato());
        EXPECT_TRUE(BounceEntrada(10.0));
        EXPECT_TRUE(BounceEntradaAtivo);
        EXPECT_EQ(Historico(), "Fatiador Bounce Entrada");
        ASSERT_EQ(host.project.tracks.ItemCount(), 1);
        const simhost::Item& colado = *host.project.tracks.ItemAt(0);
        EXPECT_DOUBLE_EQ(colado.position, caso.posicao);
        EXPECT_DOUBLE_EQ(colado.length, caso.comprimento);
        EXPECT_EQ(colado.Active()->playRate, 1);
        EXPECT_DOUBLE_EQ(colado.Active()->startOffset, caso.alcaEsquerda);
        EXPECT_NEAR(colado.Active()->source->Length(), caso.comprimentoColado, 1e-3);
    }
}

TEST_F(Bounce, PelaFaixaECadaUmUmaVez) {
    Projeto("1: a 5-6 * / 2: b 5-8 * | c 20-21");
    EXPECT_TRUE(BounceEntrada(10.0));
    EXPECT_EQ(Retrato().find("1: "), 0u);
    EXPECT_NE(Retrato().find(" 5-6"), std::string::npos);
    EXPECT_NE(Retrato().find(" 5-8"), std::string::npos);
    for (const char* nada : {"1: a 5-6", "1: a 5-6 no take *"}) {
        Projeto(nada);
        const std::string antes = RetratoCompleto();
        BounceEntradaAtivo = true;
        EXPECT_FALSE(BounceEntrada(10.0));
        EXPECT_FALSE(BounceEntradaAtivo);
        EXPECT_EQ(RetratoCompleto(), antes);
        EXPECT_EQ(Historico(), "");
    }
}

}  // namespace
