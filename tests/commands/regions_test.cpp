// Regions: play, create, rename, delete; and the look at the selection.
#include "commands/commands.h"
#include "tests/support/story.h"

namespace {

class Regioes : public Cena {};

constexpr char SemSelecao[] = "Quilmo: Nenhum item selecionado e nenhuma selecao de tempo ativa.";

template <int n>
void Tocar() {
    PlayRegiao(n);
}

TEST_F(Regioes, TocaPelaOrdemNoTempo) {
    Projeto("[M1 m 1] [R1 b 5-6] [R2 a 2-3]");
    PlayRegiao(1);
    EXPECT_EQ(host.project.cursor, 2);
    EXPECT_EQ(host.project.timeSelection, (simhost::TimeRange{2, 3}));
    EXPECT_EQ(host.project.loop, (simhost::TimeRange{2, 3}));
    EXPECT_EQ(Acoes(), "1007");
    host.playState = 0;
    Contar({
        {"[R1 a 2-3] [R2 b 4-5] [R3 c 6-7]", Tocar<5>, "[R1 a 2-3] [R2 b 4-5] [R3 c 6-7]", "",
         "Quilmo: Regiao 5 nao existe. O projeto tem 3 regiao(oes)."},
        {"[M1 m 1]", Tocar<1>, "[M1 m 1]", "", "Quilmo: Nenhuma regiao encontrada no projeto."},
    });
}

TEST_F(Regioes, CriaDaSelecaoELimpaAsSelecoes) {
    Contar({
        {"Voz (selected): a 1-2 * | b 3-5 *", SelTempoERegiao, "Voz: a 1-2 | b 3-5 [R1 1-5]", "Criar Regiao (Itens)"},
        {"Voz: a 1-2 * {time 4-8}", SelTempoERegiao, "Voz: a 1-2 [R1 4-8]", "Criar Regiao (Loop)"},
        {"Voz: a 1-2 {time 4-4}", SelTempoERegiao, "Voz: a 1-2 {time 4-4}", "Criar Regiao", SemSelecao},
        {"Voz: a 1-2", CriarOuRenomearRegiao, "Voz: a 1-2", "", SemSelecao},
    });
    ResponderTexto("Refrao");
    Contar({{"Voz: a 1-2 * | b 3-5 *", CriarOuRenomearRegiao, "Voz: a 1-2 | b 3-5 [R1 Refrao 1-5]",
             "Criar Regiao (Itens)"}});
    ResponderTexto("");
    Contar({{"Voz: a 1-2 * {time 4-8}", CriarOuRenomearRegiao, "Voz: a 1-2 [R1 4-8]", "Criar Regiao"}});
    CancelarTexto();
    Contar({{"Voz: a 1-2 *", CriarOuRenomearRegiao, "Voz: a 1-2 *"}});
    ASSERT_EQ(host.inputs.size(), 1u);
    EXPECT_EQ(host.inputs[0].title, "Nova Regiao");
    EXPECT_EQ(host.inputs[0].captions, "Nome da regiao:,extrawidth=220");
}

TEST_F(Regioes, RenomeiaADoCursorESoONome) {
    constexpr char cena[] = "Voz: a 1-2 * [R1 Velho 2-6] {cursor 3}";
    ResponderTexto("Novo nome");
    Projeto(cena);
    host.project.markers[0].colour = 0x1010203;
    CriarOuRenomearRegiao();
    EXPECT_EQ(RetratoCompleto(), "Voz: a 1-2 * [R1 Novo nome 2-6 #030201] {cursor 3}");
    EXPECT_EQ(Historico(), "Renomear Regiao");
    EXPECT_EQ(host.inputs.at(0).before, "Velho");
    CancelarTexto();
    Contar({{cena, CriarOuRenomearRegiao, cena}});

    Projeto(cena);
    host.project.markers[0].name = std::string(2000, 'x');  // longer than the dialog's text
    ResponderTexto("curto");
    CriarOuRenomearRegiao();
    EXPECT_EQ(host.inputs.at(0).before, std::string(511, 'x'));
}

TEST_F(Regioes, ApagaUmaSoOuTodasENenhumMarcador) {
    constexpr char uma[] = "Deletar regiao sob cursor ou item";
    Contar({
        // At a shared edge the later one in the list goes; a selected item counts instead of the cursor.
        {"[R1 a 1-3] [R2 b 3-5] {cursor 3}", DeletarRegiaoSobCursor, "[R1 a 1-3] {cursor 3}", uma},
        {"[R1 a 1-3] [R2 b 3-5] {cursor 5}", DeletarRegiaoSobCursor, "[R1 a 1-3] {cursor 5}", uma},
        {"Voz: x 2-9 * [R1 a 1-3] [R2 b 3-5] {cursor 4}", DeletarRegiaoSobCursor, "Voz: x 2-9 * [R2 b 3-5] {cursor 4}",
         uma},
        {"[M1 m 1] [R1 a 2-3] {cursor 1}", DeletarRegiaoSobCursor, "[M1 m 1] [R1 a 2-3] {cursor 1}", uma},
    });
    constexpr char todas[] = "[R1 a 1-2] [M1 m 3] [R2 b 4-5] [R3 c 4-6] [M2 n 7]";
    constexpr char pergunta[] = "Atencao: Tem certeza que deseja apagar TODAS as regioes?";
    ResponderMensagem(7);
    Contar({{todas, LimparRegioes, todas, "", pergunta}});
    ResponderMensagem(6);
    Contar({{todas, LimparRegioes, "[M1 m 3] [M2 n 7]", "Limpar Todas as Regioes", pergunta}});
    ResponderMensagem(6);
    host.FailFrom("DeleteProjectMarker", 2);  // a host that keeps a region must not hold the command for ever
    Contar({{todas, LimparRegioes, "[M1 m 3] [R2 b 4-5] [R3 c 4-6] [M2 n 7]", "Limpar Todas as Regioes", pergunta}});
    host.StopFailing();
}

TEST_F(Regioes, VerSelecaoEmprestaASelecaoDaFaixa) {
    Projeto("Voz (selected): a 1-2 | b 3-5 / Som: c 0-9");
    VerSelecao();
    EXPECT_EQ(Acoes(), "41622");
    EXPECT_EQ(Selecionados(), "");
    EXPECT_EQ(Historico(), "Ver Selecao");
    Projeto("Voz: a 1-2");
    VerSelecao();
    EXPECT_EQ(Acoes(), "");
    EXPECT_EQ(Historico(), "Ver Selecao");
}

}  // namespace
