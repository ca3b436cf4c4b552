// panel/pass.h
// What every page does around its widgets. A pass draws the whole client area into the back buffer and copies it to
// the screen; a command that is clicked runs inside it, and may let a further pass run before this one goes on. The
// pixels of a pass stay where they are until it ends, whatever the window does meanwhile.
#pragma once
#include "lice/bitmap.h"
#include "panel/state.h"

// A pass begins by noting which buttons went down since the last one, and by forgetting what was to be repeated. It
// ends by copying the back buffer to the window, whichever way the page ends. The page's name is for an observer.
class Passe {
  public:
    Passe(HWND janela, HDC dc, const char* pagina);
    ~Passe();
    Passe(const Passe&) = delete;
    Passe& operator=(const Passe&) = delete;
    LICE_IBitmap* Fundo() const;  // as large as the client area, and cleared at first

  private:
    const HDC dc_;
};

// The panel is closed: frees the back buffer, or leaves that to the end of the pass that is still running.
void LargarFundo();
