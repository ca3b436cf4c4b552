// A pass of the panel allocates nothing once everything has been drawn once: not in the module, nor in what stands in
// for the system, nor in the host's answers.
#include "slicer/preview.h"
#include "tests/counting_new.h"
#include "tests/support/panel_scene.h"

class SemAlocar : public Painel {
  protected:
    // The pointer goes to each widget, which is lit and tells its tooltip.
    static void Passear(const std::vector<WidgetNaTela>& widgets) {
        for (const WidgetNaTela& w : widgets) driver::Move(JanelaPainel, w.Meio().x, w.Meio().y);
        InvalidateRect(JanelaPainel, nullptr, FALSE);
        driver::Pump();
    }
    int64_t AlocacoesDeUmPasseio() {
        const std::vector<WidgetNaTela> widgets = Widgets();
        Passear(widgets);
        const int64_t antes = AllocationsMade();
        Passear(widgets);
        return AllocationsMade() - antes;
    }
};

TEST_F(SemAlocar, NenhumPasseAlocaDepoisDoPrimeiro) {
    Faixa("Voz", {{"A", 0, 4}, {"B", 5, 9}});
    Selecionar({"A", "B"});
    Abrir();
    EXPECT_EQ(AlocacoesDeUmPasseio(), 0) << "main page";
    host.transport.state = 1;
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
