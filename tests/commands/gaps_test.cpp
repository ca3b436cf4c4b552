// Closing gaps, and joining with crossfades.
#include "commands/commands.h"
#include "tests/support/story.h"

namespace {

class Lacunas : public Cena {};

TEST_F(Lacunas, ItensEncostamNaOrdemDoTempo) {
    constexpr char titulo[] = "Fechar Lacunas";
    Contar({
        {"Voz: A 2-6 * | B 9-12 * | C 20-24 *", FechaLacuna, "Voz: A 2-6 * | B 6-9 * | C 9-13 *", titulo},
        {"Voz: A 2-6 * | B 9-12 *", FechaLacuna, "Voz: A 2-6 * | B 6-9 *", titulo},
        {"Voz: A 2-6 * | x 7-8 | B 9-12 *", FechaLacuna, "Voz: A 2-6 * | B 6-9 * | x 7-8", titulo},
        // Overlaps stay; behind an item that lies inside another, the shorter one's end counts.
        {"Voz: A 0-10 * | B 2-4 * | C 12-13 *", FechaLacuna, "Voz: A 0-10 * | B 2-4 * | C 4-5 *", titulo},
        {"Voz: A 0-2 * / Som: B 5-6 *", FechaLacuna, "Voz: A 0-2 * / Som: B 5-6 *", "Fechar Lacuna",
         "Erro: Os itens selecionados devem estar na mesma trilha."},
        {"Voz: A 0-2 * | B 5-6", FechaLacuna, "Voz: A 0-2 * | B 5-6", "",
         "Erro: Selecione mais de 2 itens na mesma trilha para usar este script."},
    });
}

TEST_F(Lacunas, SubsequentesSoAtrasDaAncora) {
    constexpr char titulo[] = "Fechar Lacunas Subsequentes";
    Contar({
        {"Voz: A 0-1 | B 3-4 * | C 6-7 | D 9-10", FechaLacunaSubsequente, "Voz: A 0-1 | B 3-4 * | C 4-5 | D 5-6",
         titulo},
        {"Voz: A 1-2 * | B 5-6 / Som: C 0-1 * | D 4-5", FechaLacunaSubsequente,
         "Voz: A 1-2 * | B 2-3 / Som: C 0-1 | D 4-5", titulo},
        {"Voz: A 0-1", FechaLacunaSubsequente, "Voz: A 0-1", "",
         "Erro: Selecione pelo menos 1 item para usar este script."},
    });
}

TEST_F(Lacunas, JuntarSobrepoeCincoMilesimosEFundeAsBordas) {
    Contar({
        {"Voz: A 0-2 * | B 2-4 * | C 7-8 *", JuntaClipCrossfade,
         "Voz: A 0-2 ~/0.005 ~\\0.005 * | B 1.995-3.995 ~/0.005 ~\\0.005 * | C 3.99-4.99 ~/0.005 ~\\0.005 *"},
        {"Voz: A 0-2 * | B 1-4 *", JuntaClipCrossfade, "Voz: A 0-2 ~/0.005 ~\\0.005 * | B 1-4 ~/0.005 ~\\0.005 *"},
        {"Voz: A 0-2 *", JuntaClipCrossfade, "Voz: A 0-2 ~/0.005 ~\\0.005 *"},
        // In the host's order, without a look at the tracks.
        {"Voz: A 0-2 * / Som: B 5-6 *", JuntaClipCrossfade,
         "Voz: A 0-2 ~/0.005 ~\\0.005 * / Som: B 1.995-2.995 ~/0.005 ~\\0.005 *"},
        {"Voz: A 0-2", JuntaClipCrossfade, "Voz: A 0-2", "", "Erro: Selecione pelo menos um item."},
    });
}

}  // namespace
