// Trim, split and ripple delete.
#include "commands/commands.h"
#include "tests/support/story.h"

class Trim : public Cena {};

constexpr char FechouDireita[] = "Corta e Apaga Direita (Ripple)";
constexpr char FechouEsquerda[] = "Corta e Apaga Esquerda (Ripple)";

TEST_F(Trim, FechaOQueCortou) {
    constexpr char dois[] = "Voz: A 0-10 * | B 12-14 {cursor 4}";
    // What begins inside the piece that goes: to the right it follows, to the left it stays.
    Contar(TrimDireita, FechouDireita,
           {{dois, "Voz: A 0-4 * | B 6-8 {cursor 4}"},
            {"Voz: A 2-10 * | B 3-5 | C 11-12 {cursor 6}", "Voz: B -1-1 | A 2-6 * | C 7-8 {cursor 6}"},
            {"Voz: A 0-10 * / Som: B 12-14 [R1 x 11-13] {cursor 4}",
             "Voz: A 0-4 * / Som: B 12-14 [R1 x 11-13] {cursor 4}"}});
    Contar(TrimEsquerda, FechouEsquerda,
           {{dois, "Voz: A 0-6 @4 | B 8-10"},
            {"Voz: A 2-10 * | B 3-5 | C 11-12 {cursor 6}", "Voz: A 2-6 @4 | B 3-5 | C 7-8 {cursor 2}"},
            {"Voz: A 2-10 * | B 5.99995-8 {cursor 6}", "Voz: B 1.99995-4 | A 2-6 @4 {cursor 2}"}});
}

// Of a host that crossfades at splits, the kept part starts before the cursor, and follows all the same.
TEST_F(Trim, AParteQueFicaSegueSempre) {
    host.preferences.splitCrossfade = 0.01;
    Contar(TrimEsquerda, FechouEsquerda,
           {{"Voz: A 0-10 * | B 12-14 {cursor 4}", "Voz: A -0.01-6 @3.99 ~/0.01 | B 8-10"}});
}

TEST_F(Trim, OQueOHostNaoApagaNaoMoveNada) {
    host.calls.FailFrom("DeleteTrackMediaItem", 1);
    Contar(TrimDireita, FechouDireita,
           {{"Voz: A 0-10 * | B 12-14 {cursor 4}", "Voz: A 0-4 * | A 4-10 @4 | B 12-14 {cursor 4}"}});
    Contar(TrimEsquerda, FechouEsquerda,
           {{"Voz: A 0-10 * | B 12-14 {cursor 4}", "Voz: A 0-4 * | A 4-10 @4 | B 12-14 {cursor 4}"}});
    host.calls.StopFailing();
    host.calls.FailFrom("DeleteTrackMediaItem", 2);  // the second of three stays, and follows the first
    Contar(ExcluirRipple, "Excluir Ripple Manual", {{"Voz: A 0-2 * | B 3-4 * | C 6-7", "Voz: B 1-2 * | C 4-5"}});
}

TEST_F(Trim, RecusaSemMexerEmNada) {
    constexpr char fora[] = "Erro: O cursor nao esta dentro do item selecionado.";
    constexpr char varios[] = "Erro: Mais de um item selecionado. Por favor, selecione apenas um item.";
    for (void (*trim)() : {TrimEsquerda, TrimDireita}) {
        Contar(trim, "",
               {{"Voz: A 1-10 * {cursor 1}", nullptr, fora},
                {"Voz: A 1-10 * {cursor 10}", nullptr, fora},
                {"Voz: A 1-10 * | B 12-14 * {cursor 4}", nullptr, varios},
                {"Voz: A 1-10 | B 12-14 {cursor 4}", nullptr, "Erro: Nenhum item selecionado."}});
        host.calls.FailFrom("SplitMediaItem", 1);  // only the block is left
        Contar(trim, trim == TrimEsquerda ? FechouEsquerda : FechouDireita, {{"Voz: A 0-10 * {cursor 4}"}});
        host.calls.StopFailing();
    }
}

TEST_F(Trim, PartirDeixaSelecionadasSoAsPartesDireitas) {
    Contar(SplitNoCursor, "",
           {{"Voz: A 0-10 * | B 12-14 * {cursor 4}", "Voz: A 0-4 | A 4-10 @4 * | B 12-14 {cursor 4}"},
            {"Voz: A 0-10 * / Som: B 2-6 * | C 3-5 {cursor 4}",
             "Voz: A 0-4 | A 4-10 @4 * / Som: B 2-4 | C 3-5 | B 4-6 @2 * {cursor 4}"},
            {"Voz: A 0-10 {cursor 4}"}});
}

TEST_F(Trim, ExcluirFechaCadaBuracoNaSuaFaixa) {
    Contar(ExcluirRipple, "Excluir Ripple Manual",
           {{"Voz: A 0-2 | B 2-5 * | C 5-6 * | D 8-9", "Voz: A 0-2 | D 4-5"},
            {"Voz: A 0-2 * | B 3-4 / Som: C 1-5 * | D 6-7", "Voz: B 1-2 / Som: D 2-3"},
            // Selected with a kept item between: the later record has to follow the first move.
            {"Voz: A 0-2 * | B 3-4 | C 5-6 * | D 7-8", "Voz: B 1-2 | D 4-5"},
            // Two that start together: neither moves the other.
            {"Voz: A 1-3 * | B 1-4 * | C 6-7", "Voz: C 1-2"}});
    Contar(ExcluirRipple, "", {{"Voz: A 0-2"}});
}
