#include "panel/window.h"

#include <utility>

#include "panel/host_options.h"
#include "panel/main_page.h"
#include "panel/menus.h"
#include "panel/pass.h"
#include "panel/status.h"
#include "panel/window_state.h"
#include "slicer/preview.h"

static constexpr char NomeDaClasse[] = "QuilmoPainelClass";
static constexpr int LarguraCliente = 320, AlturaCliente = 659;  // whatever the frame; it cannot be resized

static constexpr UINT_PTR TimerDoPainel = 1;  // as long as the window: blink, watch, repaint
static constexpr UINT_PTR TimerDeRepeticao = 2;
static constexpr UINT PeriodoDoPainelMs = 250, PeriodoDeRepeticaoMs = 90;

static void Invalidar(HWND janela) {
    InvalidateRect(janela, nullptr, FALSE);
}

// Leaves the slicer mode, with the project as it was before; nothing outside the mode.
static void CancelarFatiador() {
    if (PreviewEmObra) {
        PainelEmFrente = true;  // so that the watch cancels at its next tick, when the cuts are whole
        return;
    }
    if (!ModoFatiadorAtivo) return;
    ModoFatiadorAtivo = false;
    SalvarPresetAberto = false;
    RestaurarOriginal();
    DefinirStatus("Modo Fatiador cancelado (atividade fora do painel)");
}

// --- Messages

static void Pintar(HWND janela) {
    PAINTSTRUCT pintura;
    const HDC dc = BeginPaint(janela, &pintura);
    PaginaPrincipal(janela, dc);
    EndPaint(janela, &pintura);
    // A menu runs a message loop of its own, so it waits until the screen shows this pass.
    if (std::exchange(AbrirMenuLacunas, false)) MenuLacunas(janela);
    if (std::exchange(AbrirMenuSelecao, false)) MenuSelecao(janela);
}

static void PararRepeticao(HWND janela) {
    KillTimer(janela, TimerDeRepeticao);
    AcaoRepetir = nullptr;
}

// A pass sees a press only if the pass before it saw the button up. A release that came while the host was busy has had
// no pass yet: it gets one before the press counts.
static void EntregarSoltura(HWND janela, bool seguro, bool seguroAntes) {
    if (seguroAntes && !seguro) UpdateWindow(janela);
}

// A press is a pass of its own, so that its click is neither lost nor counted twice.
static void Apertou(HWND janela) {
    Invalidar(janela);
    UpdateWindow(janela);
    if (AcaoRepetir) SetTimer(janela, TimerDeRepeticao, PeriodoDeRepeticaoMs, nullptr);
}

static void Soltou(HWND janela, bool& seguro) {
    seguro = false;
    PararRepeticao(janela);
}

static void Repetir(HWND janela) {
    if (!AcaoRepetir || !(Mouse.esquerdoSeguro || Mouse.direitoSeguro)) return PararRepeticao(janela);
    AcaoRepetir();
    Invalidar(janela);
}

// Any work outside the panel ends the slicer mode. Deactivation tells of most; this is for a mode that began while the
// panel was in front without being active. Nobody in front is no sign of work.
static void VigiarFatiador(HWND janela) {
    const HWND emFrente = GetForegroundWindow();
    if (emFrente == janela)
        PainelEmFrente = true;
    else if (emFrente && PainelEmFrente)
        CancelarFatiador();
}

static void FixarTamanho(MINMAXINFO& limites) {
    const LONG molduraX = 2 * GetSystemMetrics(SM_CXSIZEFRAME);
    const LONG molduraY = 2 * GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYCAPTION);
    limites.ptMinTrackSize = limites.ptMaxTrackSize = {LarguraCliente + molduraX, AlturaCliente + molduraY};
}

static void Fechar(HWND janela) {
    if (PreviewEmObra) return;  // the user closes again when the host is done
    CancelarFatiador();         // no window, no way to keep the cuts or to take them back
    RECT r;
    if (GetWindowRect(janela, &r)) GravarJanelaIni({r.left, r.top, r.right - r.left, r.bottom - r.top});
    DestroyWindow(janela);
}

static LRESULT CALLBACK ProcJanelaPainel(HWND janela, UINT mensagem, WPARAM wParam, LPARAM lParam) {
    switch (mensagem) {
        case WM_PAINT:
            Pintar(janela);
            return 0;
        case WM_MOUSEMOVE:
            Mouse.x = static_cast<int16_t>(LOWORD(lParam));
            Mouse.y = static_cast<int16_t>(HIWORD(lParam));
            Invalidar(janela);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            EntregarSoltura(janela, Mouse.esquerdoSeguro, Mouse.esquerdoSeguroAntes);
            Mouse.esquerdoSeguro = true;
            SetCapture(janela);
            Apertou(janela);
            return 0;
        case WM_LBUTTONUP:
            Soltou(janela, Mouse.esquerdoSeguro);
            if (GetCapture() == janela) ReleaseCapture();
            Invalidar(janela);
            return 0;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            EntregarSoltura(janela, Mouse.direitoSeguro, Mouse.direitoSeguroAntes);
            Mouse.direitoSeguro = true;
            Apertou(janela);
            return 0;
        case WM_RBUTTONUP:
            Soltou(janela, Mouse.direitoSeguro);
            Invalidar(janela);
            return 0;
        case WM_MOUSEWHEEL:
            return 0;
        case WM_TIMER:
            if (wParam == TimerDeRepeticao) {
                Repetir(janela);
                return 0;
            }
            PiscaLigado = !PiscaLigado;
            if (ModoFatiadorAtivo) VigiarFatiador(janela);
            Invalidar(janela);  // the panel's only way of learning of the host's changes
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) == WA_INACTIVE && ModoFatiadorAtivo) {
                CancelarFatiador();
                Invalidar(janela);
            }
            break;
        case WM_GETMINMAXINFO:
            FixarTamanho(*reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case WM_CLOSE:
            Fechar(janela);
            return 0;
        case WM_DESTROY:
            KillTimer(janela, TimerDoPainel);
            JanelaPainel = nullptr;
            LargarFundo();
            return 0;
    }
    return DefWindowProcA(janela, mensagem, wParam, lParam);
}

// --- Opening

// Once in a process. A class of that name that is there already was left by a copy of the module that has been
// unloaded; its procedure is gone with it.
static bool RegistrarClasse(HINSTANCE instancia) {
    static bool registrada = false;
    if (registrada) return true;
    WNDCLASSA classe{};
    classe.lpfnWndProc = ProcJanelaPainel;
    classe.hInstance = instancia;
    classe.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    classe.hbrBackground = reinterpret_cast<HBRUSH>(uintptr_t{COLOR_WINDOW + 1});
    classe.lpszClassName = NomeDaClasse;
    registrada = RegisterClassA(&classe) || (UnregisterClassA(NomeDaClasse, instancia) && RegisterClassA(&classe));
    return registrada;
}

bool JanelaPainelAberta() {
    return JanelaPainel != nullptr;
}

void AbrirJanelaPainel(HWND dono, const std::string& caminho) {
    CaminhoPainel = caminho;
    PrepararHost();
    if (JanelaPainel) {
        ShowWindow(JanelaPainel, SW_RESTORE);
        SetForegroundWindow(JanelaPainel);
        return;
    }
    const HINSTANCE instancia = GetModuleHandleA(nullptr);
    if (!RegistrarClasse(instancia)) return;
    const LugarDaJanela lugar = LugarInicial(dono);
    JanelaPainel = CreateWindowExA(0, NomeDaClasse, "Quilmo", WS_OVERLAPPEDWINDOW, lugar.x, lugar.y, lugar.largura,
                                   lugar.altura, dono, nullptr, instancia, nullptr);
    if (!JanelaPainel) return;
    SetTimer(JanelaPainel, TimerDoPainel, PeriodoDoPainelMs, nullptr);
    ShowWindow(JanelaPainel, SW_SHOW);
    UpdateWindow(JanelaPainel);
}
