// Trim, cut, split and ripple delete.
#include "commands/commands.h"
#include "tests/support/story.h"

namespace {

class Trim : public Cena {};

constexpr char FechouDireita[] = "Corta e Apaga Direita (Ripple)";
constexpr char FechouEsquerda[] = "Corta e Apaga Esquerda (Ripple)";

TEST_F(Trim, FechaOQueCortou) {
    Contar({
        {"Voz: A 0-10 * | B 12-14 {cursor 4}", TrimDireita, "Voz: A 0-4 * | B 6-8 {cursor 4}", FechouDireita},
        {"Voz: A 0-10 * | B 12-14 {cursor 4}", TrimEsquerda, "Voz: A 0-6 @4 | B 8-10", FechouEsquerda},
        // What begins inside the piece that goes: to the right it follows, to the left it stays.
        {"Voz: A 2-10 * | B 3-5 | C 11-12 {cursor 6}", TrimDireita, "Voz: B -1-1 | A 2-6 * | C 7-8 {cursor 6}",
         FechouDireita},
        {"Voz: A 2-10 * | B 3-5 | C 11-12 {cursor 6}", TrimEsquerda, "Voz: A 2-6 @4 | B 3-5 | C 7-8 {cursor 2}",
         FechouEsquerda},
        {"Voz: A 2-10 * | B 5.99995-8 {cursor 6}", TrimEsquerda, "Voz: B 1.99995-4 | A 2-6 @4 {cursor 2}",
         FechouEsquerda},
        // Other tracks, regions and markers stay.
        {"Voz: A 0-10 * / Som: B 12-14 [R1 x 11-13] {cursor 4}", TrimDireita,
         "Voz: A 0-4 * / Som: B 12-14 [R1 x 11-13] {cursor 4}", FechouDireita},
        {"Voz: A 0-10 * | B 12-14 {cursor 4}", CortarD, "Voz: A 0-4 * | B 12-14 {cursor 4}", "Cortar Direita"},
        {"Voz: A 0-10 * | B 12-14 {cursor 4}", CortarE, "Voz: A 4-10 @4 * | B 12-14 {cursor 4}", "Cortar Esquerda"},
    });
}

TEST_F(Trim, RecusaSemMexerEmNada) {
    constexpr char fora[] = "Erro: O cursor nao esta dentro do item selecionado.";
    constexpr char varios[] = "Erro: Mais de um item selecionado. Por favor, selecione apenas um item.";
    for (void (*trim)() : {TrimEsquerda, TrimDireita}) {
        const auto recusa = [trim](const char* cena, const char* mensagem) {
            Contar({{cena, trim, cena, "", mensagem}});
        };
        recusa("Voz: A 1-10 * {cursor 1}", fora);
        recusa("Voz: A 1-10 * {cursor 10}", fora);
        recusa("Voz: A 1-10 * | B 12-14 * {cursor 4}", varios);
        recusa("Voz: A 1-10 | B 12-14 {cursor 4}", "Erro: Nenhum item selecionado.");
    }
}

TEST_F(Trim, CorteQueOHostNaoFazDeixaSoOBloco) {
    for (void (*trim)() : {TrimEsquerda, TrimDireita}) {
        host.FailFrom("SplitMediaItem", 1);
        Contar({{"Voz: A 0-10 * {cursor 4}", trim, "Voz: A 0-10 * {cursor 4}",
                 trim == TrimEsquerda ? FechouEsquerda : FechouDireita}});
        host.StopFailing();
    }
}

TEST_F(Trim, PartirDeixaSelecionadasSoAsPartesDireitas) {
    Contar({
        {"Voz: A 0-10 * | B 12-14 * {cursor 4}", SplitNoCursor, "Voz: A 0-4 | A 4-10 @4 * | B 12-14 {cursor 4}"},
        {"Voz: A 0-10 * / Som: B 2-6 * | C 3-5 {cursor 4}", SplitNoCursor,
         "Voz: A 0-4 | A 4-10 @4 * / Som: B 2-4 | C 3-5 | B 4-6 @2 * {cursor 4}"},
        {"Voz: A 0-10 {cursor 4}", SplitNoCursor, "Voz: A 0-10 {cursor 4}"},
    });
}

TEST_F(Trim, ExcluirFechaCadaBuracoNaSuaFaixa) {
    constexpr char titulo[] = "Excluir Ripple Manual";
    Contar({
        {"Voz: A 0-2 | B 2-5 * | C 5-6 * | D 8-9", ExcluirRipple, "Voz: A 0-2 | D 4-5", titulo},
        {"Voz: A 0-2 * | B 3-4 / Som: C 1-5 * | D 6-7", ExcluirRipple, "Voz: B 1-2 / Som: D 2-3", titulo},
        // Selected with a kept item between: the later record has to follow the first move.
        {"Voz: A 0-2 * | B 3-4 | C 5-6 * | D 7-8", ExcluirRipple, "Voz: B 1-2 | D 4-5", titulo},
        // Two that start together: neither moves the other.
        {"Voz: A 1-3 * | B 1-4 * | C 6-7", ExcluirRipple, "Voz: C 1-2", titulo},
        {"Voz: A 0-2", ExcluirRipple, "Voz: A 0-2"},
    });
}

}  // namespace
