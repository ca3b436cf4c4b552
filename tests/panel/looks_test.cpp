// What users see, against what was kept once it had been looked at: data/painel.txt tells every widget of every page,
// the pictures beside this file show all that is no text. QUILMO_WRITE_GOLDEN=1 writes both anew.
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>

#include "panel/icons.h"
#include "panel/slicer_page.h"
#include "panel/status.h"
#include "platform/pictures/png_file.h"
#include "slicer/preview.h"
#include "tests/support/panel_scene.h"

namespace {

bool Gravando() {
    return std::getenv("QUILMO_WRITE_GOLDEN");
}

// Exactly as kept; what is found instead is written beside it.
void ComparaComGuardada(const std::string& nome, const driver::Picture& achada) {
    const std::string inicio = std::string(SOURCE_FOLDER) + "/tests/panel/" + nome;
    const PixelRows linhas = {achada.pixels.data(), achada.width, achada.height, achada.width};
    if (Gravando()) WritePng(inicio + ".png", linhas);
    driver::Picture guardada;
    ASSERT_TRUE(ReadPng(inicio + ".png", &guardada.width, &guardada.height, &guardada.pixels));
    if (achada.width == guardada.width && achada.pixels == guardada.pixels) return;
    WritePng(inicio + "-achada.png", linhas);
    ASSERT_EQ(std::pair(achada.width, achada.height), std::pair(guardada.width, guardada.height)) << nome;
    size_t em = 0;
    while (achada.pixels[em] == guardada.pixels[em]) ++em;
    ADD_FAILURE() << std::hex << nome << ": " << achada.pixels[em] << " in the place of " << guardada.pixels[em]
                  << std::dec << ", first at x " << em % achada.width << ", y " << em / achada.width;
}

// Text is written with no opacity: it alone may differ between machines.
struct SemTexto {
    SemTexto() { Opacidade(0); }
    ~SemTexto() { Opacidade(1); }
    static void Opacidade(float alfa) {
        for (int altura = 9; altura <= 16; ++altura) FontePainel(altura)->SetCombineMode(LICE_BLIT_MODE_COPY, alfa);
    }
};

// --- Widgets, one after the other on a sheet of their own

struct Folha {
    LICE_MemBitmap bm{320, 800, 0};
    int x = 2, y = 2, altura = 0;
    Folha() { LICE_Clear(&bm, CorFundo); }
    Celula Lugar(int w, int h) {
        if (x + w > bm.getWidth()) x = 2, y += altura + 3, altura = 0;
        altura = std::max(altura, h);
        return {std::exchange(x, x + w + 3), y, w, h};
    }
    void NovaLinha() { x = bm.getWidth(); }
    driver::Picture Imagem() {
        driver::Picture imagem = {bm.getWidth(), bm.getHeight(), {}};
        for (int i = 0; i < bm.getWidth() * bm.getHeight(); ++i)
            imagem.pixels.push_back(bm.getBits()[i / bm.getWidth() * bm.getRowSpan() + i % bm.getWidth()] & 0xFFFFFF);
        return imagem;
    }
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

// Each in each state: idle, with a button held elsewhere, under the pointer, pressed by either button, disabled under
// the pointer, active, active under the pointer.
void Botoes(Folha& folha) {
    const AspectoBotao aspectos[] = {
        {.rotulo = "", .cor = {42, 50, 58}},
        {.rotulo = "", .cor = {250, 206, 3}},
        {.icone = "up", .cor = {42, 50, 58}},
        {.icone = "zoom_in", .cor = {250, 206, 3}},
        {.icone = "clear", .cor = {25, 25, 28}},
        // Light and dark part where the luminance passes 165, idle or under the pointer; each channel has its weight.
        {.rotulo = "", .cor = {150, 150, 150}},
        {.rotulo = "", .cor = {151, 151, 151}},
        {.rotulo = "", .cor = {165, 165, 165}},
        {.rotulo = "", .cor = {166, 166, 166}},
        {.rotulo = "", .cor = {255, 151, 0}},
        {.rotulo = "", .cor = {255, 152, 0}},
        {.rotulo = "", .cor = {0, 231, 255}},
        {.rotulo = "", .cor = {0, 232, 255}},
    };
    for (AspectoBotao aspecto : aspectos) {
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
    folha.NovaLinha();
}

void Sliders(Folha& folha) {
    const char* arrastado = nullptr;
    const auto um = [&](float valor, const EstadoMouse& mouse, const Celula& c, bool desativado = false) {
        SliderPainel(&folha.bm, mouse, arrastado, c,
                     {.id = "a", .cor = {45, 100, 120}, .valor = valor, .maximo = 100, .desativado = desativado});
    };
    // The filled part: nothing below three pixels, its corners as large as it has room for; held at both ends.
    for (const float valor :
         {-90.0f, 0.0f, 2.4f, 2.6f, 5.0f, 9.0f, 50.0f, 99.0f, 100.0f, 900.0f, HUGE_VALF, std::nanf("")})
        um(valor, {}, folha.Lugar(100, 20));
    Celula c = folha.Lugar(100, 20);
    um(50, MouseEm(c), c);
    c = folha.Lugar(100, 20);
    um(50, MouseEm(c), c, true);
    c = folha.Lugar(100, 20);
    arrastado = "a";
    um(30, MouseEm(c, true), c);
    c = folha.Lugar(100, 20);
    EstadoMouse longe = MouseEm(c, true);
    longe.y = -50;
    um(30, longe, c);  // also outside
    c = folha.Lugar(100, 20);
    um(30, MouseEm(c), c);  // released
    folha.NovaLinha();
}

void Arredondados(Folha& folha) {
    for (const int raio : {0, 1, 2, 5, 8, 12}) {
        Celula c = folha.Lugar(24, 24);
        PreencheArredondado(&folha.bm, c.x, c.y, c.w, c.h, raio, 0xFF28282D, 1.0f);
        c = folha.Lugar(24, 24);
        PreencheArredondado(&folha.bm, c.x, c.y, c.w, c.h, raio, CorBranca, 0.5f);
        c = folha.Lugar(24, 24);
        ContornoArredondado(&folha.bm, c.x, c.y, c.w, c.h, raio, CorBranca, 0.5f);
    }
    folha.NovaLinha();
}

TEST(Aparencia, FormasDosWidgets) {
    const SemTexto semTexto;
    Folha folha;
    Icones(folha);
    Botoes(folha);
    Sliders(folha);
    Arredondados(folha);
    ComparaComGuardada("formas", folha.Imagem());
}

// --- Text: where its widget puts it, as drawn over the widget without it

struct Escrito {
    std::function<void(LICE_IBitmap*)> desenhar;
    const char* texto;
    int tamanho;
    LICE_pixel cor;
    RECT lugar;
    UINT formato = DT_NOPREFIX | DT_SINGLELINE | DT_VCENTER | DT_CENTER;
};

TEST(Aparencia, TextosNoSeuLugar) {
    const auto botao = [](Celula c, AspectoBotao aspecto, bool apertado = false) {
        const EstadoMouse mouse = apertado ? MouseEm(c, true) : EstadoMouse();
        return [=](LICE_IBitmap* bm) { Botao(bm, mouse, c, aspecto); };
    };
    const auto slider = [](bool sobre, const char* arrastado) {
        constexpr Celula c = {20, 30, 214, 36};
        const EstadoMouse mouse = sobre ? MouseEm(c, arrastado) : EstadoMouse();
        return [=](LICE_IBitmap* bm) {
            const char* vaga = arrastado;
            SliderPainel(bm, mouse, vaga, c, {.id = "a", .rotulo = "Bloco"});
        };
    };
    const auto barra = [](const char* texto) { return [=](LICE_IBitmap* bm) { BarraStatus(bm, 8, 3, 304, texto); }; };
    constexpr UINT aEsquerda = DT_NOPREFIX | DT_SINGLELINE | DT_VCENTER;
    const int largura = LarguraTexto("GRAVAR", 16), tx = static_cast<int>(8 + (308 - 20.4f - largura) / 2 + 20.4f);
    const Escrito casos[] = {
        {botao({20, 30, 60, 36}, {.rotulo = "MUTE"}), "MUTE", 14, CorBranca, {20, 30, 80, 66}},
        {botao({20, 30, 60, 36}, {.rotulo = "MUTE"}, true), "MUTE", 14, CorBranca, {21, 31, 81, 67}},
        {botao({20, 30, 60, 36}, {.rotulo = "&A", .cor = {255, 255, 255}}), "&A", 14, 0xFF14141A, {20, 30, 80, 66}},
        {botao({8, 26, 308, 32}, {.rotulo = "GRAVAR", .icone = "rec"}),
         "GRAVAR",
         16,
         CorBranca,
         {tx, 26, tx + largura + 4, 58},
         aEsquerda},
        {botao({8, 26, 308, 32}, {.rotulo = "GRAVAR", .icone = "rec"}, true),
         "GRAVAR",
         16,
         CorBranca,
         {tx + 1, 27, tx + largura + 5, 59},
         aEsquerda},
        {slider(false, nullptr), "Bloco", 16, 0xE0FFFFFF, {20, 30, 234, 66}},
        {slider(true, nullptr), "Bloco", 16, CorBranca, {20, 30, 234, 66}},
        {slider(true, "a"), "Bloco", 16, CorBranca, {21, 31, 235, 67}},
        {barra(nullptr), "PAINEL PRONTO", 12, 0x66808C99, {16, 3, 304, 25}, aEsquerda},
        {barra(""), "PAINEL PRONTO", 12, 0x66808C99, {16, 3, 304, 25}, aEsquerda},
        {barra("pronto"), "i  pronto", 12, 0xFF4CA6F2, {16, 3, 304, 25}, aEsquerda},
    };
    for (const Escrito& caso : casos) {
        Folha inteira, composta;
        caso.desenhar(&inteira.bm);
        {
            const SemTexto semTexto;
            caso.desenhar(&composta.bm);
        }
        EXPECT_NE(inteira.Imagem().pixels, composta.Imagem().pixels);
        EscreverTexto(&composta.bm, caso.texto, caso.tamanho, caso.cor, caso.lugar, caso.formato);
        EXPECT_EQ(inteira.Imagem().pixels == composta.Imagem().pixels, true) << &caso - casos << ": " << caso.texto;
    }
    // The icon stands as far from the left edge as the text's end from the right.
    const int ix = static_cast<int>(8 + (308 - 20.4f - largura) / 2);
    Folha inteira, composta;
    const AspectoBotao aspecto = {.rotulo = "GRAVAR", .icone = "stop"};
    botao({8, 26, 308, 32}, aspecto)(&inteira.bm);
    botao({8, 26, 308, 32}, {.rotulo = ""})(&composta.bm);
    EscreverTexto(&composta.bm, "GRAVAR", 16, CorBranca, {tx, 26, tx + largura + 4, 58}, aEsquerda);
    DesenhaIcone(&composta.bm, ix, 34, 14.4f, "stop", CorBranca, 0.88f);
    EXPECT_EQ(inteira.Imagem().pixels == composta.Imagem().pixels, true);
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
    // The window and nothing else, side by side; the few icons that stand beside a text, where its width puts them, are
    // left out.
    driver::Picture Tela() {
        const std::vector<WidgetNaTela> widgets = Widgets();
        driver::Picture tela = driver::PictureOf(JanelaPainel);
        for (const WidgetNaTela& w : widgets)
            if (!w.rotulo.empty() && !w.icone.empty())
                for (int y = w.lugar.y + 6; y < w.lugar.y + w.lugar.h - 6; ++y)
                    for (int x = w.lugar.x + 6; x < w.lugar.x + w.lugar.w - 6; ++x) tela.pixels[y * tela.width + x] = 0;
        return tela;
    }
};

TEST_F(Paginas, FormasDasPaginas) {
    const SemTexto semTexto;
    std::vector<driver::Picture> telas = {Tela()};
    AbrirFatiador();
    telas.push_back(Tela());
    SalvarPresetAberto = true;
    telas.push_back(Tela());
    driver::Picture todas = {0, telas[0].height, {}};
    for (const driver::Picture& tela : telas) todas.width += tela.width;
    for (int y = 0; y < todas.height; ++y)
        for (const driver::Picture& tela : telas) {
            const auto linha = tela.pixels.begin() + y * tela.width;
            todas.pixels.insert(todas.pixels.end(), linha, linha + tela.width);
        }
    ComparaComGuardada("paginas", todas);
}

TEST_F(Paginas, CadaWidgetDeCadaPagina) {
    std::string achado =
        "# x, y, width, height; colour; state; label, icon, tooltip; of a slider its value, lowest and highest\n";
    std::set<std::string> antes;
    // In the first state all widgets; in another one those that changed.
    const auto estado = [&](const std::string& titulo) {
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
    };
    estado("");
    ModoRipple = false;
    estado(", sem ripple");
    ModoRipple = true;
    Dados(ItemChamado("A")).mute = true;
    estado(", itens mudos");
    Dados(ItemChamado("A")).mute = false;
    host.playState = 1;
    estado(", tocando");
    host.playState = 5;
    for (const bool pisca : {false, true}) {
        PiscaLigado = pisca;
        estado(pisca ? ", gravando, aceso" : ", gravando, apagado");
    }
    host.playState = 0;
    StatusExecutado("MuteClip");
    estado(", depois de MUTE");
    Mover("MUTE");
    estado(", o ponteiro em MUTE");
    Apertar(driver::Button::Right);
    estado(", MUTE apertado");
    Soltar(driver::Button::Right);
    for (const char* botao : {"FECHAR LACUNAS", "SELECIONAR"}) {
        driver::AnswerNextMenu("");
        Clicar(botao);
        achado += std::string("\n# menu de ") + botao + '\n';
        for (const std::string& entrada : driver::LastMenu()) achado += entrada.empty() ? "--\n" : entrada + '\n';
    }
    Mover(0, 0);
    AbrirFatiador();
    estado("");
    fecharLacunas = false;
    estado(", sem fechar lacunas");
    fecharLacunas = true;
    Mover("AJUSTA BLOCO");
    estado(", o ponteiro no bloco");
    Apertar();
    estado(", arrastando o bloco");
    Soltar();
    Mover(0, 0);
    SalvarPresetAberto = true;
    estado(", congelada");

    const std::string caminho = SOURCE_FOLDER "/data/painel.txt";
    if (Gravando()) std::ofstream(caminho, std::ios::binary) << achado;
    std::ifstream arquivo(caminho, std::ios::binary);
    std::stringstream guardado;
    guardado << arquivo.rdbuf();
    EXPECT_EQ(achado, guardado.str());
}

}  // namespace
