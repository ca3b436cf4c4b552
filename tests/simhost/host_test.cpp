// The stand-in catches each kind of bad caller; then what tests and tools lean on in it.
#include "tests/support/scene.h"

class Strict : public Cena {};

namespace {

// Something that no handle is, at an address that exists.
template <class Handle>
Handle Foreign() {
    static int something;
    return reinterpret_cast<Handle>(&something);
}

MediaItem* Deleted(MediaItem* item) {
    host::DeleteTrackMediaItem(FaixaChamada("Voz"), item);
    return item;
}

AudioAccessor* AccessorOn(MediaItem* item) { return host::CreateTakeAudioAccessor(host::GetActiveTake(item)); }

AudioAccessor* Destroyed(AudioAccessor* accessor) {
    host::DestroyAudioAccessor(accessor);
    return accessor;
}

void Read(AudioAccessor* accessor, int rate) {
    double samples[2];
    EXPECT_EQ(host::GetAudioAccessorSamples(accessor, rate, 2, 0, 1, samples), -1);
}

void Block(const char* title, int flags) {
    host::Undo_BeginBlock2(nullptr);
    host::Undo_EndBlock2(nullptr, title, flags);
}

struct BadCaller {
    const char* sentence;
    void (*misuse)();
};

// On a track Voz with an item A, and a track Outra. What they leave open is closed for them.
const BadCaller BadCallers[] = {
    {"IsMediaItemSelected: the item handle is null", [] { host::IsMediaItemSelected(nullptr); }},
    {"CountTakes: the item handle is dead", [] { host::CountTakes(Deleted(ItemChamado("A"))); }},
    {"CountTakes: the item handle is foreign", [] { host::CountTakes(Foreign<MediaItem*>()); }},
    {"CountTakes: the item handle is of another kind",
     [] { host::CountTakes(reinterpret_cast<MediaItem*>(FaixaChamada("Voz"))); }},
    {"GetMediaTrackInfo_Value: the track handle is null", [] { host::GetMediaTrackInfo_Value(nullptr, "I_SELECTED"); }},
    {"SetActiveTake: the take handle is foreign", [] { host::SetActiveTake(Foreign<MediaItem_Take*>()); }},
    {"GetMediaSourceLength: the source handle is null", [] { host::GetMediaSourceLength(nullptr, nullptr); }},
    {"CountTracks: the project handle is foreign", [] { host::CountTracks(Foreign<ReaProject*>()); }},
    {"DeleteTrackMediaItem: item A is not on track Outra",
     [] { host::DeleteTrackMediaItem(FaixaChamada("Outra"), ItemChamado("A")); }},
    {"GetMediaItemInfo_Value: unknown key \"D_POSITON\"",
     [] { host::GetMediaItemInfo_Value(ItemChamado("A"), "D_POSITON"); }},
    {"SetMediaTrackInfo_Value: unknown key \"IP_TRACKNUMBER\"",
     [] { host::SetMediaTrackInfo_Value(FaixaChamada("Voz"), "IP_TRACKNUMBER", 2); }},
    {"GetSetProjectInfo: unknown setting \"RENDER_BOUND\"",
     [] { host::GetSetProjectInfo(nullptr, "RENDER_BOUND", 1, true); }},
    {"GetSetProjectInfo_String: unknown setting, or no text, for \"RENDER_FILE\"",
     [] { host::GetSetProjectInfo_String(nullptr, "RENDER_FILE", nullptr, true); }},
    {"an undo block was left open", [] { host::Undo_BeginBlock2(nullptr); }},
    {"Undo_EndBlock2: no undo block is open to be closed as \"x\"", [] { host::Undo_EndBlock2(nullptr, "x", -1); }},
    {"Undo_EndBlock2: an undo block without a title", [] { Block("", -1); }},
    {"Undo_EndBlock2: an undo block that holds only some of the changes", [] { Block("x", 4); }},
    {"Undo_DoUndo2: undo while an undo block is open",
     [] { host::Undo_BeginBlock2(nullptr), host::Undo_DoUndo2(nullptr); }},
    {"the refresh is still held off, 1 times", [] { host::PreventUIRefresh(1); }},
    {"PreventUIRefresh: the refresh is released more often than it was held off", [] { host::PreventUIRefresh(-1); }},
    {"an audio accessor was not destroyed", [] { AccessorOn(ItemChamado("A")); }},
    {"DestroyAudioAccessor: the accessor handle is dead", [] { Destroyed(Destroyed(AccessorOn(ItemChamado("A")))); }},
    {"GetAudioAccessorSamples: the accessor's take is gone",
     [] {
         AudioAccessor* accessor = AccessorOn(ItemChamado("A"));
         Deleted(ItemChamado("A"));
         Read(accessor, 48000);
     }},
    {"GetAudioAccessorSamples: rate, channels and frames must be above 0",
     [] { Read(AccessorOn(ItemChamado("A")), 0); }},
    {"ShowMessageBox: a message without text or title", [] { host::ShowMessageBox("a", nullptr, 0); }},
    {"GetUserInputs: a dialog needs a title",  // the text does not end within its two bytes
     [] { host::GetUserInputs("t", 1, "c", std::string("ab").data(), 2); }},
    {"Main_OnCommand: there is no action 7", [] { host::Main_OnCommand(7, 0); }},
    {"AddRemoveReaScript: the script x is not in the action list",
     [] { host::AddRemoveReaScript(false, 0, "x", true); }},
    {"ValidatePtr: unknown type \"Item*\"", [] { host::ValidatePtr(nullptr, "Item*"); }},
    {"projectconfig_var_addr: no setting lies at offset 3", [] { host::projectconfig_var_addr(nullptr, 3); }},
    {"GetSet_LoopTimeRange: start and end must not be null",
     [] { host::GetSet_LoopTimeRange(false, false, nullptr, nullptr, false); }},
    {"Register: there is nothing to register as \"acao\"",
     [] { simhost::Host::Current().Record()->Register("acao", Foreign<void*>()); }},
    {"Register: nothing is given for \"gaccel\"",
     [] { simhost::Host::Current().Record()->Register("gaccel", nullptr); }},
    {"FailFrom: there is no function CountItems", [] { simhost::Host::Current().calls.FailFrom("CountItems", 1); }},
};

}  // namespace

TEST_F(Strict, EveryKindOfBadCallerIsCaughtAndNamed) {
    for (const BadCaller& bad : BadCallers) {
        SCOPED_TRACE(bad.sentence);
        host.project.tracks = {};
        host.undo.Start();
        Faixa("Voz", {{"A", 2, 6}});
        Faixa("Outra");
        ASSERT_TRUE(host.Check()) << "before the misuse: " << host.FirstViolation();
        bad.misuse();
        EXPECT_FALSE(host.Check());
        EXPECT_TRUE(host.FirstViolation().starts_with(bad.sentence)) << host.FirstViolation();
        if (host.undo.Open()) host.undo.End("x");
        host.screen.heldOff = 0;
        host.accessors.clear();
        host.ForgetViolations();
    }
}

TEST_F(Strict, FunctionsFailFromTheAskedCallOn) {
    MediaTrack* voice = Faixa("Voz", {{"A", 0, 8}});
    EXPECT_EQ(host::SplitMediaItem(ItemChamado("A"), 9), nullptr);  // outside
    host.calls.FailFrom("SplitMediaItem", 2);                       // counted from here
    EXPECT_NE(host::SplitMediaItem(ItemChamado("A"), 6), nullptr);
    EXPECT_EQ(host::SplitMediaItem(ItemChamado("A"), 4), nullptr);
    EXPECT_EQ(host::SplitMediaItem(ItemChamado("A"), 2), nullptr);
    EXPECT_EQ(host.calls.Count("SplitMediaItem"), 4);
    host.calls.FailFrom("DeleteTrackMediaItem", 1);
    host.calls.FailFrom("AddProjectMarker2", 1, -1);
    host.calls.FailFrom("SelectAllMediaItems", 1);
    EXPECT_FALSE(host::DeleteTrackMediaItem(voice, ItemChamado("A")));
    EXPECT_EQ(host::AddProjectMarker2(nullptr, true, 0, 1, "", -1, 0), -1);
    host::SelectAllMediaItems(nullptr, true);
    EXPECT_EQ(RetratoCompleto(), "Voz: A 0-6 | A 6-8 @6");
    host.calls.StopFailing();
    EXPECT_NE(host::SplitMediaItem(ItemChamado("A"), 2), nullptr);
}

TEST_F(Strict, TheTraceTellsCallsInOrder) {
    Faixa("Voz", {{"A", 2, 6}});
    MediaItem* item = ItemChamado("A");
    host.calls.tracing = true;
    const int64_t changes = host.screen.changes;
    host::SetMediaItemInfo_Value(item, "D_POSITION", 0.1);
    host::DeleteTrackMediaItem(host::GetMediaItem_Track(item), item);
    host::CountTakes(item);
    host::UpdateArrange();
    EXPECT_EQ(host.screen.changes - changes, 3) << "questions change nothing";
    host.calls.tracing = false;
    host::UpdateArrange();
    const std::vector<std::string> told = {
        "SetMediaItemInfo_Value(item A, \"D_POSITION\", 0.1) -> true", "GetMediaItem_Track(item A) -> track Voz",
        "DeleteTrackMediaItem(track Voz, item A) -> true", "CountTakes(item (dead)) -> 0", "UpdateArrange()"};
    EXPECT_EQ(host.calls.trace, told);
    EsperarViolacao("CountTakes");
}

// The names are looked up one by one, and a host may lack any of them.
TEST_F(Strict, UnknownNamesAndRefusalsAreAnswered) {
    EXPECT_EQ(host.Record()->GetFunc("CountTracksX"), nullptr);
    EXPECT_EQ(host.extension.unknown, std::vector<std::string>{"CountTracksX"});
    EXPECT_EQ(host.extension.Function("Outra"), nullptr);
    EXPECT_EQ(host.extension.ActionNumber("_QUILMO_ABRIR_PAINEL"), host.extension.ActionNumber("QUILMO_ABRIR_PAINEL"));
    EXPECT_GT(host.extension.ActionNumber("QUILMO_ABRIR_PAINEL"), 65535);  // numbers do not fit a key's 16 bits
    EXPECT_FALSE(host.RunAction("_OUTRA"));
    EXPECT_EQ(host::GetToggleCommandState(host.extension.ActionNumber("QUILMO_ABRIR_PAINEL")), 0);
}

TEST_F(Strict, DialogsAreAnsweredFromTheQueuesThenByCaution) {
    ResponderMensagem(6);
    EXPECT_EQ(host::ShowMessageBox("Apagar?", "Atencao", 4), 6);
    EXPECT_EQ(host::ShowMessageBox("Apagar?", "Atencao", 4), 7);
    EXPECT_EQ(host::ShowMessageBox("Feito.", "Quilmo", 0), 1);
    EXPECT_EQ(Mensagens(), "Atencao: Apagar? | Atencao: Apagar? | Quilmo: Feito.");

    char text[5] = "abc";
    ResponderTexto("longer than that");
    EXPECT_TRUE(host::GetUserInputs("Nome", 1, "Nome:", text, sizeof text));
    EXPECT_STREQ(text, "long");
    EXPECT_FALSE(host::GetUserInputs("Nome", 1, "Nome:", text, sizeof text));
    EXPECT_STREQ(text, "long");
    EXPECT_EQ(host.dialogs.inputs[0].before, "abc");
}

TEST_F(Strict, AScriptIsReadWhenAddedAndRunUnderItsNumber) {
    EXPECT_EQ(host::AddRemoveReaScript(true, 0, (host.resourcePath + "/missing.lua").c_str(), true), 0);
    const std::string path = host.resourcePath + "/s.lua";
    GravarArquivo(path, "print(1)");
    const int number = host::AddRemoveReaScript(true, 0, path.c_str(), true);
    ASSERT_NE(number, 0);
    std::string ran;
    host.scripts.runner = [&](const simhost::Script& script) {
        ran = script.text;
        host::AddRemoveReaScript(false, 0, script.path.c_str(), true);  // a script may take itself out
    };
    host::Main_OnCommand(number, 0);
    EXPECT_EQ(ran, "print(1)");
    EXPECT_TRUE(host.scripts.added.empty());
    host::Main_OnCommand(number, 0);
    EsperarViolacao("there is no action");
}

// Two names for one place, and what callers write there lasts.
TEST_F(Strict, SettingsKeepTheirStorage) {
    int size = 0;
    auto* prompt = static_cast<int*>(host::get_config_var("promptendrec", &size));
    ASSERT_EQ(size, 4);
    *prompt = 0;
    EXPECT_EQ(host.settings.Number("promptendrec"), 0);
    EXPECT_EQ(host::get_config_var("other", &size), nullptr);
    EXPECT_EQ(size, 0);

    const int offset = host::projectconfig_var_getoffs("projrenderresample", &size);
    ASSERT_EQ(size, 4);
    *static_cast<int*>(host::projectconfig_var_addr(host::EnumProjects(-1, nullptr, 0), offset)) = 9;
    EXPECT_EQ(host::GetSetProjectInfo(nullptr, "RENDER_RESAMPLEMODE", 0, false), 9);
    host::projectconfig_var_getoffs("other", &size);
    EXPECT_EQ(size, 0);

    char pattern[512] = "$region";
    EXPECT_TRUE(host::GetSetProjectInfo_String(nullptr, "RENDER_PATTERN", pattern, true));
    pattern[0] = 0;
    EXPECT_TRUE(host::GetSetProjectInfo_String(nullptr, "RENDER_PATTERN", pattern, false));
    EXPECT_STREQ(pattern, "$region");

    char path[8];
    host.project.path = "C:\\long\\Show.RPP";
    host::EnumProjects(-1, path, sizeof path);
    EXPECT_STREQ(path, "C:\\long");
    EXPECT_EQ(host::EnumProjects(1, path, sizeof path), nullptr);
}
