// A pass of the panel allocates nothing once everything has been drawn once: not in the module, nor in what stands in
// for the system, nor in the host's answers.
#include "slicer/preview.h"
#include "tests/counting_new.h"
#include "tests/support/panel_scene.h"

namespace {

class SemAlocar : public Painel {
  protected:
    // The pointer down the page in several columns, so that each widget is lit and tells its tooltip.
    void Passear() {
        for (const int x : {20, 60, 100, 140, 180, 220, 260, 300})
            for (int y = 5; y < 659; y += 10) Mover(x, y);
        InvalidateRect(JanelaPainel, nullptr, FALSE);
        driver::Pump();
    }
    int64_t AlocacoesDeUmPasseio() {
        Passear();
        const int64_t antes = AllocationsMade();
        Passear();
        return AllocationsMade() - antes;
    }
};

TEST_F(SemAlocar, NenhumPasseAlocaDepoisDoPrimeiro) {
    Faixa("Voz", {{"A", 0, 4}, {"B", 5, 9}});
    Selecionar({"A", "B"});
    Abrir();
    EXPECT_EQ(AlocacoesDeUmPasseio(), 0) << "main page";
    host.playState = 1;
    EXPECT_EQ(AlocacoesDeUmPasseio(), 0) << "main page, playing";
    ModoFatiadorAtivo = true;
    EXPECT_EQ(AlocacoesDeUmPasseio(), 0) << "slicer page";
    SalvarPresetAberto = true;
    EXPECT_EQ(AlocacoesDeUmPasseio(), 0) << "its prompt";
    ModoFatiadorAtivo = false;

    const int64_t antes = AllocationsMade();
    Fechar();
    Abrir();
    EXPECT_GT(AllocationsMade(), antes) << "the counter counts";
}

}  // namespace
