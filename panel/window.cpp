#include "panel/window.h"

#include <utility>

#include "host/door.h"
#include "panel/host_options.h"
#include "panel/main_page.h"
#include "panel/menus.h"
#include "panel/pass.h"
#include "panel/slicer_watch.h"
#include "panel/window_state.h"
#include "platform/window_frame.h"
#include "slicer/preview.h"

static constexpr char NomeDaClasse[] = "QuilmoPainelClass";
static constexpr int LarguraCliente = 320, AlturaCliente = 659;  // whatever the frame; it cannot be resized

static constexpr UINT_PTR TimerDoPainel = 1;  // as long as the window: blink, watch, repaint
static constexpr UINT_PTR TimerDeRepeticao = 2;
static constexpr UINT PeriodoDoPainelMs = 250, PeriodoDeRepeticaoMs = 90;

static void Invalidar(HWND janela) { InvalidateRect(janela, nullptr, FALSE); }

// --- Messages

// The bracket around a paint, which also marks the client area as painted.
struct Pintura {
    const HWND janela;
    PAINTSTRUCT dados;
    const HDC dc;
    explicit Pintura(HWND qual) : janela(qual), dc(BeginPaint(qual, &dados)) {}
    ~Pintura() { EndPaint(janela, &dados); }
    Pintura(const Pintura&) = delete;
    Pintura& operator=(const Pintura&) = delete;
};

static void Pintar(HWND janela) {
    {
        const Pintura pintura(janela);
        PaginaPrincipal(janela, pintura.dc);
    }
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

static void SoltarEsquerdo(HWND janela) {
    Mouse.esquerdoSeguro = false;
    PararRepeticao(janela);
    if (GetCapture() == janela) ReleaseCapture();
    Invalidar(janela);
}

static void SoltarDireito(HWND janela) {
    Mouse.direitoSeguro = false;
    PararRepeticao(janela);
    Invalidar(janela);
}

static void Repetir(HWND janela) {
    if (!AcaoRepetir || !(Mouse.esquerdoSeguro || Mouse.direitoSeguro)) return PararRepeticao(janela);
    AcaoRepetir();
    Invalidar(janela);
}

static void FixarTamanho(HWND janela, MINMAXINFO& limites) {
    const auto [largura, altura] = SizeAround(janela, {LarguraCliente, AlturaCliente});
    limites.ptMinTrackSize = limites.ptMaxTrackSize = {largura, altura};
}

static void Fechar(HWND janela) {
    if (PreviewEmObra) return;  // ignored; the user closes again when the slicer is done
    CancelarFatiador();         // no window, no way to keep the cuts or to take them back
    RECT r;
    if (GetWindowRect(janela, &r))
        Porta("GravarJanelaIni", false, [&r] {  // a place that is lost does not keep the panel open
            GravarJanelaIni({r.left, r.top, r.right - r.left, r.bottom - r.top});
            return true;
        });
    DestroyWindow(janela);
}

// False: not a message of the mouse.
static bool TratarMouse(HWND janela, UINT mensagem, LPARAM lParam) {
    switch (mensagem) {
        case WM_MOUSEMOVE:
            Mouse.x = static_cast<int16_t>(LOWORD(lParam));
            Mouse.y = static_cast<int16_t>(HIWORD(lParam));
            Invalidar(janela);
            return true;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            EntregarSoltura(janela, Mouse.esquerdoSeguro, Mouse.esquerdoSeguroAntes);
            Mouse.esquerdoSeguro = true;
            SetCapture(janela);
            Apertou(janela);
            return true;
        case WM_LBUTTONUP:
            SoltarEsquerdo(janela);
            return true;
        case WM_CAPTURECHANGED:
            // A box or another window has taken the mouse, and the release goes there.
            if (reinterpret_cast<HWND>(lParam) != janela && Mouse.esquerdoSeguro) SoltarEsquerdo(janela);
            return true;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            if (Mouse.direitoSeguro) SoltarDireito(janela);  // released outside, where nobody told
            EntregarSoltura(janela, Mouse.direitoSeguro, Mouse.direitoSeguroAntes);
            Mouse.direitoSeguro = true;
            Apertou(janela);
            return true;
        case WM_RBUTTONUP:
            SoltarDireito(janela);
            return true;
        case WM_MOUSEWHEEL:
            return true;
    }
    return false;
}

static LRESULT Tratar(HWND janela, UINT mensagem, WPARAM wParam, LPARAM lParam) {
    if (TratarMouse(janela, mensagem, lParam)) return 0;
    switch (mensagem) {
        case WM_PAINT:
            Pintar(janela);
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
            if (LOWORD(wParam) == WA_INACTIVE) PararRepeticao(janela);
            if (LOWORD(wParam) == WA_INACTIVE && ModoFatiadorAtivo) {
                CancelarFatiador();
                Invalidar(janela);
            }
            break;
        case WM_GETMINMAXINFO:
            FixarTamanho(janela, *reinterpret_cast<MINMAXINFO*>(lParam));
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

static LRESULT CALLBACK ProcJanelaPainel(HWND janela, UINT mensagem, WPARAM wParam, LPARAM lParam) {
    return Porta("ProcJanelaPainel", LRESULT{0}, [=] { return Tratar(janela, mensagem, wParam, lParam); });
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

bool JanelaPainelAberta() { return JanelaPainel != nullptr; }

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
