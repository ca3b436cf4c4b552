#include "apps/studio/window.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "apps/studio/wave_file.h"
#include "host/actions.h"
#include "platform/files.h"
#include "tests/support/desktop_driver.h"
#include "tests/support/wave_writer.h"

// The window with a recording of ten seconds: sound, two seconds of pause, sound.
class Studio : public testing::Test {
  protected:
    void SetUp() override {
        window.LoadPlugin();
        WaveText wave{1, 1, 8, 8000, {}};
        for (int i = 0; i < 80000; ++i) wave.samples += i / 16000 == 2 ? '\x80' : i / 4 % 2 ? '\xC0' : '\x40';
        window.Open(WriteWave("fala.wav", wave));
        driver::Pump();
    }
    void TearDown() override { EXPECT_TRUE(host.Check()) << host.FirstViolation(); }

    LRESULT Send(UINT message, WPARAM w, POINT at) {
        return SendMessageA(host.mainWindow, message, w, MAKELPARAM(at.x, at.y));
    }
    void Drag(POINT from, POINT to) {
        Send(WM_LBUTTONDOWN, 0, from);
        Send(WM_MOUSEMOVE, 0, to);
        Send(WM_LBUTTONUP, 0, to);
    }
    POINT At(double time, int y = 90) const { return {view.ColumnOf(time), y}; }
    // The entry's text as the menu shows it when it is opened; chosen, if asked for.
    std::string Entry(int menu, int position, bool choose = false) {
        const HMENU popup = GetSubMenu(GetMenu(host.mainWindow), menu);
        SendMessageA(host.mainWindow, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup), 0);
        char text[100] = "";
        GetMenuStringA(popup, static_cast<UINT>(position), text, sizeof text, MF_BYPOSITION);
        if (choose) SendMessageA(host.mainWindow, WM_COMMAND, GetMenuItemID(popup, position), 0);
        return text;
    }

    StudioWindow window{std::filesystem::temp_directory_path().string()};
    simhost::Host& host = window.Host();
    View view = [this] {
        RECT client;
        GetClientRect(host.mainWindow, &client);
        View same(host);
        same.Resize(client.right, client.bottom);
        return same;
    }();
};

TEST_F(Studio, MouseSelectsMovesTheCursorAndTheTimeSelection) {
    const simhost::Item& item = *host.project.tracks.ItemAt(0);
    const double pixel = view.TimeAt(501) - view.TimeAt(500);
    Drag(At(3, 400), At(3, 400));
    EXPECT_FALSE(item.selected) << "below the tracks there is nothing to select";
    EXPECT_NEAR(host.project.cursor, 3, pixel);
    Drag(At(7), At(7));
    EXPECT_TRUE(item.selected);
    EXPECT_NEAR(host.project.cursor, 7, pixel);

    Drag(At(6), At(2));  // to the left
    EXPECT_NEAR(host.project.timeSelection.start, 2, pixel);
    EXPECT_NEAR(host.project.timeSelection.end, 6, pixel);
    EXPECT_EQ(host.project.loop, host.project.timeSelection);
    EXPECT_NEAR(host.project.cursor, 7, pixel) << "a drag leaves the cursor";

    Drag({20, 90}, {20, 90});  // on the track's name
    EXPECT_TRUE(host.project.tracks.At(0)->selected);
}

TEST_F(Studio, ClicksFindTakesInLanesAndTracksThatAreScrolled) {
    simhost::Item& item = *host.project.tracks.ItemAt(0);
    item.takes.push_back(item.takes[0]);
    host.actions.toggles[acao::AlternarTakesEmPistas] = 1;
    Drag(At(5, 130), At(5, 130));
    EXPECT_EQ(item.activeTake, 1);
    EXPECT_EQ(Entry(1, 0, true), "Desfazer: Escolher tomada\tCtrl+Z");
    EXPECT_EQ(host.project.tracks.ItemAt(0)->activeTake, 0);

    for (int i = 0; i < 40; ++i) AddTrack(host.project, "outra").height = 24;
    POINT screen = At(5);
    ClientToScreen(host.mainWindow, &screen);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(-3 * WHEEL_DELTA)), screen);  // 180 pixels
    Drag({20, 44}, {20, 44});  // the uppermost pixel below the ruler
    for (int i = 0; i < 41; ++i) EXPECT_EQ(host.project.tracks.At(i)->selected, i == 3) << i;

    host.project.view = {5, 5};  // as an extension may leave it
    ASSERT_TRUE(driver::AwaitTimer(host.mainWindow, 1));
    EXPECT_GT(host.project.view.end, 5);
}

TEST_F(Studio, WheelZoomsAroundTheMouseAndScrollsNoFurtherThanTheStart) {
    const POINT at = At(4);
    POINT screen = at;
    ClientToScreen(host.mainWindow, &screen);
    const double before = view.TimeAt(at.x), seconds = host.project.view.end - host.project.view.start;
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), screen);
    EXPECT_NEAR(view.TimeAt(at.x), before, 1e-9);
    EXPECT_NEAR(host.project.view.end - host.project.view.start, seconds / 1.25, 1e-9);
    for (int i = 0; i < 50; ++i) Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, WHEEL_DELTA), screen);
    EXPECT_EQ(host.project.view.start, 0);
    EXPECT_NEAR(host.project.view.end, seconds / 1.25, 1e-9);
}

TEST_F(Studio, TheFirstViewLeavesThePanelsPlaceAndPlusZoomsAroundTheCursor) {
    RECT client;
    GetClientRect(host.mainWindow, &client);
    EXPECT_NEAR(view.ColumnOf(10), client.right - 360, 1);
    host.project.cursor = 7;
    for (const int action : {acao::AproximarHorizontal, acao::AproximarHorizontal, acao::AfastarHorizontal}) {
        const int before = view.ColumnOf(7);
        host.RunAction(action);
        EXPECT_EQ(view.ColumnOf(7), before);
    }
}

// Of a thousand pieces in 300 columns one sees the sound, as of the item before it was cut, and no fades.
TEST_F(Studio, PiecesNarrowerThanAPixelKeepTheirWaveform) {
    const auto colours = [this] {
        LICE_MemBitmap picture(420, 154);
        PaintArrangement(host.project, &picture, {0, 10});
        std::map<LICE_pixel, int> count;
        for (int y = 70; y < 140; ++y)
            for (int x = 124; x < 416; ++x) ++count[picture.getBits()[y * picture.getRowSpan() + x]];
        return count;
    };
    simhost::TrackList& tracks = host.project.tracks;
    host.project.cursor = 11;
    const auto whole = colours();
    for (int i = 999; i > 0; --i) Split(host.project, *tracks.ItemAt(0), i * 0.01);
    for (simhost::Item* piece : tracks.Items()) piece->fadeIn = piece->fadeOut = 0.005;
    ASSERT_EQ(tracks.ItemCount(), 1000);
    const auto pieces = colours();
    EXPECT_EQ(pieces.size(), whole.size()) << "a colour that the whole item does not have";
    for (const auto& [colour, count] : whole)
        EXPECT_NEAR(pieces.contains(colour) ? pieces.at(colour) : 0, count, 0.1 * count) << std::hex << colour;
}

TEST_F(Studio, SavedWithTheGluedFileBesideItNothingIsAskedAtTheEnd) {
    int asked = 0;
    host.dialogs.onMessage = [&asked](const std::string&, const std::string&, int) { return ++asked, IDNO; };
    const auto close = [this] { return SendMessageA(host.mainWindow, WM_CLOSE, 0, 0); };
    host.project.tracks.Select(*host.project.tracks.ItemAt(0), true);
    host.RunAction(acao::ColarSelecao);
    close();
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(IsWindow(host.mainWindow));

    const auto folder = std::filesystem::temp_directory_path() / "guardado";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    SourceFiles files;
    std::string error, text;
    int blocks = 0;
    ASSERT_TRUE(SaveProject(
        host.project, (folder / "fala.rpp").string(), files, [&] { ++blocks; }, &error))
        << error;
    EXPECT_GT(blocks, 1);
    ASSERT_TRUE(ReadTextFile((folder / "fala.rpp").string(), text));
    const std::string glued = (folder / "fala-glued.wav").string();
    EXPECT_NE(text.find("LENGTH 10\n"), text.npos) << text;
    EXPECT_NE(text.find("<SOURCE WAVE\n        FILE \"" + glued + "\"\n"), text.npos) << text;
    const simhost::SourceRef written = OpenWaveFile(glued, &error);
    ASSERT_TRUE(written) << error;
    EXPECT_EQ(written->Frames(), 80000);
}

TEST_F(Studio, FilesDroppedGetATrackEachAndTheLastIsSelected) {
    const std::wstring names = L"fala.wav" + std::wstring(1, 0) + L"fala.wav" + std::wstring(2, 0);
    struct Dropped {
        DWORD offset = sizeof(Dropped);
        POINT at{};
        BOOL outside = FALSE, wide = TRUE;
    };
    const HGLOBAL drop = GlobalAlloc(GMEM_MOVEABLE, sizeof(Dropped) + names.size() * sizeof(wchar_t));
    ASSERT_TRUE(drop);
    auto* head = static_cast<Dropped*>(GlobalLock(drop));
    *head = {};
    std::memcpy(static_cast<void*>(head + 1), names.data(), names.size() * sizeof(wchar_t));
    GlobalUnlock(drop);
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    SendMessageA(host.mainWindow, WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
    std::filesystem::current_path(before);
    EXPECT_EQ(host.project.tracks.Count(), 3);
    EXPECT_EQ(host.project.tracks.SelectedCount(), 1) << "only the last";
    EXPECT_TRUE(host.project.tracks.At(2)->items[0]->selected);
}

TEST_F(Studio, EditsOfTheModuleAreUndoneAndRedoneByTheMenuThatNamesThem) {
    EXPECT_EQ(Entry(1, 0), "Desfazer: Abrir fala.wav\tCtrl+Z");
    const auto autoSplit = reinterpret_cast<bool (*)(bool, int, double)>(host.extension.Function("Quilmo_AutoSplit"));
    ASSERT_TRUE(autoSplit(false, 55, -37));
    EXPECT_EQ(host.project.tracks.ItemCount(), 2);
    const std::string undo = Entry(1, 0, true);
    EXPECT_EQ(undo.find("Desfazer: "), 0u);
    EXPECT_EQ(host.project.tracks.ItemCount(), 1);
    EXPECT_EQ(Entry(1, 1, true), "Refazer: " + undo.substr(10, undo.find('\t') - 10) + "\tCtrl+Y");
    EXPECT_EQ(host.project.tracks.ItemCount(), 2);
}

TEST_F(Studio, KeyAOpensThePanelAndSpacePlays) {
    MSG key{host.mainWindow, WM_KEYDOWN, 'A', 1, 0, {}};
    EXPECT_TRUE(window.TakeKey(key));
    const HWND panel = FindWindowA(nullptr, "Quilmo");
    ASSERT_TRUE(panel);
    EXPECT_EQ(GetWindow(panel, GW_OWNER), host.mainWindow);
    key.hwnd = panel;  // also from there
    key.wParam = VK_SPACE;
    EXPECT_TRUE(window.TakeKey(key));
    const double start = host.transport.position;
    for (int i = 0; i < 3; ++i) ASSERT_TRUE(driver::AwaitTimer(host.mainWindow, 1));
    EXPECT_GT(host.transport.position, start);
    DestroyWindow(panel);
}

TEST_F(Studio, RendersBesideTheRecordingWhatIsHeardAndSaysWhatItCannot) {
    std::vector<std::string> told;
    host.dialogs.onMessage = [&told](const std::string& text, const std::string&, int) {
        return told.push_back(text), 1;
    };
    host.project.timeSelection = {3.5, 5};  // the pause begins at 4
    host.project.numbers["RENDER_BOUNDSFLAG"] = 2;
    host.RunAction(acao::RenderizarProjeto);
    const std::string path = (std::filesystem::temp_directory_path() / "render" / "fala.wav").string();
    EXPECT_EQ(told.back(), "Gravado:\n" + path);
    std::string error;
    const simhost::SourceRef rendered = OpenWaveFile(path, &error);
    ASSERT_TRUE(rendered) << error;
    EXPECT_EQ(rendered->SampleRate(), 8000);
    ASSERT_EQ(rendered->Channels(), 2);
    ASSERT_EQ(rendered->Frames(), 12000);
    std::vector<double> samples(24000);
    EXPECT_TRUE(rendered->Read(0, 12000, samples.data()));
    for (int i = 0; i < 24000; ++i) ASSERT_EQ(samples[i], i >= 8000 ? 0 : i / 8 % 2 ? 0.5 : -0.5) << i;

    host.project.texts["RENDER_FORMAT"] = "bDNwbUABAAAA";
    host.RunAction(acao::RenderizarComUltimas);
    EXPECT_NE(told.back().find("não grava MP3"), std::string::npos) << told.back();
    host.project.texts["RENDER_FORMAT"] = "";
    host.project.texts["RENDER_FILE"] = path;  // a file, and so no folder
    host.RunAction(acao::RenderizarComUltimas);
    EXPECT_NE(told.back().find("não pode ser criado"), std::string::npos) << told.back();
    host.project.timeSelection = {0, 1e6};
    host.RunAction(acao::RenderizarComUltimas);
    EXPECT_NE(told.back().find("passaria de 4 GB"), std::string::npos) << told.back();
}
