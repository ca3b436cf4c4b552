// What users see, as it was kept once: data/painel.txt tells every widget, the pictures here show their shapes.
#include <set>

#include "panel/icons.h"
#include "panel/slicer_page.h"
#include "panel/status.h"
#include "slicer/preview.h"
#include "tests/support/kept.h"
#include "tests/support/panel_scene.h"

namespace {

// Of all text, which alone may differ between machines; 0 while shapes are compared.
void OpacidadeDoTexto(float alfa) {
    for (int altura = 9; altura <= 16; ++altura) FontePainel(altura)->SetCombineMode(LICE_BLIT_MODE_COPY, alfa);
}

// --- Widgets, one after the other on a sheet of their own

struct Folha {
    LICE_MemBitmap bm{320, 700, 0};
    int x = 2, y = 2, altura = 0;
    Folha() { LICE_Clear(&bm, CorFundo); }
    Celula Lugar(int w, int h) {
        if (x + w > bm.getWidth()) x = 2, y += altura + 3, altura = 0;
        altura = std::max(altura, h);
        return {std::exchange(x, x + w + 3), y, w, h};
    }
    void NovaLinha() { x = bm.getWidth(); }
};

EstadoMouse MouseEm(const Celula& c, bool esquerdo = false, bool direito = false) {
    EstadoMouse mouse;
    mouse.x = c.x + c.w / 2;
    mouse.y = c.y + c.h / 2;
    mouse.esquerdoSeguro = esquerdo;
    mouse.direitoSeguro = direito;
    return mouse;
}

void Icones(Folha& folha) {
    for (const char* nome : {"play", "pause", "stop", "rec", "circle", "up", "down", "left", "start", "end", "zoom_in",
                             "zoom_out", "zoom_sel", "zoom_all", "zoom_vert", "unknown"})
        for (const float lado : {9.0f, 14.4f, 15.75f, 16.2f, 31.0f}) {
            const Celula c = folha.Lugar(static_cast<int>(lado) + 1, static_cast<int>(lado) + 1);
            DesenhaIcone(&folha.bm, c.x, c.y, lado, nome, CorBranca, 0.88f);
        }
    folha.NovaLinha();
}

// Idle, held elsewhere, under the pointer, pressed by either button, disabled there, active, active there.
void Estados(Folha& folha, AspectoBotao aspecto) {
    const auto um = [&](bool sobre, bool esquerdo = false, bool direito = false) {
        const Celula c = folha.Lugar(35, 26);
        EstadoMouse mouse = MouseEm(c, esquerdo, direito);
        if (!sobre) mouse.x = -1;
        Botao(&folha.bm, mouse, c, aspecto);
    };
    um(false), um(false, true), um(true), um(true, true), um(true, false, true);
    aspecto.desativado = true;
    um(true);
    aspecto.desativado = false;
    aspecto.ativo = true;
    um(false), um(true);
}

void Botoes(Folha& folha) {
    Estados(folha, {.icone = "up", .cor = {42, 50, 58}});
    Estados(folha, {.icone = "zoom_in", .cor = {250, 206, 3}});
    Estados(folha, {.icone = "clear", .cor = {25, 25, 28}});
    // Light and dark part where the luminance passes 165, idle or under the pointer; each channel has its weight.
    constexpr CorBase limiares[] = {{150, 150, 150}, {151, 151, 151}, {165, 165, 165}, {166, 166, 166},
                                    {255, 151, 0},   {255, 152, 0},   {0, 231, 255},   {0, 232, 255}};
    for (const CorBase& cor : limiares) Estados(folha, {.cor = cor});
    folha.NovaLinha();
}

// Idle at values within the range and beyond; then under the pointer, disabled there, dragged, and released.
void Sliders(Folha& folha) {
    const char* arrastado = nullptr;
    const auto um = [&](float valor, bool sobre = false, bool seguro = false, bool desativado = false) {
        const Celula c = folha.Lugar(100, 20);
        EstadoMouse mouse = MouseEm(c, seguro);
        if (!sobre) mouse.y = -1;
        SliderPainel(&folha.bm, mouse, arrastado, c,
                     {.id = "a", .cor = {45, 100, 120}, .valor = valor, .maximo = 100, .desativado = desativado});
    };
    for (const float valor : {-90.0f, 0.0f, 2.4f, 2.6f, 5.0f, 9.0f, 50.0f, 99.0f, 100.0f, 900.0f, HUGE_VALF, NAN})
        um(valor);
    um(50, true), um(50, true, false, true);
    arrastado = "a";
    um(30, true, true), um(30, false, true), um(30, true);
}

TEST(Aparencia, FormasDosWidgets) {
    OpacidadeDoTexto(0);
    Folha folha;
    Icones(folha);
    Botoes(folha);
    Sliders(folha);
    OpacidadeDoTexto(1);
    ConfereImagem("tests/panel/formas", ImagemDe(folha.bm));
}

// --- Text: where its widget puts it, as drawn over the widget without it

struct Escrito {
    std::function<void(LICE_IBitmap*)> desenhar;
    const char* texto;
    int tamanho;
    LICE_pixel cor;
    Celula lugar;
    bool noCentro = true;
};

void ConfereTexto(const Escrito& e) {
    Folha inteira, composta;
    e.desenhar(&inteira.bm);
    OpacidadeDoTexto(0);
    e.desenhar(&composta.bm);
    OpacidadeDoTexto(1);
    const UINT formato = DT_NOPREFIX | DT_SINGLELINE | DT_VCENTER | (e.noCentro ? DT_CENTER : 0);
    const auto& [x, y, w, h] = e.lugar;
    EscreverTexto(&composta.bm, e.texto, e.tamanho, e.cor, {x, y, x + w, y + h}, formato);
    EXPECT_TRUE(ImagemDe(inteira.bm).pixels == ImagemDe(composta.bm).pixels) << e.texto << " in " << std::hex << e.cor;
}

TEST(Aparencia, TextosNoSeuLugar) {
    const auto botao = [](Celula c, AspectoBotao aspecto, bool apertado = false) {
        const EstadoMouse mouse = apertado ? MouseEm(c, true) : EstadoMouse();
        return [=](LICE_IBitmap* bm) { Botao(bm, mouse, c, aspecto); };
    };
    constexpr Celula c = {20, 30, 214, 36}, largo = {8, 26, 308, 32};
    const auto slider = [&](bool sobre, const char* arrastado) {
        const EstadoMouse mouse = sobre ? MouseEm(c, arrastado) : EstadoMouse();
        return [=](LICE_IBitmap* bm) {
            const char* vaga = arrastado;
            SliderPainel(bm, mouse, vaga, c, {.id = "a", .rotulo = "Bloco"});
        };
    };
    const auto barra = [](const char* texto) { return [=](LICE_IBitmap* bm) { BarraStatus(bm, 8, 3, 304, texto); }; };
    constexpr Celula naBarra = {16, 3, 288, 22};
    const AspectoBotao claro = {.rotulo = "&A", .cor = {255, 255, 255}}, parar = {.rotulo = "PARAR", .icone = "stop"};
    const int w = LarguraTexto("PARAR", 16);
    const float ix = 8 + (308 - 6 - 14.4f - w) / 2;  // the icon and its text, centred together
    const int tx = static_cast<int>(ix + 14.4f + 6);
    const Escrito casos[] = {
        {botao({20, 30, 60, 36}, {.rotulo = "MUTE"}), "MUTE", 14, CorBranca, {20, 30, 60, 36}},
        {botao({20, 30, 60, 36}, {.rotulo = "MUTE"}, true), "MUTE", 14, CorBranca, {21, 31, 60, 36}},
        {botao(c, claro), "&A", 16, 0xFF14141A, c},
        {botao(largo, parar), "PARAR", 16, CorBranca, {tx, 26, w + 4, 32}, false},
        {botao(largo, parar, true), "PARAR", 16, CorBranca, {tx + 1, 27, w + 4, 32}, false},
        {slider(false, nullptr), "Bloco", 16, 0xE0FFFFFF, c},
        {slider(true, nullptr), "Bloco", 16, CorBranca, c},
        {slider(true, "a"), "Bloco", 16, CorBranca, {21, 31, 214, 36}},
        {barra(nullptr), "PAINEL PRONTO", 12, 0x66808C99, naBarra, false},
        {barra(""), "PAINEL PRONTO", 12, 0x66808C99, naBarra, false},
        {barra("pronto"), "i  pronto", 12, 0xFF4CA6F2, naBarra, false},
    };
    for (const Escrito& caso : casos) ConfereTexto(caso);
    Folha folha;
    botao(largo, parar)(&folha.bm);
    const driver::Picture imagem = ImagemDe(folha.bm);
    const int borda = static_cast<int>(ix);
    EXPECT_EQ(imagem.At(borda - 1, 40), imagem.At(40, 40));
    EXPECT_NE(imagem.At(borda, 40), imagem.At(40, 40));
}

// --- Pages

class Paginas : public Painel {
  protected:
    void SetUp() override {
        Painel::SetUp();
        Faixa("Voz", {{"A", 0, 4}});
        Selecionar({"A"});
        Abrir();
        Mover(0, 0);  // the pointer may rest on the panel from before
    }
    // As the window shows it, but for the few icons that stand beside a text, where its width puts them.
    static void Comparar(const std::string& nome) {
        const std::vector<WidgetNaTela> widgets = Widgets();
        driver::Picture tela = driver::PictureOf(JanelaPainel);
        for (const WidgetNaTela& w : widgets)
            if (!w.rotulo.empty() && !w.icone.empty())
                for (int y = w.lugar.y + 6; y < w.lugar.y + w.lugar.h - 6; ++y)
                    for (int x = w.lugar.x + 6; x < w.lugar.x + w.lugar.w - 6; ++x) tela.pixels[y * tela.width + x] = 0;
        ConfereImagem("tests/panel/" + nome, tela);
    }
};

TEST_F(Paginas, FormasDasPaginas) {
    OpacidadeDoTexto(0);
    Comparar("principal");
    AbrirFatiador();
    Comparar("fatiador");
    SalvarPresetAberto = true;
    Comparar("pergunta");
    OpacidadeDoTexto(1);
}

class ListaDeWidgets : public Paginas {
  protected:
    // In a page's first state all widgets; in another one those that changed.
    void Estado(const std::string& titulo) {
        std::set<std::string> agora;
        std::string pagina;
        for (const WidgetNaTela& w : Widgets()) {
            agora.insert(w.linha);
            if (antes.contains(w.linha)) continue;
            if (pagina != w.pagina) achado += "\n# " + w.pagina + titulo + '\n';
            pagina = w.pagina;
            achado += w.linha + '\n';
        }
        if (titulo.empty()) antes = agora;
    }
    template <class Coisa>
    void EstadoCom(Coisa& coisa, int valor, const char* titulo) {  // for as long as the look takes
        const Coisa antiga = std::exchange(coisa, valor);
        Estado(titulo);
        coisa = antiga;
    }
    void PaginaPrincipal() {
        Estado("");
        EstadoCom(ModoRipple, false, ", sem ripple");
        EstadoCom(Dados(ItemChamado("A")).mute, true, ", itens mudos");
        EstadoCom(host.transport.state, 1, ", tocando");
        for (const bool pisca : {false, true}) {
            PiscaLigado = pisca;
            EstadoCom(host.transport.state, 5, pisca ? ", gravando, aceso" : ", gravando, apagado");
        }
        StatusExecutado("MuteClip");
        Estado(", depois de MUTE");
        Mover("MUTE");
        Estado(", o ponteiro em MUTE");
        Apertar(driver::Button::Right);
        Estado(", MUTE apertado");
        Soltar(driver::Button::Right);
    }
    void Menu(const std::string& botao) {
        driver::AnswerNextMenu("");
        Clicar(botao);
        achado += "\n# menu de " + botao + '\n';
        for (const std::string& entrada : driver::LastMenu()) achado += entrada.empty() ? "--\n" : entrada + '\n';
    }
    void PaginaDoFatiador() {
        Mover(0, 0);
        AbrirFatiador();
        Estado("");
        EstadoCom(fecharLacunas, false, ", sem fechar lacunas");
        Mover("AJUSTA BLOCO");
        Estado(", o ponteiro no bloco");
        Apertar();
        Estado(", arrastando o bloco");
        Soltar();
        Mover(0, 0);
        SalvarPresetAberto = true;
        Estado(", congelada");
    }

    std::string achado =
        "# x, y, width, height; colour; state; label, icon, tooltip; of a slider its value, lowest and highest\n";
    std::set<std::string> antes;
};

TEST_F(ListaDeWidgets, CadaWidgetDeCadaPagina) {
    PaginaPrincipal();
    Menu("FECHAR LACUNAS");
    Menu("SELECIONAR");
    PaginaDoFatiador();
    ConfereGuardado("data/painel.txt", achado);
}

}  // namespace
