#include "panel/state.h"

HWND JanelaPainel = nullptr;
std::string CaminhoPainel;
EstadoMouse Mouse;
void (*AcaoRepetir)() = nullptr;
bool ModoRipple = true;
bool PiscaLigado = false;
bool AbrirMenuLacunas = false;
bool AbrirMenuSelecao = false;

void RestaurarEstadoPainel() {
    CaminhoPainel.clear();
    Mouse = {};
    AcaoRepetir = nullptr;
    ModoRipple = true;
    PiscaLigado = AbrirMenuLacunas = AbrirMenuSelecao = false;
}
