// Opening, closing, timers and the mouse, through the window's messages.
#include "host/entry.h"
#include "panel/pass.h"
#include "panel/status.h"
#include "slicer/preview.h"
#include "tests/support/panel_scene.h"

using driver::Button;

static bool Contem(const std::string& texto, const std::string& parte) {
    return texto.find(parte) != std::string::npos;
}

TEST_F(Painel, AbreJuntoAoHostEVoltaAFrente) {
    const auto marca = [this] { return ToggleActionProc(host.ActionNumber("QUILMO_ABRIR_PAINEL")); };
    EXPECT_EQ(marca(), 0);
    Abrir();
    ASSERT_TRUE(JanelaPainelAberta());
    EXPECT_EQ(marca(), 1);
    EXPECT_EQ(FindWindowA("QuilmoPainelClass", "Quilmo"), JanelaPainel);
    EXPECT_EQ(GetWindow(JanelaPainel, GW_OWNER), dono);
    EXPECT_EQ(GetForegroundWindow(), JanelaPainel);
    EXPECT_TRUE(Contem(Acoes(), "40753"));
    RECT cliente;
    GetClientRect(JanelaPainel, &cliente);
    EXPECT_EQ(cliente.right, 320);
    EXPECT_EQ(cliente.bottom, 659);

    MoveWindow(JanelaPainel, 50, 60, 900, 100, TRUE);
    GetClientRect(JanelaPainel, &cliente);
    EXPECT_EQ(cliente.right, 320);
    EXPECT_EQ(cliente.bottom, 659);
    host.actionsRun.clear();
    ShowWindow(JanelaPainel, SW_MINIMIZE);
    SetForegroundWindow(outra);
    const HWND antes = JanelaPainel;
    Abrir();
    EXPECT_EQ(JanelaPainel, antes);
    EXPECT_FALSE(IsIconic(JanelaPainel));
    EXPECT_EQ(GetForegroundWindow(), JanelaPainel);
    EXPECT_EQ(Lugar().left, 50);
    EXPECT_EQ(Lugar().top, 60);
    EXPECT_TRUE(Contem(Acoes(), "40753")) << "the host's options are set at each opening";

    Fechar();
    EXPECT_FALSE(JanelaPainelAberta());
    EXPECT_FALSE(IsWindow(antes));
    EXPECT_EQ(marca(), 0);
    Abrir();
    EXPECT_TRUE(JanelaPainelAberta()) << "the class is registered once, and still there";
}

TEST_F(Painel, SemDonoOuComDonoMorto) {
    AbrirJanelaPainel(nullptr, host.resourcePath);
    ASSERT_TRUE(JanelaPainelAberta());
    EXPECT_EQ(Lugar().left, 1200 - 340 - 20);
    EXPECT_EQ(Lugar().top, 40);
    Fechar();
    const HWND morta = JanelaDeTeste("Morta", 0, 0, 300, 300);
    DestroyWindow(morta);
    AbrirJanelaPainel(morta, host.resourcePath);
    EXPECT_FALSE(JanelaPainelAberta()) << "the window cannot be created, and nobody is told";
    driver::Pump();
    Abrir();
    EXPECT_TRUE(JanelaPainelAberta());
}

TEST_F(Painel, PiscaQuatroVezesPorSegundoEnquantoAberto) {
    Abrir();
    const bool antes = PiscaLigado;
    ASSERT_TRUE(EsperarTique(1));
    EXPECT_NE(PiscaLigado, antes);
    ASSERT_TRUE(EsperarTique(1));
    EXPECT_EQ(PiscaLigado, antes);
    const double intervalo = driver::TimerInterval(JanelaPainel, 1);
    EXPECT_GE(intervalo, 250 * 0.9);
    EXPECT_LE(intervalo, 250 * (1 + driver::IntervalSlack));

    int passes = 0;
    AposCadaPasse([&] { ++passes; });
    ASSERT_TRUE(EsperarTique(1));
    EXPECT_GE(passes, 1) << "each tick repaints, so that the host's changes show";
}

TEST_F(Painel, UmCliquePorAperto) {
    Abrir();
    EXPECT_EQ(Mouse.x, -1);
    EXPECT_EQ(Mouse.y, -1);
    std::string cliques;
    AposCadaPasse([&] {
        if (Mouse.esquerdoApertou) cliques += "E";
        if (Mouse.direitoApertou) cliques += "D";
    });
    const auto desdeEntao = [&] { return std::exchange(cliques, ""); };
    Mover(100, 50);
    EXPECT_EQ(Mouse.x, 100);
    EXPECT_EQ(Mouse.y, 50);
    Apertar();
    EXPECT_TRUE(EsperarTique(1));
    Mover(101, 50);
    EXPECT_EQ(desdeEntao(), "E") << "on the press, once, however long it is held";
    Soltar();
    EXPECT_EQ(desdeEntao(), "");
    Clicar(101, 50);
    Clicar(101, 50);
    EXPECT_EQ(desdeEntao(), "EE") << "a double click is two clicks";
    Clicar(101, 50, Button::Right);
    Clicar(101, 50, Button::Right);
    EXPECT_EQ(desdeEntao(), "DD");
    SendMessageA(JanelaPainel, WM_LBUTTONDBLCLK, 0, 0);
    EXPECT_EQ(Mouse.x, 101) << "a press counts where the mouse moved last, whatever it carries";
    SendMessageA(JanelaPainel, WM_LBUTTONUP, 0, 0);
    SendMessageA(JanelaPainel, WM_RBUTTONDBLCLK, 0, 0);
    SendMessageA(JanelaPainel, WM_RBUTTONUP, 0, 0);
    EXPECT_EQ(desdeEntao(), "ED");

    SetForegroundWindow(outra);
    driver::Pump();
    Clicar(101, 50);
    EXPECT_EQ(desdeEntao(), "E") << "the click that activates the panel counts";
    EXPECT_EQ(GetForegroundWindow(), JanelaPainel);
    const EstadoMouse antes = Mouse;
    EXPECT_EQ(SendMessageA(JanelaPainel, WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0), 0);
    driver::Wheel(1);
    EXPECT_EQ(Mouse.x, antes.x);
    EXPECT_EQ(desdeEntao(), "");
}

TEST_F(Painel, MovimentosDividemUmPasse) {
    Abrir();
    int passes = 0;
    AposCadaPasse([&] { ++passes; });
    for (int x = 10; x < 20; ++x) PostMessageA(JanelaPainel, WM_MOUSEMOVE, 0, MAKELPARAM(x, 5));
    driver::Pump();
    EXPECT_EQ(Mouse.x, 19);
    EXPECT_GE(passes, 1);
    EXPECT_LT(passes, 10);
}

TEST_F(Painel, OBotaoEsquerdoCapturaODireitoNao) {
    Abrir();
    Mover(10, 10);
    Apertar();
    EXPECT_EQ(GetCapture(), JanelaPainel);
    Mover(-30, -20);
    EXPECT_EQ(Mouse.x, -30);
    EXPECT_EQ(Mouse.y, -20);
    EXPECT_TRUE(Mouse.esquerdoSeguro);
    Soltar();
    EXPECT_FALSE(Mouse.esquerdoSeguro);
    EXPECT_EQ(GetCapture(), nullptr);
    Mover(-50, 60);
    EXPECT_EQ(Mouse.x, -30) << "outside and without capture the last place stays";

    Mover(10, 10);
    Apertar(Button::Right);
    EXPECT_NE(GetCapture(), JanelaPainel);
    Mover(-50, 60);
    Soltar(Button::Right);
    EXPECT_EQ(Mouse.x, 10);
    EXPECT_TRUE(Mouse.direitoSeguro) << "released elsewhere: held until its next message";
    Clicar(10, 10, Button::Right);
    EXPECT_FALSE(Mouse.direitoSeguro);
}

static int Repetidas;

TEST_F(Painel, SeguradoSobreUmBotaoQueRepete) {
    Abrir();
    const auto sobre = [] { return Mouse.x < 100; };
    AposCadaPasse([&] {
        if (sobre() && (Mouse.esquerdoSeguro || Mouse.direitoSeguro)) AcaoRepetir = [] { ++Repetidas; };
    });
    for (const Button botao : {Button::Left, Button::Right}) {
        Repetidas = 0;
        Mover(20, 20);
        Apertar(botao);
        EXPECT_EQ(Repetidas, 0) << "the press itself is the widget's click";
        ASSERT_TRUE(EsperarTique(2));
        ASSERT_TRUE(EsperarTique(2));
        EXPECT_EQ(Repetidas, 2);
        Soltar(botao);
        EXPECT_FALSE(EsperarTique(2));
        EXPECT_EQ(Repetidas, 2);
    }
    Apertar();
    const double intervalo = driver::TimerInterval(JanelaPainel, 2);
    EXPECT_GE(intervalo, 90 * 0.9);
    EXPECT_LE(intervalo, 90 * (1 + driver::IntervalSlack));
    Repetidas = 0;
    Mover(200, 20);
    EXPECT_TRUE(EsperarTique(2)) << "the tick that finds nothing to repeat";
    Mover(20, 20);
    EXPECT_FALSE(EsperarTique(2)) << "coming back does not start it again";
    EXPECT_EQ(Repetidas, 0);
    Soltar();
}

TEST_F(Painel, AsCoresDoFundoChegamATela) {
    Abrir();
    driver::Pump();
    const driver::Picture tela = driver::PictureOf(JanelaPainel);
    ASSERT_EQ(tela.width, 320);
    ASSERT_EQ(tela.height, 659);
    EXPECT_EQ(tela.At(0, 0), 0x0D0D0Fu);
    EXPECT_EQ(tela.At(319, 658), 0x0D0D0Fu);
}

// A command inside a pass may run a message loop of its own: a box, a render.
TEST_F(Painel, UmPasseSuspensoNaoPerdeOQueDesenha) {
    Abrir();
    Mover(10, 10);
    PAINTSTRUCT pintura;
    const auto comecar = [&] {
        InvalidateRect(JanelaPainel, nullptr, FALSE);
        const HDC dc = BeginPaint(JanelaPainel, &pintura);
        return std::pair{ComecarPasse(JanelaPainel), dc};
    };
    {
        const auto [bm, dc] = comecar();
        const LICE_pixel* pixels = bm->getBits();
        ASSERT_TRUE(EsperarTique(1));
        Mover(20, 20);
        EXPECT_EQ(bm->getBits(), pixels) << "further passes share the back buffer";
        TerminarPasse(dc);
        EndPaint(JanelaPainel, &pintura);
    }
    const auto [bm, dc] = comecar();
    const HWND fechada = JanelaPainel;
    Fechar();
    EXPECT_FALSE(JanelaPainelAberta());
    Abrir();
    ASSERT_TRUE(JanelaPainelAberta()) << "closed and opened again under the suspended pass";
    ASSERT_EQ(bm->getWidth(), 320);
    bm->getBits()[0] = 0xFFFFFFFF;
    TerminarPasse(dc);
    EndPaint(fechada, &pintura);
    InvalidateRect(JanelaPainel, nullptr, FALSE);
    driver::Pump();
    EXPECT_EQ(driver::PictureOf(JanelaPainel).At(0, 0), 0x0D0D0Fu);
}
