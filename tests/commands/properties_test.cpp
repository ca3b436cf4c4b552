// Mute, colour, the take envelope.
#include "commands/commands.h"
#include "tests/support/story.h"

class Propriedades : public Cena {};

TEST_F(Propriedades, MuteVirouOGrupoInteiro) {
    Contar(MuteClip, "Mute/Unmute Clips",
           {{"1: a 0-1 mute * | b 1-2 * | c 2-3", "1: a 0-1 mute * | b 1-2 mute * | c 2-3"},
            {"1: a 0-1 mute * | b 1-2 mute * | c 2-3 mute", "1: a 0-1 * | b 1-2 * | c 2-3 mute"}});
    Contar(MuteClip, "", {{"1: a 0-1", nullptr, "Aviso: Nenhum item selecionado."}});
    for (const auto& [cena, mudos] :
         {std::pair{"1: a 0-1 mute", false}, {"1: a 0-1 mute * | b 1-2 *", false}, {"1: a 0-1 mute * | b 1-2", true}}) {
        Projeto(cena);
        EXPECT_EQ(TodosItensMudos(), mudos) << cena;
    }
}

TEST_F(Propriedades, CoresSoDoQueEstaSelecionado) {
    const auto itens = [] { AplicarCorItens(0, 0, 0); };
    const auto faixas = [] { AplicarCorFaixas(250, 206, 205); };
    Contar(itens, "", {{"1: a 0-1 * | b 1-2", "1: a 0-1 #000000 * | b 1-2"}, {"1 (selected): a 0-1"}});
    Contar(faixas, "", {{"1 (selected): / 2:", "1 (#facecd, selected): / 2:"}, {"1: a 0-1 *"}});
    Contar([] { AplicarCorItens(1, 2, 3), LimparCorItens(); }, "", {{"1 (selected): a 0-1 *"}});
    Contar([] { AplicarCorFaixas(1, 2, 3), LimparCorFaixas(); }, "", {{"1 (selected):"}});
}

TEST_F(Propriedades, EnvelopeFicaComOPrimeiroItem) {
    Contar(VolEnvelope, "Acionar Take Volume Envelope",
           {{"1: a 0-1 | b 1-2 * | c 2-3 *", "1: a 0-1 | b 1-2 envelope * | c 2-3"}});
    Contar(VolEnvelope, "",
           {{"1: a 0-1", nullptr, "Erro: Nenhum item de midia selecionado."},
            {"1: a 0-1 no take *", "1:  0-1 no take *", "Erro: Nenhuma take ativa."}});
}
