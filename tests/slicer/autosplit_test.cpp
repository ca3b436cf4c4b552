#include <cmath>
#include <random>

#include "host/entry.h"
#include "tests/support/scene.h"

namespace {

constexpr int Taxa = 48000;

// Sound at half scale in the given stretches of seconds, silence elsewhere.
simhost::SourceRef Fala(double duracao, std::initializer_list<std::pair<double, double>> sons, int taxa = Taxa) {
    std::vector<simhost::Segment> trechos;
    int64_t feito = 0;
    const auto ate = [&](double segundo, double nivel) {
        const int64_t quadro = std::llround(segundo * taxa);
        if (quadro > feito) trechos.push_back({quadro - feito, nivel});
        feito = std::max(feito, quadro);
    };
    for (const auto& [inicio, fim] : sons) {
        ate(inicio, 0);
        ate(fim, 0.5);
    }
    ate(duracao, 0);
    return simhost::Bursts(taxa, 2, trechos);
}

class Fatias : public Cena {
  protected:
    // As a script calls it.
    bool Fatiar(bool fechar) {
        return reinterpret_cast<decltype(&Quilmo_AutoSplit)>(host.ApiFunction("Quilmo_AutoSplit"))(fechar, 55, -37.0);
    }
    // The calls that change the project or what is seen of it, in order.
    std::string Chamadas() const {
        std::string texto;
        for (const std::string& linha : host.trace)
            for (const char* nome : {"Split", "Set", "Delete", "Undo", "Prevent", "Update", "Destroy", "ShowMessage"})
                if (linha.starts_with(nome)) texto += linha + '\n';
        return texto;
    }
};

}  // namespace

TEST_F(Fatias, SoOSomFica) {
    const auto meio = Fala(4, {{1, 2}});
    const auto tres = Fala(6, {{0.5, 1}, {2, 3}, {4, 5}});
    const struct {
        const char* caso;
        std::vector<ItemDeCena> itens;
        bool fechar;
        const char* retrato;
    } casos[] = {
        {"sound in the middle: one piece, without fades", {{"A", 10, 14, meio}}, false, "A 11-12 @1"},
        {"one piece closes up with nothing", {{"A", 10, 14, meio}}, true, "A 11-12 @1"},
        {"without closing, pieces stay where they sounded",
         {{"A", 10, 16, tres}},
         false,
         "A 10.5-11 @0.5 | A 12-13 @2 | A 14-15 @4"},
        {"closing overlaps them by 5 ms, and fades",
         {{"A", 10, 16, tres}},
         true,
         "A 10.5-11 @0.5 ~/0.005 ~\\0.005 | A 10.995-11.995 @2 ~/0.005 ~\\0.005 | A 11.99-12.99 @4 ~/0.005 ~\\0.005"},
        {"sound to both ends", {{"A", 0, 3, Fala(3, {{0, 1}, {2, 3}})}}, false, "A 0-1 | A 2-3 @2"},
        {"nothing sounds: nothing goes", {{"A", 0, 3, Fala(3, {})}}, true, "A 0-3"},
        {"nothing is silent: nothing changes", {{"A", 0, 3, Fala(3, {{0, 3}})}}, true, "A 0-3"},
        {"no sliver is left of a last half millisecond",
         {{"A", 0, 2.0005, Fala(2.0005, {{0, 1}, {2, 2.0005}})}},
         false,
         "A 0-1"},
        {"items of one track close up into one line, skipped ones too",
         {{"A", 0, 4, meio}, {"curto", 6, 6.04}, {"B", 8, 12, meio}},
         true,
         "A 1-2 @1 ~/0.005 ~\\0.005 | curto 1.995-2.035 ~/0.005 ~\\0.005 | B 2.03-3.03 @1 ~/0.005 ~\\0.005"},
        {"a gap of 2 ms is closed too, a longer overlap stays",
         {{"A", 0, 2, Fala(2, {{0, 2}})}, {"B", 2.002, 4, Fala(2, {{0, 2}})}, {"C", 3.5, 5, Fala(2, {{0, 2}})}},
         true,
         "A 0-2 ~/0.005 ~\\0.005 | B 1.995-3.993 ~/0.005 ~\\0.005 | C 3.5-5 ~/0.005 ~\\0.005"},
        {"MIDI and a source that cannot be read count as silence",
         {{"M", 0, 2, simhost::Midi(4)}, {"U", 3, 5, simhost::Unreadable(Taxa, 2, 96000)}},
         false,
         "M 0-2 midi | U 3-5"},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.caso);
        Faixa(caso.caso, caso.itens);
        host::SelectAllMediaItems(nullptr, true);
        host.StartHistory();
        EXPECT_TRUE(Fatiar(caso.fechar));
        EXPECT_EQ(Retrato(), std::string(caso.caso) + ": " + caso.retrato);
        EXPECT_EQ(Historico(), "Fatiador Preview");
        EXPECT_EQ(host.refreshHeldOff, 0);
        host.project.tracks.Remove(*FindTrack(host.project, caso.caso));
    }
}

TEST_F(Fatias, CadaFaixaFechaSozinhaEONaoSelecionadoFica) {
    Faixa("Voz", {{"A", 0, 4, Fala(4, {{1, 2}, {3, 4}})}, {"resto", 20, 21}});
    Faixa("Baixo", {{"B", 10, 14, Fala(4, {{0, 1}, {2, 3}})}});
    Selecionar({"A", "B"});
    EXPECT_TRUE(Fatiar(true));
    EXPECT_EQ(Retrato(),
              "Voz: A 1-2 @1 ~/0.005 ~\\0.005 | A 1.995-2.995 @3 ~/0.005 ~\\0.005 | resto 20-21 / "
              "Baixo: B 10-11 ~/0.005 ~\\0.005 | B 10.995-11.995 @2 ~/0.005 ~\\0.005");
    EXPECT_EQ(Selecionados(), "A, A, B, B");
    EXPECT_EQ(host::Undo_DoUndo2(nullptr), 1);
    EXPECT_EQ(Retrato(), "Voz: A 0-4 | resto 20-21 / Baixo: B 10-14");
}

// From right to left, the accessor gone before the first cut, and all of it in one undo block.
TEST_F(Fatias, OrdemDasChamadas) {
    Faixa("Voz", {{"A", 10, 14, Fala(4, {{1, 2}, {3, 3.5}})}});
    Selecionar({"A"});
    host.tracing = true;
    host.trace.clear();
    EXPECT_TRUE(Fatiar(true));
    EXPECT_EQ(Chamadas(), R"(Undo_BeginBlock2(0)
PreventUIRefresh(1)
DestroyAudioAccessor(accessor)
SplitMediaItem(item A, 13.5) -> item A
DeleteTrackMediaItem(track Voz, item A) -> true
SplitMediaItem(item A, 13) -> item A
SetMediaItemSelected(item A, true)
SplitMediaItem(item A, 12) -> item A
DeleteTrackMediaItem(track Voz, item A) -> true
SplitMediaItem(item A, 11) -> item A
SetMediaItemSelected(item A, true)
DeleteTrackMediaItem(track Voz, item A) -> true
SetMediaItemInfo_Value(item A, "D_FADEINLEN_AUTO", 0.005) -> true
SetMediaItemInfo_Value(item A, "D_FADEINDIR", 0) -> true
SetMediaItemPosition(item A, 11.995, false) -> true
SetMediaItemInfo_Value(item A, "D_FADEOUTLEN_AUTO", 0.005) -> true
SetMediaItemInfo_Value(item A, "D_FADEINLEN_AUTO", 0.005) -> true
SetMediaItemInfo_Value(item A, "D_FADEOUTDIR", 0) -> true
SetMediaItemInfo_Value(item A, "D_FADEINDIR", 0) -> true
SetMediaItemInfo_Value(item A, "D_FADEOUTLEN_AUTO", 0.005) -> true
SetMediaItemInfo_Value(item A, "D_FADEOUTDIR", 0) -> true
PreventUIRefresh(-1)
UpdateArrange()
Undo_EndBlock2(0, "Fatiador Preview", -1)
)");
}

TEST_F(Fatias, SemSelecaoSoAvisa) {
    Faixa("Voz", {{"A", 0, 4}});
    EXPECT_FALSE(Fatiar(true));
    EXPECT_EQ(Mensagens(), "A.SPLIT: Selecione itens de audio.");
    EXPECT_EQ(Historico(), "");
    host.FailFrom("CountSelectedMediaItems", 1, -1);
    EXPECT_FALSE(Fatiar(true));
}

// A cut that the host refuses costs that cut and no more. The cuts asked for are, in order: left at 3, right at 2, left
// at 1.
TEST_F(Fatias, CortesRecusados) {
    static int corte;
    static const char* recusados;
    static decltype(host::SplitMediaItem) cortar;
    cortar = host::SplitMediaItem;
    host::SplitMediaItem = [](MediaItem* item, double segundo) {
        return recusados[corte++] == 'x' ? nullptr : cortar(item, segundo);
    };
    const struct {
        const char* recusados;
        const char* retrato;
    } casos[] = {
        {"...", "Voz: A 0-1 | A 2-3 @2"},
        {"x..", "Voz: A 0-1 | A 2-4 @2"},
        {".x.", "Voz: A 0-1"},
        {"..x", "Voz: A 0-2 | A 2-3 @2"},
        {"xxx", "Voz: A 0-4"},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.recusados);
        corte = 0;
        recusados = caso.recusados;
        Faixa("Voz", {{"A", 0, 4, Fala(4, {{0, 1}, {2, 3}})}});
        Selecionar({"A"});
        EXPECT_TRUE(Fatiar(false));
        EXPECT_EQ(Retrato(), caso.retrato);
        host.project.tracks.Remove(*FindTrack(host.project, "Voz"));
    }
}

// A host that answers nonsense now and then, and differently the second time, gets no dead or null handle from us, and
// its undo block and refresh count come back closed.
TEST_F(Fatias, HostQueRespondeBobagem) {
    static std::mt19937 sorte;
    static decltype(host::GetMediaItemInfo_Value) valor;
    static decltype(host::GetSelectedMediaItem) selecionado;
    static decltype(host::GetMediaItem_Track) faixa;
    static decltype(host::GetActiveTake) take;
    static decltype(host::CountSelectedMediaItems) contar;
    valor = host::GetMediaItemInfo_Value;
    selecionado = host::GetSelectedMediaItem;
    faixa = host::GetMediaItem_Track;
    take = host::GetActiveTake;
    contar = host::CountSelectedMediaItems;
    host::GetMediaItemInfo_Value = [](MediaItem* item, const char* chave) {
        static const double bobagens[] = {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, -1e300, -1, 0, 1e17, 0.05};
        return sorte() % 6 ? valor(item, chave) : bobagens[sorte() % std::size(bobagens)];
    };
    host::GetSelectedMediaItem = [](ReaProject* projeto, int indice) {
        return sorte() % 8 ? selecionado(projeto, indice) : nullptr;
    };
    host::GetMediaItem_Track = [](MediaItem* item) { return sorte() % 8 ? faixa(item) : nullptr; };
    host::GetActiveTake = [](MediaItem* item) { return sorte() % 8 ? take(item) : nullptr; };
    host::CountSelectedMediaItems = [](ReaProject* projeto) {
        return sorte() % 8 ? contar(projeto) : static_cast<int>(sorte() % 2000) - 1000;
    };
    for (unsigned semente = 1; semente <= 200; ++semente) {
        SCOPED_TRACE("seed " + std::to_string(semente));
        sorte.seed(semente);
        Faixa("Voz", {{"A", 0, 4, Fala(4, {{1, 2}, {3, 3.5}})}, {"B", 5, 8, Fala(3, {{0, 1}, {2, 3}})}});
        Faixa("Baixo", {{"C", 0, 4, Fala(4, {{1, 2}, {3, 4}})}});
        host::SelectAllMediaItems(nullptr, true);
        Fatiar(true);
        ASSERT_TRUE(host.Check()) << host.FirstViolation();
        while (host.project.tracks.Count() > 0) host.project.tracks.Remove(*host.project.tracks.At(0));
    }
}

// Exported, so anyone may call it before the entry has run, or after one that refused.
TEST_F(Fatias, SemEntradaNaoFazNada) {
    host.Forget("UpdateArrange");
    ASSERT_EQ(ReaperPluginEntry(nullptr, host.Record()), 0);
    Faixa("Voz", {{"A", 0, 4}});
    Selecionar({"A"});
    EXPECT_FALSE(Quilmo_AutoSplit(true, 55, -37.0));
    EXPECT_EQ(Historico(), "");
}
