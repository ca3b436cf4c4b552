// Recording, stopping, jumping; and what opening the panel sets in the host.
#include "commands/commands.h"
#include "host/actions.h"
#include "panel/host_options.h"
#include "tests/support/story.h"

class Transporte : public Cena {};

TEST_F(Transporte, GravaNasArmadasSenaoNasSelecionadas) {
    Contar(ExecutarGravacao, "",
           {{"1: / 2 (selected): / 3:", "1: / 2 (armed, selected): / 3: {play 5}"},
            {"1 (armed): / 2 (selected):", "1 (armed): / 2 (selected): {play 5}"},
            {"1: / 2:", nullptr, "Quilmo: Nenhuma faixa selecionada. Selecione uma faixa para gravar."}});
    Projeto("1 (selected):");
    Dados(FaixaChamada("1")).armed = 0.5;  // only exactly 1 is armed
    ExecutarGravacao();
    EXPECT_EQ(RetratoCompleto(), "1 (armed, selected): {play 5}");
    EXPECT_EQ(Acoes(), "Gravar");
}

TEST_F(Transporte, PararDesarmaELimpa) {
    constexpr char gravando[] = "1 (armed, selected): a 1-2 * / 2 (armed): {time 1-2} {play 5}";
    Contar(ExecutarGravacao, "", {{gravando, "1 (selected): a 1-2 * / 2: {time 1-2}"}});  // now it is the stop button
    EXPECT_EQ(Acoes(), "PararGravacao");
    Contar(PararTudo, "", {{gravando, "1: a 1-2 / 2:"}});
    EXPECT_EQ(Acoes(), "DesselecionarFaixas TirarSelecaoDeTempo Parar");
}

TEST_F(Transporte, SaltaParaABordaMaisProxima) {
    const std::tuple<const char*, double, double> casos[] = {
        {"1: a 1-2 | b 3-5 {cursor 4}", 3, 5},
        {"1: a 1-2 | b 3-5 {cursor 3.0005}", 1, 5},                            // too near the start of b
        {"1: a 1-2 | b 3-5 {cursor 1.9995}", 1, 5},                            // too near the end of a
        {"1: a 1-2 | b 3-5 {cursor 9}", 3, 9},                                 // nothing behind: stays
        {"1: a 1-2 {cursor 0.5}", 0, 2},                                       // nothing before: to the start
        {"1: a 1-2 / 2: b 3-5 * / 3 (selected): c 6-7 {cursor 5.5}", 3, 5.5},  // the selected item's track
        {"1: a 1-2 / 2 (selected): b 3-5 {cursor 2.5}", 0, 5},                 // else the selected track
        {"1: a 1-2 / 2: b 3-5 {cursor 2.5}", 1, 5},                            // else all
    };
    for (const auto& [cena, anterior, proximo] : casos) {
        Projeto(cena);
        PrevItemStart();
        EXPECT_EQ(host.project.cursor, anterior) << cena;
        Projeto(cena);
        NextItemEnd();
        EXPECT_EQ(host.project.cursor, proximo) << cena;
    }
}

TEST_F(Transporte, PreparaSoOQueEstaLigado) {
    host.actions.toggles = {{acao::AlternarLinhasDeGrade, 0}, {acao::Opcao1161, 0}};
    host.settings.SetNumber("promptendrec", 1);
    PrepararHost();
    EXPECT_EQ(Acoes(), "DesligarSnap");
    EXPECT_EQ(host.settings.Number("promptendrec"), 0);

    host.actions.run.clear();
    host.actions.toggles = {{acao::AlternarLinhasDeGrade, 1}, {acao::Opcao1161, 1}};
    host.settings.host["promptendrec"] = {7, 7};  // of another size: left alone
    PrepararHost();
    EXPECT_EQ(Acoes(), "DesligarSnap AlternarLinhasDeGrade DesligarOpcao1161");
    EXPECT_EQ(host.settings.host["promptendrec"], (std::vector<char>{7, 7}));
}
