// What the stand-in host glues costs no memory by its length, or the tools could not hold an hour.
#include "host/actions.h"
#include "slicer/autosplit.h"
#include "tests/counting_new.h"
#include "tests/support/scene.h"

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
