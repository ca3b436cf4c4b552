// apps/common/user.h
// The user in front of the panel: a hand on the mouse and an eye on the window. All places are in the panel's client
// area. Between two moves time passes as it does for people, so that the panel's timers tick on the way.
#pragma once
#include <string>

#include "platform/headless/desktop.h"
#include "simhost/host.h"

HWND OpenMainWindow();  // the host's, in front of which the panel opens

struct Place {
    int x, y;
};

class User {
  public:
    explicit User(HWND panel) : panel_(panel) {}

    void PointAt(Place place);
    void Press(Place place);
    void Release();
    void Click(Place place);
    void Drag(Place from, Place to);
    void CloseWindow();  // by the button in its title bar
    desktop::Picture Look() const { return desktop::PictureOf(panel_); }
    // The window, or its lines from `top` on, `height` of them. Throws when the file cannot be written.
    void Photograph(const std::string& pngPath, int top = 0, int height = 0) const;

  private:
    HWND panel_;
};

User OpenPanel(simhost::Host& host);  // by the module's action; throws when it does not come to the front

// Where things stand on the slicer's page, and the button on the main page that leads there.
constexpr Place AutoSlicer = {84, 287}, SavePreset = {160, 220}, CancelPrompt = {160, 397};
