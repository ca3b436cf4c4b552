#include "tests/support/panel_scene.h"

#include <cstdio>
#include <stdexcept>

#include "panel/observer.h"
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

static std::string Estado(const WidgetVisto& v) {
    std::string estado = v.aspecto.desativado ? "desativado" : v.apertado ? "apertado" : v.sobre ? "sobre" : "parado";
    return v.aspecto.ativo ? estado + "+ativo" : estado;
}

static WidgetNaTela Copiar(const WidgetVisto& v) {
    const auto texto = [](const char* t) { return std::string(t ? t : ""); };
    const auto& [x, y, w, h] = v.lugar;
    const auto& [r, g, b] = v.aspecto.cor;
    char cor[40], lugar[40], faixa[60] = "";
    std::snprintf(cor, sizeof cor, "%d %d %d", r, g, b);
    std::snprintf(lugar, sizeof lugar, "%3d %3d %3d %2d", x, y, w, h);
    if (v.slider) std::snprintf(faixa, sizeof faixa, " %g %g %g", v.slider->valor, v.slider->minimo, v.slider->maximo);
    WidgetNaTela widget = {v.pagina, texto(v.aspecto.rotulo), texto(v.aspecto.icone), texto(v.aspecto.dica), cor, "",
                           v.lugar};
    for (const std::string& parte : {widget.rotulo, widget.icone, widget.dica}) widget.linha += " \"" + parte + '"';
    widget.linha = std::string(lugar) + "  " + cor + "  " + Estado(v) + widget.linha + faixa;
    return widget;
}

std::vector<WidgetNaTela> Painel::Widgets() {
    static std::vector<WidgetNaTela> vistos;
    vistos.clear();
    Observador = [](const WidgetVisto& v) { vistos.push_back(Copiar(v)); };
    InvalidateRect(JanelaPainel, nullptr, FALSE);
    UpdateWindow(JanelaPainel);
    Observador = nullptr;
    return vistos;
}

WidgetNaTela Painel::Achar(const std::string& nome) {
    std::vector<WidgetNaTela> achados;
    for (const WidgetNaTela& w : Widgets()) {
        if (nome != w.rotulo && nome != w.icone && nome != w.dica && nome != w.cor) continue;
        if (!achados.empty() && achados.back().pagina != w.pagina) achados.clear();
        achados.push_back(w);
    }
    if (achados.size() != 1) throw std::runtime_error(std::to_string(achados.size()) + " widgets are called " + nome);
    return achados[0];
}

void Painel::Mover(const std::string& nome) {
    const POINT meio = Achar(nome).Meio();
    Mover(meio.x, meio.y);
}

void Painel::Clicar(int x, int y, driver::Button botao) {
    Mover(x, y);
    Apertar(botao);
    Soltar(botao);
}

void Painel::Clicar(const std::string& nome, driver::Button botao) {
    const POINT meio = Achar(nome).Meio();
    Clicar(meio.x, meio.y, botao);
}

void Painel::EsperarIntervalo(UINT_PTR timer, double ms) {
    const double achado = driver::TimerInterval(JanelaPainel, timer);
    EXPECT_GE(achado, ms * (1 - driver::IntervalSlack));
    EXPECT_LE(achado, ms * (1 + driver::IntervalSlack));
}

void Painel::Espiar(std::function<bool(UINT, WPARAM)> espiao) {
    Espiao = std::move(espiao);
    Subclassificar();
}

void Painel::AposCadaPasse(std::function<void()> f) {
    AposPasse = std::move(f);
    Subclassificar();
}
