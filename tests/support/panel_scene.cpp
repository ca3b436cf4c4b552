#include "tests/support/panel_scene.h"

#include "panel/status.h"
#include "slicer/preview.h"

static std::function<bool(UINT, WPARAM)> Espiao;
static std::function<void()> AposPasse;
static WNDPROC ProcEspiada = nullptr;
static RECT AreaDoSistema;

static LRESULT CALLBACK ProcDoEspiao(HWND janela, UINT mensagem, WPARAM wParam, LPARAM lParam) {
    if (Espiao && Espiao(mensagem, wParam)) return 0;
    const LRESULT resultado = CallWindowProcA(ProcEspiada, janela, mensagem, wParam, lParam);
    if (mensagem == WM_PAINT && AposPasse) AposPasse();
    return resultado;
}

static void Subclassificar() {
    const auto nova = reinterpret_cast<LONG_PTR>(ProcDoEspiao);
    const LONG_PTR anterior = SetWindowLongPtrA(JanelaPainel, GWLP_WNDPROC, nova);
    if (anterior != nova) ProcEspiada = reinterpret_cast<WNDPROC>(anterior);
}

HWND JanelaDeTeste(const char* titulo, int x, int y, int largura, int altura) {
    WNDCLASSA classe{};
    classe.lpfnWndProc = DefWindowProcA;
    classe.hInstance = GetModuleHandleA(nullptr);
    classe.lpszClassName = "JanelaDeTeste";
    RegisterClassA(&classe);  // the second time it is there
    const HWND janela = CreateWindowExA(0, classe.lpszClassName, titulo, WS_OVERLAPPEDWINDOW, x, y, largura, altura,
                                        nullptr, nullptr, classe.hInstance, nullptr);
    ShowWindow(janela, SW_SHOW);
    return janela;
}

void Painel::SetUp() {
    driver::Start();
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &AreaDoSistema, 0);
    RECT area{0, 0, 1200, 900};
    SystemParametersInfoA(SPI_SETWORKAREA, 0, &area, 0);
    outra = JanelaDeTeste("Outra", 0, 700, 200, 150);
    dono = host.mainWindow = JanelaDeTeste("Host", 0, 0, 1100, 600);
    driver::Pump();
    Cena::SetUp();
}

void Painel::TearDown() {
    Espiao = nullptr;
    AposPasse = nullptr;
    if (JanelaPainel) DestroyWindow(JanelaPainel);
    DestroyWindow(dono);
    DestroyWindow(outra);
    driver::Pump();
    EXPECT_EQ(driver::Leftovers(), "");
    SystemParametersInfoA(SPI_SETWORKAREA, 0, &AreaDoSistema, 0);
    RestaurarEstadoPainel();
    RestaurarEstadoFatiador();
    StatusMsg[0] = '\0';
    Cena::TearDown();
}

void Painel::Abrir() {
    ASSERT_TRUE(host.RunAction("_QUILMO_ABRIR_PAINEL"));
    driver::Pump();
}

void Painel::Fechar() {
    PostMessageA(JanelaPainel, WM_CLOSE, 0, 0);
    driver::Pump();
}

RECT Painel::Lugar() {
    RECT r{};
    GetWindowRect(JanelaPainel, &r);
    return r;
}

void Painel::Mover(int x, int y) {
    driver::Move(JanelaPainel, x, y);
}

void Painel::Apertar(driver::Button botao) {
    driver::Press(botao);
}

void Painel::Soltar(driver::Button botao) {
    driver::Release(botao);
}

void Painel::Clicar(int x, int y, driver::Button botao) {
    Mover(x, y);
    Apertar(botao);
    Soltar(botao);
}

bool Painel::EsperarTique(UINT_PTR timer) {
    return driver::AwaitTimer(JanelaPainel, timer);
}

void Painel::Espiar(std::function<bool(UINT, WPARAM)> espiao) {
    Espiao = std::move(espiao);
    Subclassificar();
}

void Painel::AposCadaPasse(std::function<void()> f) {
    AposPasse = std::move(f);
    Subclassificar();
}
