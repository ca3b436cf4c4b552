// apps/studio/window.h
// The host's main window: the arrangement under the mouse, and the clock. The extension may change the project at any
// time, so the window asks the host at each tick whether something changed.
#pragma once
#include <optional>
#include <string>

#include "apps/common/plugin.h"
#include "apps/studio/player.h"
#include "apps/studio/save.h"
#include "apps/studio/view.h"
#include "lice/bitmap.h"
// Needs windows.h first.
#include <shellapi.h>

constexpr int StatusHeight = 22;  // of the line at the window's foot, in pixels at 96 to the inch

class StudioWindow {
  public:
    // What the extension keeps goes below the folder. Throws std::runtime_error where the system gives no window.
    explicit StudioWindow(const std::string& resourceFolder);
    ~StudioWindow();
    StudioWindow(const StudioWindow&) = delete;
    StudioWindow& operator=(const StudioWindow&) = delete;

    void LoadPlugin();                   // throws when there is none
    void Open(const std::string& path);  // on a track of its own; a message box tells what went wrong
    void Choose();                       // asks for a recording to open
    void Save();                         // asks where, and keeps the project there
    void ShowAll();
    // Keys that are commands, wherever the program has the focus. True when the message was one.
    bool TakeKey(MSG& message);
    simhost::Host& Host() { return host_; }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    LRESULT Handle(UINT message, WPARAM w, LPARAM l);

    bool HandleMouse(UINT message, WPARAM w, POINT at);  // false: no message of the mouse
    void Press(POINT at, bool adding);
    void Drag(POINT at);
    void Release(POINT at, bool adding);
    void SelectTrack(simhost::Track* track, bool adding);
    void ChooseTake(simhost::Item& item, int take);
    void Wheel(int delta, POINT at, WORD keys);
    void ScrollBar(int bar, int code);
    void Drop(HDROP drop);

    void BuildMenus();          // replaces the window's menu
    void NameUndo();            // tells what would be undone and redone
    void RunEntry(int number);  // the chosen one of a menu

    bool Changed();  // since the project was opened or saved
    void CallItSaved();
    void ShowRecordings();

    void Tick();
    void Transport(double seconds);
    void Stale() { shown_ = -1; }  // the next tick paints the picture anew
    void Refresh();
    void SetBar(int bar, int total, int page, int position);
    void Paint();
    void PaintStatus(HDC dc, RECT place);
    void Working();  // called by commands that take their time: keeps what is painted, and says so
    void Rest();     // no command is at work any more

    simhost::Host host_;
    View view_{host_};
    Player player_;
    SourceFiles files_;
    std::string opened_;                   // the last recording's path
    std::string keptText_;                 // of the project as it was opened or saved, as
    std::vector<std::string> keptTitles_;  // its undo history was
    std::optional<Plugin> plugin_;
    HWND window_ = nullptr;
    LICE_SysBitmap picture_;
    int64_t shown_ = -1;                     // Host::changes when the picture was painted
    ULONGLONG lastTick_ = 0, lastSign_ = 0;  // of the clock; that a command works
    HFONT statusFont_ = nullptr;
    HACCEL keys_ = nullptr;
    bool working_ = false;
    double heardAt_ = -1;  // the play position as the clock left it; -1: nothing plays
    POINT pressedAt_{};
    bool pressed_ = false, dragging_ = false;
};
