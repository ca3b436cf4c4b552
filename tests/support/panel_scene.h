// tests/support/panel_scene.h
// The panel on the stand-in host, in front of a user with mouse and clock. Its window is a real one on Windows.
#pragma once
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "panel/state.h"
#include "panel/widgets.h"
#include "panel/window.h"
#include "tests/support/desktop_driver.h"
#include "tests/support/scene.h"

// A widget as a pass shows it.
struct WidgetNaTela {
    std::string pagina, rotulo, icone, dica, cor;
    std::string linha;  // all that an observer is told, as data/painel.txt keeps it
    Celula lugar;
    POINT Meio() const { return {lugar.x + lugar.w / 2, lugar.y + lugar.h / 2}; }
};

class Painel : public Cena {
  protected:
    void SetUp() override;     // a work area of 1200 by 900, and the host's main window
    void TearDown() override;  // closes what is open; fails the test on device contexts or menus not given back

    void Abrir();   // by the action, as the user does
    void Fechar();  // by the window's close button
    RECT Lugar();   // of the panel on the screen
    std::string Canto() { return std::to_string(Lugar().left) + " " + std::to_string(Lugar().top); }

    static std::vector<WidgetNaTela> Widgets();  // of a pass of its own, in their order
    // A widget goes by its label, its icon, its tooltip, or its colour as "r g b". Of two pages the one on top counts;
    // throws when the page has none of that name, or several.
    static WidgetNaTela Achar(const std::string& nome);

    void Mover(int x, int y) { driver::Move(JanelaPainel, x, y); }
    void Mover(const std::string& nome);  // to its middle
    void Apertar(driver::Button botao = driver::Button::Left) { driver::Press(botao); }
    void Soltar(driver::Button botao = driver::Button::Left) { driver::Release(botao); }
    void Clicar(int x, int y, driver::Button botao = driver::Button::Left);
    void Clicar(const std::string& nome, driver::Button botao = driver::Button::Left);
    bool EsperarTique(UINT_PTR timer) { return driver::AwaitTimer(JanelaPainel, timer); }  // false when it has none
    void EsperarIntervalo(UINT_PTR timer, double ms);                                      // from tick to tick

    // Sees the panel's messages before the panel does; true keeps one from it.
    void Espiar(std::function<bool(UINT mensagem, WPARAM wParam)> espiao);
    // Calls f after each pass, where a page would have run its widgets.
    void AposCadaPasse(std::function<void()> f);

    HWND dono = nullptr;   // the host's main window
    HWND outra = nullptr;  // another of the host's windows
};

HWND JanelaDeTeste(const char* titulo, int x, int y, int largura, int altura);
