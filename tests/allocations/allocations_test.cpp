// What must not cost memory: a pass of the panel once everything has been drawn once, and the length of glued sound.
#include "host/actions.h"
#include "slicer/autosplit.h"
#include "slicer/preview.h"
#include "tests/counting_new.h"
#include "tests/support/panel_scene.h"

// Neither in the module, nor in what stands in for the system, nor in the host's answers.
TEST_F(Painel, NenhumPasseAlocaDepoisDoPrimeiro) {
    // The pointer goes to each widget, which is lit and tells its tooltip.
    const auto passear = [](const std::vector<WidgetNaTela>& widgets) {
        for (const WidgetNaTela& w : widgets) driver::Move(JanelaPainel, w.Meio().x, w.Meio().y);
        InvalidateRect(JanelaPainel, nullptr, FALSE);
        driver::Pump();
    };
    const auto alocacoesDeUmPasseio = [&] {
        const std::vector<WidgetNaTela> widgets = Widgets();
        passear(widgets);
        const int64_t antes = AllocationsMade();
        passear(widgets);
        return AllocationsMade() - antes;
    };
    Faixa("Voz", {{"A", 0, 4}, {"B", 5, 9}});
    Selecionar({"A", "B"});
    Abrir();
    EXPECT_EQ(alocacoesDeUmPasseio(), 0) << "main page";
    host.transport.state = 1;
    EXPECT_EQ(alocacoesDeUmPasseio(), 0) << "main page, playing";
    ModoFatiadorAtivo = true;
    EXPECT_EQ(alocacoesDeUmPasseio(), 0) << "slicer page";
    SalvarPresetAberto = true;
    EXPECT_EQ(alocacoesDeUmPasseio(), 0) << "its prompt";
    ModoFatiadorAtivo = false;

    const int64_t antes = AllocationsMade();
    Fechar();
    Abrir();
    EXPECT_GT(AllocationsMade(), antes) << "the counter counts";
}

// Or the tools could not hold an hour.
TEST_F(Cena, ColarMeiaHoraNaoAGuarda) {
    constexpr int taxa = 8000, segundos = 1800;
    std::vector<Segment> fala;
    for (int i = 0; i < segundos; ++i) fala.insert(fala.end(), {{taxa * 7 / 10, 0.5}, {taxa * 3 / 10, 0.0}});
    Faixa("Voz", {{"fala", 0, segundos, Bursts(taxa, 1, fala)}});
    const int64_t antes = BytesAllocated();
    for (const bool fechar : {false, true}) {
        host.project.tracks.SelectAll(true);
        Quilmo_AutoSplit(fechar, 55, -37.0);
        EXPECT_EQ(host.project.tracks.ItemCount(), segundos);
        host.project.tracks.SelectAll(true);
        host.RunAction(acao::ColarItens);
        EXPECT_EQ(host.project.tracks.ItemCount(), 1);
    }
    EXPECT_LT(BytesAllocated() - antes, 50'000'000);
}
