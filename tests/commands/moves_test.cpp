// Items between tracks, tracks in the list, items in time.
#include "commands/commands.h"
#include "tests/support/story.h"

class Moves : public Cena {};

TEST_F(Moves, ItensMudamDeFaixa) {
    Contar(MvClipCima, "Move itens para faixa acima",
           {{"1: a 0-1 * / 2: / 3: b 0-1 *", "1: a 0-1 * / 2: b 0-1 * / 3:"}, {"1: a 0-1 / 2:"}});
    // Groups that follow each other: no item moves twice, and only one track is made.
    Contar(
        MvClipBaixo, "Move itens para faixa abaixo",
        {{"1: / 2: a 0-1 * / 3: b 0-1 * | c 2-3 *", "1: / 2: / 3: a 0-1 * / : b 0-1 * | c 2-3 *"}, {"1: a 0-1 / 2:"}});
}

TEST_F(Moves, PistasMudamDeLugar) {
    Contar(MvPistaCima, "Move Pista para Cima",
           {{"1: / 2 (selected): / 3 (selected):", "2 (selected): / 3 (selected): / 1:"},
            {"1 (selected): / 2:"},
            {"1: / 2:"}});
    Contar(MvPistaBaixo, "Move Pista para Baixo",
           {{"1 (selected): / 2: / 3 (selected):", "2: / 1 (selected): / 3:"}, {"1: / 2 (selected):"}, {"1: / 2:"}});
}

TEST_F(Moves, CutucarNaoTemLimite) {
    Contar(MvClipEsq, "Move Clip Esq", {{"1: a 0.005-1 * | b 2-3", "1: a -0.005-0.99 * | b 2-3"}});
    // The second story's items change places at the first move.
    Contar(MvClipDir, "Move Clip Dir",
           {{"1: a 0-1 * | b 2-3 *", "1: a 0.01-1.01 * | b 2.01-3.01 *"},
            {"1: a 0-1 * | b 0-2 *", "1: b 0.01-2.01 * | a 0.01-1.01 *"}});
}

TEST_F(Moves, ColarEncostaNoVizinhoEEmpilhaOResto) {
    Contar(ColaClipEsq, "Colar Clips Esquerda",
           {{"1: x 0-2 | a 5-6 * | b 8-10 *", "1: x 0-2 | a 2-3 * | b 3-5 *"},
            {"1: a 5-6 * | x 7-8", "1: a 0-1 * | x 7-8"},
            {"1: x -0.5-2 | a 5-6 *", "1: x -0.5-2 | a 2-3 *"},
            {"1: x -1-2 | a 5-6 *", "1: x -1-2 | a 0-1 *"},
            // Of equal starts the first on the track counts; a start at the item's own is no neighbour.
            {"1: x 1-2 | y 1-4 | z 5-9 | a 5-6 *", "1: x 1-2 | y 1-4 | a 2-3 * | z 5-9"}});
    Contar(ColaClipDir, "Colar Clips Direita",
           {{"1: a 1-2 * | x 5-6 / 2: y 3-4", "1: a 4-5 * | x 5-6 / 2: y 3-4"},
            {"1: a 1-2 * | b 3-5 * | x 9-10", "1: b 6-8 * | a 8-9 * | x 9-10"},
            {"1: a 1-2 * | b 3-5 * / 2: y 3-12", "1: a 12-13 * | b 13-15 * / 2: y 3-12"}});
    for (void (*comando)() : {ColaClipEsq, ColaClipDir, MvClipEsq, MvClipDir}) Contar(comando, "", {{"1: a 1-2"}});
}
