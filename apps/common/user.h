// apps/common/user.h
// The user in front of the panel, who moves the mouse and looks at the window. Places are in the panel's client area.
// Time passes between two moves, so that the panel's timers run.
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
