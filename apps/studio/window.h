// apps/studio/window.h
// The host's main window: the arrangement under the mouse, the menus, the keys and the clock. What the project holds
// may change at any time by the extension's hand, so the window looks at it several times a second and paints what it
// finds different.
#pragma once
#include <optional>
#include <string>

#include "apps/common/plugin.h"
#include "apps/studio/player.h"
#include "apps/studio/view.h"
#include "lice/bitmap.h"
// Below what it builds on.
#include <shellapi.h>

class StudioWindow {
  public:
    // What the extension keeps goes below the folder. Throws std::runtime_error where the system gives no window.
    explicit StudioWindow(const std::string& resourceFolder);
    ~StudioWindow();
    StudioWindow(const StudioWindow&) = delete;
    StudioWindow& operator=(const StudioWindow&) = delete;

    bool LoadPlugin(std::string* error);
    void Open(const std::string& path);  // on a track of its own; a message box tells what went wrong
    // Keys that are commands, wherever the program has the focus. True when the message was one.
    bool TakeKey(MSG& message) { return TranslateAcceleratorA(window_, keys_, &message); }
    simhost::Host& Host() { return host_; }

  private:
    friend struct Commands;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    LRESULT Handle(UINT message, WPARAM w, LPARAM l);

    void BuildMenus();
    void NameUndo();  // in the menu
    void Run(int command);

    void Press(POINT at, bool adding);
    void Drag(POINT at);
    void Release(POINT at, bool adding);
    void Wheel(int delta, POINT at, bool scrolls);
    void ScrollBar(int code);
    void Drop(HDROP drop);

    void Tick();
    void Transport(double seconds);
    void TellActions();  // those that this host only records, in the title bar
    void Refresh();      // paints anew when something is to be seen that was not
    void Paint();

    simhost::Host host_;
    View view_{host_};
    Player player_;
    std::optional<Plugin> plugin_;
    HWND window_ = nullptr;
    HMENU editMenu_ = nullptr;
    HACCEL keys_ = nullptr;
    LICE_SysBitmap picture_;
    std::string shown_;       // what the picture was painted of
    size_t actionsTold_ = 0;  // of those that the host ran, how many were looked at
    ULONGLONG lastTick_ = 0;
    double heardAt_ = -1;  // the play position as the clock left it; -1: nothing plays
    POINT pressedAt_{};
    bool pressed_ = false, dragging_ = false;
};
