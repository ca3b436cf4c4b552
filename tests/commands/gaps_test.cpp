// Closing gaps, and joining with crossfades.
#include "commands/commands.h"
#include "tests/support/story.h"

class Lacunas : public Cena {};

TEST_F(Lacunas, ItensEncostamNaOrdemDoTempo) {
    Contar(FechaLacuna, "Fechar Lacunas",
           {{"Voz: A 2-6 * | B 9-12 * | C 20-24 *", "Voz: A 2-6 * | B 6-9 * | C 9-13 *"},
            {"Voz: A 2-6 * | x 7-8 | B 9-12 *", "Voz: A 2-6 * | B 6-9 * | x 7-8"},
            // Overlaps stay; behind an item that lies inside another, the shorter one's end counts.
            {"Voz: A 0-10 * | B 2-4 * | C 12-13 *", "Voz: A 0-10 * | B 2-4 * | C 4-5 *"}});
    Contar(FechaLacuna, "Fechar Lacuna",
           {{"Voz: A 0-2 * / Som: B 5-6 *", nullptr, "Erro: Os itens selecionados devem estar na mesma trilha."}});
    Contar(
        FechaLacuna, "",
        {{"Voz: A 0-2 * | B 5-6", nullptr, "Erro: Selecione mais de 2 itens na mesma trilha para usar este script."}});
}

TEST_F(Lacunas, SubsequentesSoAtrasDaAncora) {
    Contar(FechaLacunaSubsequente, "Fechar Lacunas Subsequentes",
           {{"Voz: A 0-1 | B 3-4 * | C 6-7 | D 9-10", "Voz: A 0-1 | B 3-4 * | C 4-5 | D 5-6"},
            {"Voz: A 1-2 * | B 5-6 / Som: C 0-1 * | D 4-5", "Voz: A 1-2 * | B 2-3 / Som: C 0-1 | D 4-5"}});
    Contar(FechaLacunaSubsequente, "",
           {{"Voz: A 0-1", nullptr, "Erro: Selecione pelo menos 1 item para usar este script."}});
}

TEST_F(Lacunas, JuntarSobrepoeCincoMilesimosEFundeAsBordas) {
    Contar(JuntaClipCrossfade, "",
           {{"Voz: A 0-2 * | B 2-4 * | C 7-8 *",
             "Voz: A 0-2 ~/0.005 ~\\0.005 * | B 1.995-3.995 ~/0.005 ~\\0.005 * | C 3.99-4.99 ~/0.005 ~\\0.005 *"},
            {"Voz: A 0-2 * | B 1-4 *", "Voz: A 0-2 ~/0.005 ~\\0.005 * | B 1-4 ~/0.005 ~\\0.005 *"},
            {"Voz: A 0-2 *", "Voz: A 0-2 ~/0.005 ~\\0.005 *"},
            // In the host's order, without a look at the tracks.
            {"Voz: A 0-2 * / Som: B 5-6 *", "Voz: A 0-2 ~/0.005 ~\\0.005 * / Som: B 1.995-2.995 ~/0.005 ~\\0.005 *"},
            {"Voz: A 0-2", nullptr, "Erro: Selecione pelo menos um item."}});
}
