// Opening, closing, timers, the mouse and the screen, through the window's messages.
#include "module/entry.h"
#include "panel/pass.h"
#include "slicer/preview.h"
#include "tests/support/panel_scene.h"

using driver::Button;

static std::string Cliente() {
    RECT r;
    GetClientRect(JanelaPainel, &r);
    return std::to_string(r.right) + " " + std::to_string(r.bottom);
}

static std::string Ponteiro() { return std::to_string(Mouse.x) + " " + std::to_string(Mouse.y); }

class JanelaDoPainel : public Painel {
  protected:
    void AbrirContando() {
        Abrir();
        AposCadaPasse([this] {
            ++passes;
            if (Mouse.esquerdoApertou) cliques += "E";
            if (Mouse.direitoApertou) cliques += "D";
        });
    }
    std::string Cliques() { return std::exchange(cliques, ""); }  // left and right, since the last call

    int passes = 0;

  private:
    std::string cliques;
};

TEST_F(JanelaDoPainel, AbreJuntoAoHostEVoltaAFrente) {
    const auto marca = [this] { return ToggleActionProc(host.extension.ActionNumber("QUILMO_ABRIR_PAINEL")); };
    const auto preparou = [this] {
        const bool sim = Acoes().find("DesligarSnap") != std::string::npos;
        host.actions.run.clear();
        return sim;
    };
    EXPECT_EQ(marca(), 0);
    Abrir();
    ASSERT_TRUE(JanelaPainelAberta());
    EXPECT_EQ(marca(), 1);
    EXPECT_EQ(FindWindowA("QuilmoPainelClass", "Quilmo"), JanelaPainel);
    EXPECT_EQ(GetWindow(JanelaPainel, GW_OWNER), dono);
    EXPECT_EQ(GetForegroundWindow(), JanelaPainel);
    EXPECT_TRUE(preparou());
    MoveWindow(JanelaPainel, 50, 60, 900, 100, TRUE);
    EXPECT_EQ(Cliente(), "320 659") << "whatever is asked";

    ShowWindow(JanelaPainel, SW_MINIMIZE);
    SetForegroundWindow(outra);
    const HWND antes = JanelaPainel;
    Abrir();
    EXPECT_EQ(JanelaPainel, antes);
    EXPECT_FALSE(IsIconic(JanelaPainel));
    EXPECT_EQ(GetForegroundWindow(), JanelaPainel);
    EXPECT_EQ(Canto(), "50 60");
    EXPECT_TRUE(preparou()) << "the host's options are set at each opening";

    Fechar();
    EXPECT_FALSE(JanelaPainelAberta());
    EXPECT_FALSE(IsWindow(antes));
    EXPECT_EQ(marca(), 0);
    Abrir();
    EXPECT_TRUE(JanelaPainelAberta()) << "the class is registered once, and still there";
}

TEST_F(JanelaDoPainel, SemDonoOuComDonoMorto) {
    AbrirJanelaPainel(nullptr, host.resourcePath);
    ASSERT_TRUE(JanelaPainelAberta());
    EXPECT_EQ(Canto(), "840 40");  // 1200 - 340 - 20
    Fechar();
    const HWND morta = JanelaDeTeste("Morta", 0, 0, 300, 300);
    DestroyWindow(morta);
    AbrirJanelaPainel(morta, host.resourcePath);
    EXPECT_FALSE(JanelaPainelAberta()) << "the window cannot be created, and nobody is told";
    driver::Pump();
    Abrir();
    EXPECT_TRUE(JanelaPainelAberta());
}

TEST_F(JanelaDoPainel, PiscaQuatroVezesPorSegundoEnquantoAberto) {
    AbrirContando();
    const bool antes = PiscaLigado;
    ASSERT_TRUE(EsperarTique(1));
    EXPECT_NE(PiscaLigado, antes);
    EXPECT_GE(passes, 1) << "each tick repaints, so that the host's changes show";
    ASSERT_TRUE(EsperarTique(1));
    EXPECT_EQ(PiscaLigado, antes);
    EsperarIntervalo(1, 250);
}

TEST_F(JanelaDoPainel, UmCliquePorAperto) {
    AbrirContando();
    EXPECT_EQ(Ponteiro(), "-1 -1");
    for (int x = 10; x < 20; ++x) PostMessageA(JanelaPainel, WM_MOUSEMOVE, 0, MAKELPARAM(x, 5));
    driver::Pump();
    EXPECT_EQ(Mouse.x, 19);
    EXPECT_GE(passes, 1);
    EXPECT_LT(passes, 10) << "moves share a pass";

    Mover(100, 50);
    EXPECT_EQ(Ponteiro(), "100 50");
    Apertar();
    EXPECT_TRUE(EsperarTique(1));
    Mover(101, 50);
    EXPECT_EQ(Cliques(), "E") << "on the press, once, however long it is held";
    Soltar();
    EXPECT_EQ(Cliques(), "");
    for (const Button botao : {Button::Left, Button::Left, Button::Right, Button::Right}) Clicar(101, 50, botao);
    EXPECT_EQ(Cliques(), "EEDD") << "a double click is two clicks";

    SetForegroundWindow(outra);
    driver::Pump();
    Clicar(101, 50);
    EXPECT_EQ(Cliques(), "E") << "the click that activates the panel counts";
    EXPECT_EQ(GetForegroundWindow(), JanelaPainel);
    EXPECT_EQ(SendMessageA(JanelaPainel, WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0), 0);
    driver::Wheel(1);
    EXPECT_EQ(Mouse.x, 101);
    EXPECT_EQ(Cliques(), "");
}

TEST_F(JanelaDoPainel, CadaApertoQueEsperouNaFilaConta) {
    AbrirContando();
    Mover(101, 50);
    SendMessageA(JanelaPainel, WM_LBUTTONDBLCLK, 0, 0);
    EXPECT_EQ(Mouse.x, 101) << "a press counts where the mouse moved last, whatever it carries";
    SendMessageA(JanelaPainel, WM_LBUTTONUP, 0, 0);
    SendMessageA(JanelaPainel, WM_RBUTTONDBLCLK, 0, 0);
    SendMessageA(JanelaPainel, WM_RBUTTONUP, 0, 0);
    EXPECT_EQ(Cliques(), "ED");

    for (const UINT aperto : {WM_LBUTTONDOWN, WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_RBUTTONDOWN})
        for (const UINT mensagem : {aperto, aperto + 1}) SendMessageA(JanelaPainel, mensagem, 0, 0);  // and its release
    EXPECT_EQ(Cliques(), "EEDD") << "clicks that waited for a busy host, with no pass between them";
}

TEST_F(JanelaDoPainel, OBotaoEsquerdoCapturaODireitoNao) {
    AbrirContando();
    Mover(10, 10);
    Apertar();
    EXPECT_EQ(GetCapture(), JanelaPainel);
    Mover(-30, -20);
    EXPECT_EQ(Ponteiro(), "-30 -20");
    EXPECT_TRUE(Mouse.esquerdoSeguro);
    Soltar();
    EXPECT_FALSE(Mouse.esquerdoSeguro);
    EXPECT_EQ(GetCapture(), nullptr);
    Mover(-3, 60);
    EXPECT_EQ(Mouse.x, -30) << "on the frame and without capture the last place stays";

    Mover(10, 10);
    Apertar(Button::Right);
    EXPECT_NE(GetCapture(), JanelaPainel);
    Mover(-50, 60);
    Soltar(Button::Right);
    EXPECT_EQ(Mouse.x, 10);
    EXPECT_TRUE(Mouse.direitoSeguro) << "released elsewhere: held until its next message";
    Cliques();
    Clicar(10, 10, Button::Right);
    EXPECT_EQ(Cliques(), "D") << "a press that finds the button held is a new click";
    EXPECT_FALSE(Mouse.direitoSeguro);
}

// A box or another window takes the mouse while the left button is down: its release goes there.
TEST_F(JanelaDoPainel, PerderACapturaSoltaOBotao) {
    AbrirContando();
    Mover("zoom_in");
    Apertar();
    SetCapture(JanelaPainel);
    EXPECT_TRUE(Mouse.esquerdoSeguro) << "nobody else has it";
    SetCapture(outra);
    EXPECT_FALSE(Mouse.esquerdoSeguro);
    EXPECT_EQ(GetCapture(), outra) << "it is theirs now";
    EXPECT_FALSE(EsperarTique(2)) << "nothing repeats any more";
    ReleaseCapture();
    Soltar();
    Clicar("zoom_in");
    EXPECT_EQ(Cliques(), "EE");
}

TEST_F(JanelaDoPainel, PerderAFrenteParaARepeticao) {
    for (const Button botao : {Button::Left, Button::Right}) {
        Abrir();
        Mover("zoom_in");
        Apertar(botao);
        ASSERT_TRUE(EsperarTique(2));
        SetForegroundWindow(outra);
        EXPECT_FALSE(EsperarTique(2));
        EXPECT_TRUE(botao == Button::Left ? Mouse.esquerdoSeguro : Mouse.direitoSeguro) << "the button is still down";
        Soltar(botao);
        if (botao == Button::Left) Fechar();
    }
}

TEST_F(JanelaDoPainel, AMolduraNaoTiraNadaDaPagina) {
    for (const driver::Frame& moldura : driver::Frames) {
        driver::SetFrame(moldura);
        Abrir();
        EXPECT_EQ(Cliente(), "320 659") << moldura.padding << " at " << moldura.dpi;
        Fechar();
    }
}

// A command inside a pass may run a message loop of its own: a box, a render.
TEST_F(JanelaDoPainel, UmPasseSuspensoNaoPerdeOQueDesenha) {
    Abrir();
    Mover(10, 10);
    PAINTSTRUCT pintura;
    const auto comecar = [&](std::optional<Passe>& passe) {
        InvalidateRect(JanelaPainel, nullptr, FALSE);
        passe.emplace(JanelaPainel, BeginPaint(JanelaPainel, &pintura), "principal");
        return passe->Fundo();
    };
    std::optional<Passe> passe;
    const LICE_pixel* pixels = comecar(passe)->getBits();
    ASSERT_TRUE(EsperarTique(1));
    Mover(20, 20);
    EXPECT_EQ(passe->Fundo()->getBits(), pixels) << "further passes share the back buffer";
    Apertar();
    EXPECT_FALSE(Mouse.esquerdoApertou) << "this pass must not count the click of the one inside it";
    passe.reset();
    EndPaint(JanelaPainel, &pintura);
    Soltar();

    LICE_IBitmap* bm = comecar(passe);
    const HWND fechada = JanelaPainel;
    Fechar();
    EXPECT_FALSE(JanelaPainelAberta());
    Abrir();
    ASSERT_TRUE(JanelaPainelAberta()) << "closed and opened again under the suspended pass";
    ASSERT_EQ(bm->getWidth(), 320);
    bm->getBits()[0] = 0xFFFFFFFF;
    passe.reset();
    EndPaint(fechada, &pintura);
    InvalidateRect(JanelaPainel, nullptr, FALSE);
    driver::Pump();
    EXPECT_EQ(driver::PictureOf(JanelaPainel).At(0, 0), 0x0D0D0Fu);
}
