#include "panel/slicer_watch.h"

#include <utility>

#include "panel/state.h"
#include "panel/status.h"
#include "slicer/preview.h"

static bool esperaCancelar = false;

// Nobody in front is no sign of work.
static bool OutraEmFrente(HWND janela) {
    const HWND emFrente = GetForegroundWindow();
    return emFrente && emFrente != janela;
}

void CancelarFatiador() {
    if (!ModoFatiadorAtivo) return;
    esperaCancelar = PreviewEmObra;
    if (esperaCancelar) return;
    ModoFatiadorAtivo = false;
    SalvarPresetAberto = false;
    RestaurarOriginal();
    DefinirStatus("Modo Fatiador cancelado (atividade fora do painel)");
}

void CancelarOQueEsperou() {
    if (std::exchange(esperaCancelar, false) && OutraEmFrente(JanelaPainel)) CancelarFatiador();
}

void VigiarFatiador(HWND janela) {
    if (GetForegroundWindow() == janela)
        PainelEmFrente = true;
    else if (PainelEmFrente && OutraEmFrente(janela))
        CancelarFatiador();
}
