// Regions: play, create, rename, delete; and the look at the selection.
#include "commands/commands.h"
#include "tests/support/story.h"

class Regioes : public Cena {};

TEST_F(Regioes, TocaPelaOrdemNoTempo) {
    Projeto("[M1 m 1] [R1 b 5-6] [R2 a 2-3]");
    std::swap(host.project.markers[1], host.project.markers[2]);
    PlayRegiao(1);
    EXPECT_EQ(RetratoCompleto(), "[M1 m 1] [R1 b 5-6] [R2 a 2-3] {cursor 2} {time 2-3} {loop 2-3} {play 1}");
    EXPECT_EQ(Acoes(), "Tocar");
    Contar([] { PlayRegiao(5); }, "",
           {{"[R1 a 2-3] [R2 b 4-5] [R3 c 6-7]", nullptr, "Quilmo: Regiao 5 nao existe. O projeto tem 3 regiao(oes)."},
            {"[M1 m 1]", nullptr, "Quilmo: Nenhuma regiao encontrada no projeto."}});
}

TEST_F(Regioes, CriaDaSelecaoELimpaAsSelecoes) {
    constexpr char semSelecao[] = "Quilmo: Nenhum item selecionado e nenhuma selecao de tempo ativa.";
    Contar(SelTempoERegiao, "Criar Regiao (Itens)",
           {{"Voz (selected): a 1-2 * | b 3-5 *", "Voz: a 1-2 | b 3-5 [R1 1-5]"}});
    Contar(SelTempoERegiao, "Criar Regiao (Loop)", {{"Voz: a 1-2 * {time 4-8}", "Voz: a 1-2 [R1 4-8]"}});
    Contar(SelTempoERegiao, "Criar Regiao", {{"Voz: a 1-2 {time 4-4}", nullptr, semSelecao}});
    Contar(CriarOuRenomearRegiao, "", {{"Voz: a 1-2", nullptr, semSelecao}});
    ResponderTexto("Refrao");
    ResponderTexto("");
    ResponderTexto(std::nullopt);
    Contar(CriarOuRenomearRegiao, "Criar Regiao (Itens)",
           {{"Voz: a 1-2 * | b 3-5 *", "Voz: a 1-2 | b 3-5 [R1 Refrao 1-5]"}});
    Contar(CriarOuRenomearRegiao, "Criar Regiao", {{"Voz: a 1-2 * {time 4-8}", "Voz: a 1-2 [R1 4-8]"}});
    Contar(CriarOuRenomearRegiao, "", {{"Voz: a 1-2 *"}});
    ASSERT_EQ(host.dialogs.inputs.size(), 1u);
    EXPECT_EQ(host.dialogs.inputs[0].title, "Nova Regiao");
    EXPECT_EQ(host.dialogs.inputs[0].captions, "Nome da regiao:,extrawidth=220");
}

TEST_F(Regioes, RenomeiaADoCursorESoONome) {
    constexpr char cena[] = "Voz: a 1-2 * [R1 Velho 2-6] {cursor 3}";
    ResponderTexto(std::nullopt);
    Contar(CriarOuRenomearRegiao, "", {{cena}});
    ResponderTexto("Novo nome");
    host.project.markers[0].colour = 0x1010203;
    CriarOuRenomearRegiao();
    EXPECT_EQ(RetratoCompleto(), "Voz: a 1-2 * [R1 Novo nome 2-6 #030201] {cursor 3}");
    EXPECT_EQ(Historico(), "Renomear Regiao");
    EXPECT_EQ(host.dialogs.inputs.at(1).before, "Velho");
    host.project.markers[0].name = std::string(2000, 'x');  // longer than the dialog's text
    ResponderTexto(std::nullopt);
    CriarOuRenomearRegiao();
    EXPECT_EQ(host.dialogs.inputs.at(2).before, std::string(511, 'x'));
}

TEST_F(Regioes, ApagaUmaSoOuTodasENenhumMarcador) {
    // At a shared edge the later one in the list goes; a selected item counts instead of the cursor.
    Contar(DeletarRegiaoSobCursor, "Deletar regiao sob cursor ou item",
           {{"[R1 a 1-3] [R2 b 3-5] {cursor 3}", "[R1 a 1-3] {cursor 3}"},
            {"[R1 a 1-3] [R2 b 3-5] {cursor 5}", "[R1 a 1-3] {cursor 5}"},
            {"Voz: x 2-9 * [R1 a 1-3] [R2 b 3-5] {cursor 4}", "Voz: x 2-9 * [R2 b 3-5] {cursor 4}"},
            {"[M1 m 1] [R1 a 2-3] {cursor 1}"}});
    constexpr char todas[] = "[R1 a 1-2] [M1 m 3] [R2 b 4-5] [R3 c 4-6] [M2 n 7]";
    constexpr char pergunta[] = "Atencao: Tem certeza que deseja apagar TODAS as regioes?";
    for (const int resposta : {7, 6, 6}) ResponderMensagem(resposta);
    Contar(LimparRegioes, "", {{todas, nullptr, pergunta}});
    Contar(LimparRegioes, "Limpar Todas as Regioes", {{todas, "[M1 m 3] [M2 n 7]", pergunta}});
    host.calls.FailFrom("DeleteProjectMarker", 2);  // a host that keeps a region must not hold the command for ever
    Contar(LimparRegioes, "Limpar Todas as Regioes", {{todas, "[M1 m 3] [R2 b 4-5] [R3 c 4-6] [M2 n 7]", pergunta}});
}

TEST_F(Regioes, VerSelecaoEmprestaASelecaoDaFaixa) {
    for (const auto& [cena, acoes] :
         {std::pair{"Voz (selected): a 1-2 | b 3-5 / Som: c 0-9", "ZoomNosItens"}, {"Voz: a 1-2", ""}}) {
        Projeto(cena);
        VerSelecao();
        EXPECT_EQ(Acoes(), acoes);
        EXPECT_EQ(Selecionados(), "");
        EXPECT_EQ(Historico(), "Ver Selecao");
    }
}
