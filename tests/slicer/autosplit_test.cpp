// The slicer as a script calls it: what is cut away, what closes up, and in which order the host is asked.

#include "slicer/autosplit.h"
#include "tests/support/pattern.h"
#include "tests/support/scene.h"

constexpr int Taxa = 48000;

// Silence and sound at half scale in turn, changing at these seconds; the last of them is the end.
static simhost::SourceRef Fala(std::initializer_list<double> bordas) {
    std::vector<Segment> trechos;
    double antes = 0, nivel = 0;
    for (const double borda : bordas) {
        if (borda > antes) trechos.push_back({std::llround((borda - antes) * Taxa), nivel});
        antes = borda;
        nivel = 0.5 - nivel;
    }
    return Bursts(Taxa, 2, trechos);
}

class Fatias : public Cena {
  protected:
    bool Fatiar(bool fechar) {
        void* funcao = host.extension.Function("Quilmo_AutoSplit");
        // A block of no length counts as 55 ms.
        return reinterpret_cast<decltype(&Quilmo_AutoSplit)>(funcao)(fechar, -1, -37.0);
    }
    // The only track in the project, with all its items selected.
    void SoEstaFaixa(const std::vector<ItemDeCena>& itens) {
        while (host.project.tracks.Count() > 0) host.project.tracks.Remove(*host.project.tracks.At(0));
        Faixa("Voz", itens);
        host::SelectAllMediaItems(nullptr, true);
        host.undo.Start();
    }
};

TEST_F(Fatias, SoOSomFica) {
    const auto meio = Fala({1, 2, 4}), tres = Fala({0.5, 1, 2, 3, 4, 5, 6}), tudo = Fala({0, 1, 1.04, 3});
    const std::tuple<std::vector<ItemDeCena>, bool, std::string> casos[] = {
        // One piece gets no fades, and closes up with nothing; more of them stay where they sounded.
        {{{"A", 10, 14, meio}}, false, "A 11-12 @1"},
        {{{"A", 10, 14, meio}}, true, "A 11-12 @1"},
        {{{"A", 10, 16, tres}}, false, "A 10.5-11 @0.5 | A 12-13 @2 | A 14-15 @4"},
        // Closing overlaps them by 5 ms, and fades.
        {{{"A", 10, 16, tres}},
         true,
         "A 10.5-11 @0.5 ~/0.005 ~\\0.005 | A 10.995-11.995 @2 ~/0.005 ~\\0.005 | A 11.99-12.99 @4 ~/0.005 ~\\0.005"},
        {{{"A", 0, 3, Fala({0, 1, 2, 3})}}, false, "A 0-1 | A 2-3 @2"},
        // Nothing sounds, or all of it does: nothing goes. No sliver is left of a last half millisecond.
        {{{"A", 0, 3, Fala({3})}}, true, "A 0-3"},
        {{{"A", 0, 3, tudo}}, true, "A 0-3"},
        {{{"A", 0, 1.001, Fala({0, 1, 1.001})}}, true, "A 0-1.001"},
        {{{"A", 0, 2.0005, Fala({0, 1, 2, 2.0005})}}, false, "A 0-1"},
        // Items of one track close up into one line, skipped ones too.
        {{{"A", 0, 4, meio}, {"curto", 6, 6.04}, {"B", 8, 12, meio}},
         true,
         "A 1-2 @1 ~/0.005 ~\\0.005 | curto 1.995-2.035 ~/0.005 ~\\0.005 | B 2.03-3.03 @1 ~/0.005 ~\\0.005"},
        // A gap of 2 ms is closed too; a longer overlap stays.
        {{{"A", 0, 2, tudo}, {"B", 2.002, 4, tudo}, {"C", 3.5, 5, tudo}},
         true,
         "A 0-2 ~/0.005 ~\\0.005 | B 1.995-3.993 ~/0.005 ~\\0.005 | C 3.5-5 ~/0.005 ~\\0.005"},
        // MIDI and a source that cannot be read count as silence.
        {{{"M", 0, 2, Midi(4)}, {"U", 3, 5, Unreadable(Taxa, 2, 96000)}}, false, "M 0-2 midi | U 3-5"},
    };
    for (const auto& [itens, fechar, pedacos] : casos) {
        SoEstaFaixa(itens);
        EXPECT_TRUE(Fatiar(fechar));
        EXPECT_EQ(Retrato(), "Voz: " + pedacos);
        EXPECT_EQ(Historico(), "Fatiador Preview");
    }
}

TEST_F(Fatias, CadaFaixaFechaSozinhaEONaoSelecionadoFica) {
    Faixa("Voz", {{"A", 0, 4, Fala({1, 2, 3, 4})}, {"resto", 20, 21}});
    Faixa("Baixo", {{"B", 10, 14, Fala({0, 1, 2, 3, 4})}});
    EXPECT_FALSE(Fatiar(true));
    EXPECT_EQ(Mensagens(), "A.SPLIT: Selecione itens de audio.");
    EXPECT_EQ(Historico(), "");
    Selecionar({"A", "B"});
    EXPECT_TRUE(Fatiar(true));
    EXPECT_EQ(Retrato(),
              "Voz: A 1-2 @1 ~/0.005 ~\\0.005 | A 1.995-2.995 @3 ~/0.005 ~\\0.005 | resto 20-21 / "
              "Baixo: B 10-11 ~/0.005 ~\\0.005 | B 10.995-11.995 @2 ~/0.005 ~\\0.005");
    EXPECT_EQ(Selecionados(), "A, A, B, B");
    EXPECT_EQ(host::Undo_DoUndo2(nullptr), 1);
    EXPECT_EQ(Retrato(), "Voz: A 0-4 | resto 20-21 / Baixo: B 10-14");
}

// The accessor is gone before the first cut, cuts go from right to left, and all of it is one undo block.
TEST_F(Fatias, OrdemDasChamadas) {
    SoEstaFaixa({{"A", 10, 11.2, Fala({0.2, 0.4, 0.8, 1, 1.2})}});
    host.calls.tracing = true;
    EXPECT_TRUE(Fatiar(true));
    std::string chamadas;  // without the things that they name, and without what came back
    for (const std::string& linha : host.calls.trace)
        if (!Matches(linha, "^\\w*(Audio|Source|Split|SetMedia|Delete|Undo|Prevent|Update)").empty())
            chamadas += Replaced(linha, "(item|track|take|source) \\w+(, )?| -> .*") + ' ';
    EXPECT_EQ(chamadas,
              "Undo_BeginBlock2(0) PreventUIRefresh(1) CreateTakeAudioAccessor() GetMediaItemTake_Source() "
              "GetMediaSourceSampleRate() GetMediaSourceNumChannels() GetAudioAccessorStartTime(accessor) "
              "GetAudioAccessorSamples(accessor, 48000, 2, 0, 57600, &) DestroyAudioAccessor(accessor) "
              "SplitMediaItem(11) DeleteTrackMediaItem() SplitMediaItem(10.8) SetMediaItemSelected(true) "
              "SplitMediaItem(10.4) DeleteTrackMediaItem() SplitMediaItem(10.2) SetMediaItemSelected(true) "
              "DeleteTrackMediaItem() "
              R"(SetMediaItemInfo_Value("D_FADEINLEN_AUTO", 0.005) SetMediaItemInfo_Value("D_FADEINDIR", 0) )"
              "SetMediaItemPosition(10.395, false) "
              R"(SetMediaItemInfo_Value("D_FADEOUTLEN_AUTO", 0.005) SetMediaItemInfo_Value("D_FADEINLEN_AUTO", 0.005) )"
              R"(SetMediaItemInfo_Value("D_FADEOUTDIR", 0) SetMediaItemInfo_Value("D_FADEINDIR", 0) )"
              R"(SetMediaItemInfo_Value("D_FADEOUTLEN_AUTO", 0.005) SetMediaItemInfo_Value("D_FADEOUTDIR", 0) )"
              R"(PreventUIRefresh(-1) UpdateArrange() Undo_EndBlock2(0, "Fatiador Preview", -1) )");
}

// A cut that the host refuses costs that cut and no more. They are asked for at 3, at 2 and at 1.
TEST_F(Fatias, CortesRecusados) {
    static int corte;
    static const char* recusados;
    static decltype(host::SplitMediaItem) cortar;
    cortar = host::SplitMediaItem;
    host::SplitMediaItem = [](MediaItem* item, double segundo) {
        return recusados[corte++] == 'x' ? nullptr : cortar(item, segundo);
    };
    const std::pair<const char*, const char*> casos[] = {{"...", "Voz: A 0-1 | A 2-3 @2"},
                                                         {"x..", "Voz: A 0-1 | A 2-4 @2"},
                                                         {".x.", "Voz: A 0-1"},
                                                         {"..x", "Voz: A 0-2 | A 2-3 @2"},
                                                         {"xxx", "Voz: A 0-4"}};
    for (const auto& [recusa, pedacos] : casos) {
        corte = 0;
        recusados = recusa;
        SoEstaFaixa({{"A", 0, 4, Fala({0, 1, 2, 3, 4})}});
        EXPECT_TRUE(Fatiar(false));
        EXPECT_EQ(Retrato(), pedacos) << recusa;
    }
}
