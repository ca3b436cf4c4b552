// apps/common/user.h
// The user in front of the panel, who moves the mouse and looks at the window. Time passes between two moves, so that
// the panel's timers run. A widget goes by its label, icon or tooltip.
#pragma once
#include <string>

#include "platform/headless/desktop.h"
#include "simhost/host.h"

// A widget as data/painel.txt tells of it; the module's tests hold that list to the panel itself.
struct Widget {
    int x, y, w, h;
    double value = 0, lowest = 0, highest = 0;  // of a slider
    int Bottom() const { return y + h; }
};
Widget FindWidget(const std::string& name);  // the first of that name; throws when the list has none

HWND OpenMainWindow();  // the host's, in front of which the panel opens

class User {
  public:
    explicit User(HWND panel) : panel_(panel) {}

    void PointAt(const std::string& widget);
    void PointAtNothing();
    void Press(const std::string& widget);
    void Release();
    void Click(const std::string& widget);
    void Slide(const std::string& slider, int value);  // from the value that it has at first
    void CloseWindow();                                // by the button in its title bar
    desktop::Picture Look() const { return desktop::PictureOf(panel_); }
    // The window, or its lines from `top` on, `height` of them. Throws when the file cannot be written.
    void Photograph(const std::string& pngPath, int top = 0, int height = 0) const;

  private:
    void Move(int x, int y);

    HWND panel_;
};

User OpenPanel(simhost::Host& host);  // by the module's action; throws when it does not come to the front
