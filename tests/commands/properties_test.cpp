// Mute, colour, the take envelope, track height.
#include "commands/commands.h"
#include "tests/support/story.h"

namespace {

class Propriedades : public Cena {};

TEST_F(Propriedades, MuteVirouOGrupoInteiro) {
    constexpr char titulo[] = "Mute/Unmute Clips";
    Contar({
        {"1: a 0-1 mute * | b 1-2 * | c 2-3", MuteClip, "1: a 0-1 mute * | b 1-2 mute * | c 2-3", titulo},
        {"1: a 0-1 mute * | b 1-2 mute * | c 2-3 mute", MuteClip, "1: a 0-1 * | b 1-2 * | c 2-3 mute", titulo},
        {"1: a 0-1", MuteClip, "1: a 0-1", "", "Aviso: Nenhum item selecionado."},
    });
    const auto mudos = [](const char* cena) {
        Projeto(cena);
        return TodosItensMudos();
    };
    EXPECT_FALSE(mudos("1: a 0-1 mute"));
    EXPECT_FALSE(mudos("1: a 0-1 mute * | b 1-2 *"));
    EXPECT_TRUE(mudos("1: a 0-1 mute * | b 1-2"));
}

TEST_F(Propriedades, CoresSoDoQueEstaSelecionado) {
    Contar({
        {"1: a 0-1 * | b 1-2", [] { AplicarCorItens(0, 0, 0); }, "1: a 0-1 #000000 * | b 1-2"},
        {"1 (selected): / 2:", [] { AplicarCorFaixas(250, 206, 205); }, "1 (#facecd, selected): / 2:"},
        {"1 (selected): a 0-1 *", [] { AplicarCorItens(1, 2, 3), LimparCorItens(); }, "1 (selected): a 0-1 *"},
        {"1 (selected):", [] { AplicarCorFaixas(1, 2, 3), LimparCorFaixas(); }, "1 (selected):"},
        {"1: a 0-1", [] { AplicarCorItens(1, 2, 3), AplicarCorFaixas(1, 2, 3); }, "1: a 0-1"},
    });
}

TEST_F(Propriedades, EnvelopeFicaComOPrimeiroItem) {
    Contar({
        {"1: a 0-1 | b 1-2 * | c 2-3 *", VolEnvelope, "1: a 0-1 | b 1-2 envelope * | c 2-3",
         "Acionar Take Volume Envelope"},
        {"1: a 0-1", VolEnvelope, "1: a 0-1", "", "Erro: Nenhum item de midia selecionado."},
    });
    Projeto("1: a 0-1 no take *");
    VolEnvelope();
    EXPECT_EQ(Mensagens(), "Erro: Nenhuma take ativa.");
    EXPECT_EQ(Historico(), "");
}

TEST_F(Propriedades, AlturaDasFaixasEVistaInteira) {
    Contar({
        {"1: a 0-5 / 2:", [] { ZoomAllFaixas(false); }, "1 (height 75): a 0-5 / 2 (height 75):"},
        {"1: a 0-5 / 2: b 1-9", [] { ZoomAllFaixas(true); }, "1 (height 75): a 0-5 / 2 (height 75): b 1-9 {view 0-12}"},
    });
}

}  // namespace
