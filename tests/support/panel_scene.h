// tests/support/panel_scene.h
// The panel on the stand-in host, in front of a user with mouse and clock. Its window is a real one on Windows.
#pragma once
#include <functional>
#include <string>
#include <utility>

#include "panel/state.h"
#include "panel/window.h"
#include "tests/support/desktop_driver.h"
#include "tests/support/scene.h"

class Painel : public Cena {
  protected:
    void SetUp() override;     // a work area of 1200 by 900, and the host's main window
    void TearDown() override;  // closes what is open; fails the test on device contexts or menus not given back

    void Abrir();   // by the action, as the user does
    void Fechar();  // by the window's close button
    RECT Lugar();   // of the panel on the screen

    void Mover(int x, int y);
    void Apertar(driver::Button botao = driver::Button::Left);
    void Soltar(driver::Button botao = driver::Button::Left);
    void Clicar(int x, int y, driver::Button botao = driver::Button::Left);
    bool EsperarTique(UINT_PTR timer);  // false when the panel has no such timer

    // Sees the panel's messages before the panel does; true keeps one from it.
    void Espiar(std::function<bool(UINT mensagem, WPARAM wParam)> espiao);
    // Calls f after each pass, where a page would have run its widgets.
    void AposCadaPasse(std::function<void()> f);

    HWND dono = nullptr;   // the host's main window
    HWND outra = nullptr;  // another of the host's windows
};

HWND JanelaDeTeste(const char* titulo, int x, int y, int largura, int altura);
