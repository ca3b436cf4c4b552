// What callers lean on in the project: order, splits, undo, markers, and the numbered actions.
#include "host/actions.h"
#include "tests/lice/support.h"
#include "tests/support/story.h"

class Arrangement : public Cena {
  protected:
    void Block(const char* title, void (*edit)()) {
        host::Undo_BeginBlock2(nullptr);
        edit();
        host::Undo_EndBlock2(nullptr, title, -1);
    }
};

TEST_F(Arrangement, ItemsStandByPositionUnderTheirTracks) {
    Faixa("Voz", {{"C", 20, 24}, {"A", 2, 6}});
    MediaTrack* guitar = Faixa("Guitarra", {{"G", 0, 1}});
    host::SetMediaItemInfo_Value(ItemChamado("A"), "D_POSITION", 30);
    host::MoveMediaItemToTrack(ItemChamado("C"), guitar);
    Selecionar({"C", "A"});
    EXPECT_EQ(Selecionados(), "A, C");
    EXPECT_EQ(host::GetSelectedMediaItem(nullptr, 2), nullptr);
    host::SetMediaItemPosition(ItemChamado("C"), -0.01, false);
    EXPECT_EQ(RetratoCompleto(), "Voz: A 30-34 * / Guitarra: C -0.01-3.99 * | G 0-1");

    host.preferences.sortsAtOnce = false;  // the order then waits for the next refresh
    host::SetMediaItemPosition(ItemChamado("C"), 5, false);
    EXPECT_EQ(host::GetTrackMediaItem(guitar, 0), ItemChamado("C"));
    host::UpdateArrange();
    EXPECT_EQ(host::GetTrackMediaItem(guitar, 0), ItemChamado("G"));
}

// The list of a track's items must agree with a plain sorted list, wherever its gap stands.
TEST_F(Arrangement, AnyEditsKeepTheLists) {
    Random random;
    MediaTrack* tracks[] = {Faixa("a", {{"0", 0, 1000}}), Faixa("b", {{"1", 0, 1000}})};
    const auto listed = [](int (*count)(ReaProject*), MediaItem* (*get)(ReaProject*, int)) {
        std::vector<MediaItem*> items;
        for (int i = 0; i < count(nullptr); ++i) items.push_back(get(nullptr, i));
        return items;
    };
    for (int step = 0; step < 3000; ++step) {
        MediaItem* item = host::GetMediaItem(nullptr, random.In(0, host::CountMediaItems(nullptr) - 1));
        const int kind = random.In(0, 5), place = random.In(0, 999);
        if (kind < 2)
            host::SplitMediaItem(item, Dados(item).position + 0.25 * (place % 64));
        else if (kind == 2)
            host::SetMediaItemPosition(item, place, false);
        else if (kind == 3)
            host::MoveMediaItemToTrack(item, tracks[place % 2]);
        else if (kind == 4)
            host::SetMediaItemSelected(item, place % 2);
        else if (host::CountMediaItems(nullptr) > 2)
            host::DeleteTrackMediaItem(host::GetMediaItem_Track(item), item);
        std::vector<MediaItem*> items, selected;
        for (MediaTrack* track : tracks)
            for (int i = 0; i < host::CountTrackMediaItems(track); ++i) {
                MediaItem* here = items.emplace_back(host::GetTrackMediaItem(track, i));
                if (host::IsMediaItemSelected(here)) selected.push_back(here);
                ASSERT_EQ(host::GetMediaItem_Track(here), track);
                ASSERT_TRUE(i == 0 || Dados(items.end()[-2]).position <= Dados(here).position);
            }
        ASSERT_EQ(listed(host::CountMediaItems, host::GetMediaItem), items);
        ASSERT_EQ(listed(host::CountSelectedMediaItems, host::GetSelectedMediaItem), selected);
    }
}

TEST_F(Arrangement, ASplitSharesTheItemOut) {
    Faixa("Voz", {{"A", 2, 6}});
    MediaItem* left = ItemChamado("A");
    simhost::Item& item = Dados(left);
    item.takes[0]->playRate = 2;
    item.fadeIn = 0.1, item.fadeOut = 0.2;
    Selecionar({"A"});
    EXPECT_EQ(host::SplitMediaItem(left, 2), nullptr);  // an edge is not inside
    EXPECT_EQ(host::SplitMediaItem(left, 6), nullptr);
    MediaItem* right = host::SplitMediaItem(left, 3);
    EXPECT_FALSE(host::IsMediaItemSelected(right));
    EXPECT_EQ(Retrato(), "Voz: A 2-3 x2 ~/0.1 | A 3-6 @2 x2 ~\\0.2");

    host.preferences.splitCrossfade = 0.01;
    host::SplitMediaItem(left, 2.5);
    EXPECT_EQ(Retrato(), "Voz: A 2-2.5 x2 ~/0.1 ~\\0.01 | A 2.49-3 @0.98 x2 ~/0.01 | A 3-6 @2 x2 ~\\0.2");
}

TEST_F(Arrangement, UndoGivesTheProjectBackUnderNewHandles) {
    Projeto("Voz: A 2-6 *");
    MediaTrack* track = FaixaChamada("Voz");
    MediaItem* before = ItemChamado("A");
    EXPECT_EQ(host::Undo_CanUndo2(nullptr), nullptr);
    EXPECT_EQ(host::Undo_DoUndo2(nullptr), 0);

    Block("cut", [] {
        host::Undo_BeginBlock2(nullptr);  // belongs to the outer block
        host::SplitMediaItem(ItemChamado("A"), 4);
        host::Undo_EndBlock2(nullptr, "inner", -1);
        host::AddProjectMarker2(nullptr, true, 1, 2, "r", -1, 0);
    });
    Block("nothing", [] {});  // a block that changed nothing leaves a point too
    EXPECT_EQ(Historico(), "cut | nothing");
    host::SetMediaItemInfo_Value(ItemChamado("A"), "B_MUTE", 1);  // outside any block: goes with the next undo
    EXPECT_NE(host::Undo_DoUndo2(nullptr), 0);
    EXPECT_EQ(Retrato(), "Voz: A 2-4 | A 4-6 @2 [R1 r 1-2]");
    EXPECT_NE(host::Undo_DoUndo2(nullptr), 0);
    EXPECT_EQ(Retrato(), "Voz: A 2-6");
    EXPECT_EQ(Historico(), "");
    EXPECT_FALSE(host::ValidatePtr(before, "MediaItem*"));
    EXPECT_TRUE(host::ValidatePtr(track, "MediaTrack*"));
    EXPECT_FALSE(host::ValidatePtr(track, "MediaItem*"));
    EXPECT_EQ(host::GetMediaItem_Track(ItemChamado("A")), track);
    EXPECT_EQ(Selecionados(), "A");

    EXPECT_STREQ(host.undo.RedoTitle(), "cut");
    EXPECT_TRUE(host.undo.Redo());
    EXPECT_EQ(Retrato(), "Voz: A 2-4 | A 4-6 @2 [R1 r 1-2]");
    Block("new", [] {});
    EXPECT_EQ(host.undo.RedoTitle(), nullptr);
}

TEST_F(Arrangement, PreferencesChangeWhatUndoGives) {
    Projeto("Voz: A 2-6 * | B 8-9");
    host.preferences.undoRestoresSelection = false;
    Block("one", [] { host::SplitMediaItem(ItemChamado("B"), 8.5); });
    Selecionar({"B"});
    host::Undo_DoUndo2(nullptr);
    EXPECT_EQ(Selecionados(), "B");  // as the user left it

    host.preferences.undoPoints = 2;
    for (const char* title : {"two", "three", "four"})
        Block(title, [] { host::AddProjectMarker2(nullptr, false, 1, 1, "m", -1, 0); });
    EXPECT_EQ(Historico(), "three | four");
    while (host::Undo_DoUndo2(nullptr)) continue;
    EXPECT_EQ(Retrato(), "Voz: A 2-6 | B 8-9 [M1 m 1]");
}

TEST_F(Arrangement, MarkersAndRegionsAreListedByPosition) {
    Projeto("[M1 m 5]");
    EXPECT_EQ(host::AddProjectMarker2(nullptr, true, 6, 4, "back to front", -1, 0), 1);
    EXPECT_EQ(host::AddProjectMarker2(nullptr, true, 0, 9, "c", 7, 0x1000000), 7);
    EXPECT_EQ(host::AddProjectMarker2(nullptr, true, 4.5, 5, nullptr, 7, 0), 8);  // 7 is taken
    EXPECT_EQ(Retrato(), "[R7 c 0-9 #000000] [R1 back to front 4-6] [R8 4.5-5] [M1 m 5]");
    int marker, region;
    host::GetLastMarkerAndCurRegion(nullptr, 4.75, &marker, &region);
    EXPECT_EQ(marker, -1);
    EXPECT_EQ(region, 2);
    host::GetLastMarkerAndCurRegion(nullptr, 9, nullptr, &region);
    EXPECT_EQ(region, -1);
    EXPECT_TRUE(host::SetProjectMarker3(nullptr, 7, true, 5.5, 6, "", 0));  // keeps name and colour
    EXPECT_FALSE(host::SetProjectMarker3(nullptr, 99, true, 5, 6, "", 0));
    EXPECT_TRUE(host::DeleteProjectMarker(nullptr, 1, true));
    EXPECT_FALSE(host::DeleteProjectMarker(nullptr, 1, true));
    EXPECT_EQ(Retrato(), "[R8 4.5-5] [M1 m 5] [R7 c 5.5-6 #000000]");
    int markers, regions;
    EXPECT_EQ(host::CountProjectMarkers(nullptr, &markers, &regions), 3);
    EXPECT_EQ(markers, 1);
    EXPECT_EQ(host::EnumProjectMarkers(3, nullptr, nullptr, nullptr, nullptr, nullptr), 0);
}

TEST_F(Arrangement, TracksMoveTogetherAndKeepTheirHandles) {
    EXPECT_FALSE(host::ReorderSelectedTracks(0, 0));
    Projeto("1: / 2 (selected): / 3: / 4 (selected):");
    EXPECT_TRUE(host::ReorderSelectedTracks(0, 0));
    EXPECT_EQ(Retrato(), "2: / 4: / 1: / 3:");
    EXPECT_TRUE(host::ReorderSelectedTracks(3, 0));
    EXPECT_EQ(Retrato(), "1: / 2: / 4: / 3:");
    EXPECT_EQ(host::GetMediaTrackInfo_Value(FaixaChamada("4"), "IP_TRACKNUMBER"), 3);
    host::InsertTrackAtIndex(99, true);
    EXPECT_EQ(host::CountTracks(nullptr), 5);
    host::SetMediaTrackInfo_Value(FaixaChamada("1"), "I_CUSTOMCOLOR", host::ColorToNative(255, 128, 1) | 0x1000000);
    EXPECT_EQ(Retrato(), "1 (#ff8001): / 2: / 4: / 3: / :");
}

// What the user sees an action do; each that edits makes a point of its own, and none when there was nothing to do.
TEST_F(Arrangement, ActionsEditWhatIsSelectedAndNotLocked) {
    const std::tuple<int, const char*, const char*> rows[] = {
        {acao::RemoverItens, "Voz: B 8-9 | L 10-12 lock", "Remove items"},
        {acao::ApararBordaEsquerda, "Voz: A 4-6 @2 | B 8-9 | L 10-12 lock", "Trim left edge of items"},
        {acao::ApararBordaDireita, "Voz: A 2-4 | B 8-9 | L 10-12 lock", "Trim right edge of items"},
        {acao::DuplicarItens, "Voz: A 2-6 | A 6-10 | B 8-9 | L 10-12 lock", "Duplicate items"},
        {acao::DuplicarFaixas, "Voz: A 2-6 | B 8-9 | L 10-12 lock / Voz: A 2-6 | B 8-9 | L 10-12 lock",
         "Duplicate tracks"},
        {acao::ColarItens, "Voz: A-glued 2-6 | B 8-9 | L 10-12 lock", "Glue items"},
        {acao::RenderTakeStereo, "Voz: A-render 2-6 take 2/2 | B 8-9 | L 10-12 lock",
         "Render items to new stereo take"},
        {acao::ApagarTakeAtivo, "Voz: B 8-9 | L 10-12 lock", "Delete active take"},
        {acao::AlternarEnvelopeDeVolume, "Voz: A 2-6 envelope | B 8-9 | L 10-12 lock", "Toggle take volume envelope"},
    };
    for (const auto& [action, picture, undo] : rows) {
        SCOPED_TRACE(action);
        Projeto("Voz: A 2-6 | B 8-9 | L 10-12 {cursor 4}");
        Dados(ItemChamado("L")).lock = 1;
        host::Main_OnCommand(action, 0);
        EXPECT_EQ(Historico(), "");
        Selecionar({"A", "L"});
        Dados(FaixaChamada("Voz")).selected = true;
        host::Main_OnCommand(action, 0);
        EXPECT_EQ(Retrato(), picture);
        EXPECT_EQ(Historico(), undo);
    }
    host.preferences.deletesTracks = true;
    host::Main_OnCommand(acao::RemoverItens, 0);
    EXPECT_EQ(Retrato(), "");
}

TEST_F(Arrangement, TransportAndViewFollowTheirActions) {
    Projeto("Voz: A 2-6");
    double start = 1, end = 3;
    host::GetSet_LoopTimeRange(true, true, &start, &end, false);
    EXPECT_EQ(RetratoCompleto(), "Voz: A 2-6 {time 1-3} {loop 1-3}");
    for (const int action : {acao::IrAoFim, acao::TirarSelecaoDeTempo, acao::Tocar}) host::Main_OnCommand(action, 0);
    EXPECT_EQ(RetratoCompleto(), "Voz: A 2-6 {cursor 6} {play 1}");
    host.transport.Elapse(2);
    host::Main_OnCommand(acao::TocarOuPausar, 0);
    EXPECT_EQ(host::GetPlayState(), 2);
    host::Main_OnCommand(acao::TocarOuPausar, 0);
    host::Main_OnCommand(acao::PararGravacao, 0);
    EXPECT_EQ(RetratoCompleto(), "Voz: A 2-6 {cursor 8}");
    host::Main_OnCommand(acao::IrAoInicio, 0);

    Selecionar({"A"});
    host::Main_OnCommand(acao::ZoomNosItens, 0);
    EXPECT_EQ(host::GetToggleCommandState(acao::ZoomNosItens), 1);
    EXPECT_EQ(RetratoCompleto(), "Voz: A 2-6 * {view 2-6}");
    host::Main_OnCommand(acao::ZoomNosItens, 0);
    EXPECT_EQ(RetratoCompleto(), "Voz: A 2-6 *");
    EXPECT_EQ(host::GetToggleCommandState(acao::AlternarLinhasDeGrade), 1);
    host::Main_OnCommand(acao::AlternarLinhasDeGrade, 0);
    EXPECT_EQ(host::GetToggleCommandState(acao::AlternarLinhasDeGrade), 0);
    EXPECT_EQ(host::GetToggleCommandState(acao::AbrirConfigRender), -1);
}

TEST_F(Arrangement, ARecordingEndsInItemsOnArmedTracks) {
    Projeto("Voz (armed): / Guitarra: {cursor 3}");
    host::Main_OnCommand(acao::Gravar, 0);
    EXPECT_EQ(host::GetToggleCommandState(acao::Gravar), 1);
    EXPECT_EQ(host::GetPlayState(), 5);
    host.transport.Elapse(2.5);
    host::Main_OnCommand(acao::Parar, 0);  // asks, as long as nobody has switched that off, and nobody says yes
    EXPECT_EQ(Mensagens(), "Recording: Save recorded media?");
    EXPECT_EQ(Retrato(), "Voz (armed): / Guitarra:");

    host.settings.SetNumber("promptendrec", 0);
    host::Main_OnCommand(acao::Gravar, 0);
    host.transport.Elapse(2.5);
    host::Main_OnCommand(acao::PararGravacao, 0);
    EXPECT_EQ(RetratoCompleto(), "Voz (armed): rec 3-5.5 / Guitarra: {cursor 5.5}");
    EXPECT_EQ(Historico(), "Recorded media");
    EXPECT_EQ(host.dialogs.messages.size(), 1u);
}
