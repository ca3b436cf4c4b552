// Which items get selected, and the time selection made from them.
#include "commands/commands.h"
#include "tests/support/story.h"

class Selecao : public Cena {};

TEST_F(Selecao, PeloCursorSubstituiAAnterior) {
    const std::tuple<void (*)(), const char*, const char*> casos[] = {
        {SelecionarAntesCursor, "Selecionar Antes do Cursor", "a, b, c, e"},
        {SelecionarDepoisCursor, "Selecionar Depois do Cursor", "c, d, e, f"},
        {SelecionarAntesCursorFaixa, "Selecionar Antes do Cursor (Faixa)", "a, b, c"},
        {SelecionarDepoisCursorFaixa, "Selecionar Depois do Cursor (Faixa)", "c, d"},
        {SelecionarTodosFaixa, "Selecionar Itens da Faixa", "a, b, c, d"},
        {SelecionarTodosProjeto, "Selecionar Todos os Itens", "a, b, c, d, e, f"},
    };
    for (const auto& [comando, titulo, selecionados] : casos) {
        // One item for each way of lying to the cursor: before, ending at it, across, starting at it, behind.
        Projeto("Voz (selected): a 0-1 * | b 2-4 | c 3-6 | d 4-5 / Som: e 0-9 | f 8-9 * {cursor 4}");
        const std::string antes = Retrato();
        comando();
        EXPECT_EQ(Selecionados(), selecionados) << titulo;
        EXPECT_EQ(Historico(), titulo);
        EXPECT_EQ(Retrato(), antes);
    }
    Contar(SelecionarTodosFaixa, "Selecionar Itens da Faixa", {{"Voz: a 0-1 *", "Voz: a 0-1"}});
}

TEST_F(Selecao, FluxoVaiAteAPrimeiraFresta) {
    Contar(SelecaoFluxo, "Selecao em Fluxo",
           {{"Voz: a 0-1 | b 1.0005-2 * | c 3-4", "Voz: a 0-1 * | b 1.0005-2 * | c 3-4"},
            {"Voz: a 0-1 * | b 1-2 | c 1.5-3 | d 3-4 | e 5-6", "Voz: a 0-1 * | b 1-2 * | c 1.5-3 * | d 3-4 * | e 5-6"},
            // The edge follows the last item taken, so a short one inside a long one ends the run.
            {"Voz: a 0-10 * | b 2-3 | c 10-11", "Voz: a 0-10 * | b 2-3 * | c 10-11"},
            {"Voz: a 0-1 / Som: b 1-2 * | c 2-3", "Voz: a 0-1 / Som: b 1-2 * | c 2-3 *"}});
    Contar(SelecaoFluxo, "", {{"Voz: a 0-1 * | b 1-2 *"}, {"Voz: a 0-1"}});
}

TEST_F(Selecao, DeTempoCobreOsItensSelecionados) {
    Contar(SelTempoItens, "",
           {{"Voz: a 1-2 * | b 3-4 / Som: c 2-9 *", "Voz: a 1-2 * | b 3-4 / Som: c 2-9 * {time 1-9}"},
            {"Voz: a 1-2", nullptr, "Quilmo: Nenhum item selecionado."}});
}
