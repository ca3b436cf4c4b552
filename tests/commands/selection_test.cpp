// Which items get selected, and the time selection made from them.
#include "commands/commands.h"
#include "tests/support/story.h"

namespace {

class Selecao : public Cena {};

TEST_F(Selecao, PeloCursorSubstituiAAnterior) {
    // One item for each way of lying to the cursor: before, ending at it, across, starting at it, behind.
    constexpr char antes[] = "Voz (selected): a 0-1 * | b 2-4 | c 3-6 | d 4-5 / Som: e 0-9 | f 8-9 * {cursor 4}";
    Contar({
        {antes, SelecionarAntesCursor,
         "Voz (selected): a 0-1 * | b 2-4 * | c 3-6 * | d 4-5 / Som: e 0-9 * | f 8-9 {cursor 4}",
         "Selecionar Antes do Cursor"},
        {antes, SelecionarDepoisCursor,
         "Voz (selected): a 0-1 | b 2-4 | c 3-6 * | d 4-5 * / Som: e 0-9 * | f 8-9 * {cursor 4}",
         "Selecionar Depois do Cursor"},
        {antes, SelecionarAntesCursorFaixa,
         "Voz (selected): a 0-1 * | b 2-4 * | c 3-6 * | d 4-5 / Som: e 0-9 | f 8-9 {cursor 4}",
         "Selecionar Antes do Cursor (Faixa)"},
        {antes, SelecionarDepoisCursorFaixa,
         "Voz (selected): a 0-1 | b 2-4 | c 3-6 * | d 4-5 * / Som: e 0-9 | f 8-9 {cursor 4}",
         "Selecionar Depois do Cursor (Faixa)"},
        {antes, SelecionarTodosFaixa,
         "Voz (selected): a 0-1 * | b 2-4 * | c 3-6 * | d 4-5 * / Som: e 0-9 | f 8-9 {cursor 4}",
         "Selecionar Itens da Faixa"},
        {antes, SelecionarTodosProjeto,
         "Voz (selected): a 0-1 * | b 2-4 * | c 3-6 * | d 4-5 * / Som: e 0-9 * | f 8-9 * {cursor 4}",
         "Selecionar Todos os Itens"},
        {"Voz: a 0-1 *", SelecionarTodosFaixa, "Voz: a 0-1", "Selecionar Itens da Faixa"},
    });
}

TEST_F(Selecao, FluxoVaiAteAPrimeiraFresta) {
    constexpr char titulo[] = "Selecao em Fluxo";
    Contar({
        {"Voz: a 0-1 | b 1.0005-2 * | c 3-4", SelecaoFluxo, "Voz: a 0-1 * | b 1.0005-2 * | c 3-4", titulo},
        {"Voz: a 0-1 * | b 1-2 | c 1.5-3 | d 3-4 | e 5-6", SelecaoFluxo,
         "Voz: a 0-1 * | b 1-2 * | c 1.5-3 * | d 3-4 * | e 5-6", titulo},
        // The edge follows the last item taken, so a short one inside a long one ends the run.
        {"Voz: a 0-10 * | b 2-3 | c 10-11", SelecaoFluxo, "Voz: a 0-10 * | b 2-3 * | c 10-11", titulo},
        {"Voz: a 0-1 / Som: b 1-2 * | c 2-3", SelecaoFluxo, "Voz: a 0-1 / Som: b 1-2 * | c 2-3 *", titulo},
        {"Voz: a 0-1 * | b 1-2 *", SelecaoFluxo, "Voz: a 0-1 * | b 1-2 *"},
        {"Voz: a 0-1", SelecaoFluxo, "Voz: a 0-1"},
    });
}

TEST_F(Selecao, DeTempoCobreOsItensSelecionados) {
    Contar({
        {"Voz: a 1-2 * | b 3-4 / Som: c 2-9 *", SelTempoItens, "Voz: a 1-2 * | b 3-4 / Som: c 2-9 * {time 1-9}"},
        {"Voz: a 1-2", SelTempoItens, "Voz: a 1-2", "", "Quilmo: Nenhum item selecionado."},
    });
}

}  // namespace
