#include "panel/slicer_page.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "panel/grid.h"
#include "panel/observer.h"
#include "panel/pass.h"
#include "panel/rounded.h"
#include "panel/slicer_watch.h"
#include "panel/status.h"
#include "slicer/presets.h"
#include "slicer/preview.h"

namespace {

constexpr int Esquerda = 8, Largura = 304, Altura = 36;
constexpr int BytesDoRotulo = 64;

void Recalcular() {
    RecalcularPreview(fecharLacunas, blocoMs, thresholdDb);
    CancelarOQueEsperou();
}

void GravarAjustes() { GravarPresets(PresetsFatiador, thresholdDb, blocoMs, fecharLacunas, CaminhoPainel); }

std::string RotuloDePreset(int n) { return "P" + std::to_string(n); }

// The page takes no mouse while the prompt is open, nor from a host that lets messages in amid a recomputation.
bool Congelada() { return SalvarPresetAberto || PreviewEmObra; }

// A button of the page. True: clicked.
bool Clicou(ContextoGrade& contexto, const Celula& c, AspectoBotao aspecto) {
    aspecto.desativado = Congelada();
    return BotaoDireto(contexto, c, aspecto).cliqueEsquerdo;
}

void LinhaPresets(ContextoGrade& contexto, int y) {
    for (int n = 1; n <= QuantosPresets; ++n) {
        const std::string rotulo = RotuloDePreset(n);
        if (!Clicou(contexto, {Esquerda + (n - 1) * 51, y, 47, 24},
                    {.rotulo = rotulo.c_str(), .cor = {80, 80, 80}, .dica = "CARREGAR PRESET"}))
            continue;
        const PresetFatiador& preset = PresetsFatiador[n - 1];
        thresholdDb = preset.thresholdDb;
        blocoMs = preset.blocoMs;
        fecharLacunas = preset.fecharLacunas;
        Recalcular();
    }
}

// One setting: a step down, a slider, a step up. Each step tests its own limit only, so a value from outside comes in
// by one step from the other side. A drag changes the value alone; its end cuts anew.
template <class Valor>
struct Ajuste {
    Valor& valor;
    Valor menor, maior;
    const char* id;
    const char* rotulo;  // a format for the value
    const char *dicaMenos, *dicaSlider, *dicaMais;
};

template <class Valor>
void LinhaDeAjuste(ContextoGrade& contexto, int y, const Ajuste<Valor>& a) {
    constexpr CorBase corDoPasso = {100, 100, 100};
    if (Clicou(contexto, {Esquerda, y, 40, Altura}, {.rotulo = "-", .cor = corDoPasso, .dica = a.dicaMenos})) {
        a.valor = std::max(a.menor + 1, a.valor) - 1;  // the limit first: a step from the type's own end would overflow
        Recalcular();
    }
    char rotulo[BytesDoRotulo];
    std::snprintf(rotulo, sizeof rotulo, a.rotulo, a.valor);
    const ResultadoSlider slider = SliderPainel(contexto.bm, contexto.mouse, SliderArrastado, {53, y, 214, Altura},
                                                {.id = a.id,
                                                 .rotulo = rotulo,
                                                 .cor = {45, 100, 120},
                                                 .valor = static_cast<float>(a.valor),
                                                 .minimo = static_cast<float>(a.menor),
                                                 .maximo = static_cast<float>(a.maior),
                                                 .desativado = Congelada(),
                                                 .dica = a.dicaSlider});
    if (slider.dica) contexto.dica = slider.dica;
    if (!Congelada()) {
        if (slider.mudou) a.valor = static_cast<Valor>(slider.valor);
        if (slider.soltou) Recalcular();
    }
    if (Clicou(contexto, {272, y, 40, Altura}, {.rotulo = "+", .cor = corDoPasso, .dica = a.dicaMais})) {
        a.valor = std::min(a.maior - 1, a.valor) + 1;
        Recalcular();
    }
}

void LinhaFecharLacunas(ContextoGrade& contexto, int y) {
    char rotulo[BytesDoRotulo];
    std::snprintf(rotulo, sizeof rotulo, "%s FECHAR LACUNAS", fecharLacunas ? "[X]" : "[ ]");
    if (!Clicou(contexto, {Esquerda, y, Largura, Altura},
                {.rotulo = rotulo, .cor = {70, 70, 75}, .dica = "FECHA LACUNAS?", .ativo = fecharLacunas}))
        return;
    fecharLacunas = !fecharLacunas;
    Recalcular();
}

void LinhaSalvar(ContextoGrade& contexto, int y) {
    if (Clicou(contexto, {Esquerda, y, Largura, Altura},
               {.rotulo = "SALVAR PRESET", .cor = {45, 80, 100}, .dica = "MEMORIZAR CONFIGURACOES"}))
        SalvarPresetAberto = true;
}

void LinhaSaida(ContextoGrade& contexto, int y) {
    if (Clicou(contexto, {Esquerda, y, 149, Altura},
               {.rotulo = "VOLTAR", .cor = {105, 35, 40}, .dica = "VOLTA AO ORIGINAL"})) {
        GravarAjustes();
        RestaurarOriginal();
        ModoFatiadorAtivo = false;
    }
    if (Clicou(contexto, {162, y, 149, Altura},
               {.rotulo = "APLICAR FATIAS", .cor = {45, 130, 70}, .dica = "CONFIRMA AS FATIAS"})) {
        GravarAjustes();
        AplicarFatias();
        ModoFatiadorAtivo = false;
    }
}

// The prompt lies over the frozen page. Its buttons give no tooltip.
void PerguntarPreset(ContextoGrade& contexto, const RECT& cliente) {
    constexpr int larguraCaixa = 280, alturaCaixa = 200, raioCaixa = 8;
    const int bx = 20, by = (cliente.bottom - alturaCaixa) / 2;
    const auto clicou = [&contexto](const Celula& c, const AspectoBotao& aspecto) {
        return Botao(contexto.bm, contexto.mouse, c, aspecto).cliqueEsquerdo;
    };
    PaginaEmCurso = "pergunta";
    LICE_FillRect(contexto.bm, 0, 0, cliente.right, cliente.bottom, 0xD9000000, 0.85f, LICE_BLIT_MODE_COPY);
    PreencheArredondado(contexto.bm, bx, by, larguraCaixa, alturaCaixa, raioCaixa, 0xFF28282D, 1.0f);
    clicou({bx + 10, by + 10, 260, 30}, {.rotulo = "Salvar em qual Preset?", .cor = {40, 40, 45}, .desativado = true});
    for (int n = 1; n <= QuantosPresets; ++n) {
        const std::string rotulo = RotuloDePreset(n);
        const Celula c = {bx + 10 + (n - 1) % 3 * 88, by + 50 + (n - 1) / 3 * 41, 83, Altura};
        if (!clicou(c, {.rotulo = rotulo.c_str(), .cor = {80, 80, 80}})) continue;
        SalvarPreset(PresetsFatiador, n, thresholdDb, blocoMs, fecharLacunas, CaminhoPainel);
        SalvarPresetAberto = false;
    }
    if (clicou({bx + 10, by + 150, 260, Altura}, {.rotulo = "CANCELAR", .cor = {105, 35, 40}}))
        SalvarPresetAberto = false;
}

}  // namespace

void AbrirFatiador() {
    if (EntrarModoFatiador(CaminhoPainel) && JanelaPainel) SetForegroundWindow(JanelaPainel);
}

void PaginaFatiador(HWND janela, HDC dc) {
    RECT cliente = {};
    GetClientRect(janela, &cliente);
    const Passe passe(janela, dc, "fatiador");
    ContextoGrade contexto = {passe.Fundo(), Mouse};
    LinhaPresets(contexto, 35);
    LinhaDeAjuste<double>(contexto, 69,
                          {thresholdDb, -80.0, -6.0, "db", "Piso de Silencio: %.1f dB", "DIMINUIR PISO",
                           "AJUSTA O PISO", "AUMENTA PISO"});
    LinhaDeAjuste<int>(contexto, 115,
                       {blocoMs, 1, 500, "ms", "Bloco Min.: %d ms", "DIMINUI BLOCO", "AJUSTA BLOCO", "AUMENTA BLOCO"});
    LinhaFecharLacunas(contexto, 161);
    LinhaSalvar(contexto, 202);
    LinhaSaida(contexto, 243);
    // Drawn after the rows, so that the hovered widget's tooltip can stand in it in the same pass.
    BarraStatus(contexto.bm, Esquerda, 3, cliente.right - 16, contexto.dica ? contexto.dica : "MODO FATIADOR");
    if (SalvarPresetAberto) PerguntarPreset(contexto, cliente);
}
