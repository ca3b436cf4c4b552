// Items between tracks, tracks in the list, items in time.
#include "commands/commands.h"
#include "tests/support/story.h"

namespace {

class Moves : public Cena {};

TEST_F(Moves, ItensMudamDeFaixa) {
    constexpr char acima[] = "Move itens para faixa acima", abaixo[] = "Move itens para faixa abaixo";
    Contar({
        {"1: a 0-1 * / 2: / 3: b 0-1 *", MvClipCima, "1: a 0-1 * / 2: b 0-1 * / 3:", acima},
        {"1: a 0-1 / 2:", MvClipCima, "1: a 0-1 / 2:", acima},
        // Groups that follow each other: no item moves twice, and only one track is made.
        {"1: / 2: a 0-1 * / 3: b 0-1 * | c 2-3 *", MvClipBaixo, "1: / 2: / 3: a 0-1 * / : b 0-1 * | c 2-3 *", abaixo},
        {"1: a 0-1 / 2:", MvClipBaixo, "1: a 0-1 / 2:", abaixo},
    });
}

TEST_F(Moves, PistasMudamDeLugar) {
    constexpr char cima[] = "Move Pista para Cima", baixo[] = "Move Pista para Baixo";
    Contar({
        {"1: / 2 (selected): / 3 (selected):", MvPistaCima, "2 (selected): / 3 (selected): / 1:", cima},
        {"1 (selected): / 2:", MvPistaCima, "1 (selected): / 2:", cima},
        {"1: / 2:", MvPistaCima, "1: / 2:", cima},
        {"1 (selected): / 2: / 3 (selected):", MvPistaBaixo, "2: / 1 (selected): / 3:", baixo},
        {"1: / 2 (selected):", MvPistaBaixo, "1: / 2 (selected):", baixo},
        {"1: / 2:", MvPistaBaixo, "1: / 2:", baixo},
    });
}

TEST_F(Moves, CutucarNaoTemLimite) {
    Contar({
        {"1: a 0.005-1 * | b 2-3", MvClipEsq, "1: a -0.005-0.99 * | b 2-3", "Move Clip Esq"},
        {"1: a 0-1 * | b 2-3 *", MvClipDir, "1: a 0.01-1.01 * | b 2.01-3.01 *", "Move Clip Dir"},
        {"1: a 0-1", MvClipDir, "1: a 0-1"},
    });
}

TEST_F(Moves, ColarEncostaNoVizinhoEEmpilhaOResto) {
    constexpr char esquerda[] = "Colar Clips Esquerda", direita[] = "Colar Clips Direita";
    Contar({
        {"1: x 0-2 | a 5-6 * | b 8-10 *", ColaClipEsq, "1: x 0-2 | a 2-3 * | b 3-5 *", esquerda},
        {"1: a 5-6 * | x 7-8", ColaClipEsq, "1: a 0-1 * | x 7-8", esquerda},
        {"1: x -0.5-2 | a 5-6 *", ColaClipEsq, "1: x -0.5-2 | a 2-3 *", esquerda},
        {"1: x -1-2 | a 5-6 *", ColaClipEsq, "1: x -1-2 | a 0-1 *", esquerda},
        // Of equal starts the first on the track counts; a start at the item's own is no neighbour.
        {"1: x 1-2 | y 1-4 | z 5-9 | a 5-6 *", ColaClipEsq, "1: x 1-2 | y 1-4 | a 2-3 * | z 5-9", esquerda},
        {"1: a 1-2 * | x 5-6 / 2: y 3-4", ColaClipDir, "1: a 4-5 * | x 5-6 / 2: y 3-4", direita},
        {"1: a 1-2 * | b 3-5 * | x 9-10", ColaClipDir, "1: b 6-8 * | a 8-9 * | x 9-10", direita},
        {"1: a 1-2 * | b 3-5 * / 2: y 3-12", ColaClipDir, "1: a 12-13 * | b 13-15 * / 2: y 3-12", direita},
        {"1: a 1-2", ColaClipDir, "1: a 1-2"},
        {"1: a 1-2", ColaClipEsq, "1: a 1-2"},
    });
}

}  // namespace
