// panel/rows_items.cpp: duplicate, mute, move and zoom.
#include "panel/rows.h"
#include "panel/state.h"

static constexpr CorBase CorNeutra = {42, 50, 58}, CorDeMover = {40, 58, 48};

void LinhaItens(ContextoGrade& contexto) {
    const bool mudos = TodosItensMudos();
    BotaoGrade(contexto, 1, 2, {.rotulo = "DUP", .cor = CorNeutra, .dica = "E: DUPLICAR ITENS | D: DUPLICAR PISTAS"},
               AcaoDoHost<acao::DuplicarItens>, AcaoDoHost<acao::DuplicarFaixas>);
    BotaoGrade(contexto, 3, 2, {.rotulo = "VOL", .cor = CorNeutra, .dica = "ADICIONA ENVELOPE DE VOLUME"},
               clique::VolEnvelope);
    BotaoGrade(contexto, 5, 2, {.icone = "up", .cor = CorNeutra, .dica = "E: ITEM PARA CIMA | D: PISTA PARA CIMA"},
               clique::MvClipCima, clique::MvPistaCima);
    BotaoGrade(contexto, 7, 2, {.rotulo = "MUTE", .cor = CorNeutra, .dica = "MUTA OU DESMUTA ITEMS", .ativo = mudos},
               clique::MuteClip);
}

// Two nudges of 10 ms, each with an undo point of its own.
static void Mover20msEsq() {
    MvClipEsq();
    MvClipEsq();
}

static void Mover20msDir() {
    MvClipDir();
    MvClipDir();
}

// The Shift key is read at the moment of the click; the status names the plain command in both cases.
static bool ComShift() { return (GetAsyncKeyState(VK_SHIFT) & 0x8000) != 0; }

static void ColarOuMoverEsq() { ComShift() ? Mover20msEsq() : ColaClipEsq(); }

static void ColarOuMoverDir() { ComShift() ? Mover20msDir() : ColaClipDir(); }

void LinhaMover(ContextoGrade& contexto) {
    BotaoGrade(contexto, 1, 2, {.rotulo = "MEDIA", .cor = CorNeutra, .dica = "ABRIR/FECHAR O MEDIA EXPLORER"},
               AcaoDoHost<acao::AlternarMediaExplorer>);
    BotaoGrade(contexto, 3, 2,
               {.icone = "left", .cor = CorDeMover, .dica = "L: COLA NO ANTERIOR | SHIFT+L / R: MOVE 20MS ESQ"},
               {clique::ColaClipEsq.nome, ColarOuMoverEsq}, {clique::MvClipEsq.nome, Mover20msEsq});
    BotaoGrade(contexto, 5, 2, {.icone = "down", .cor = CorNeutra, .dica = "L: ITEM PARA BAIXO | R: PISTA PARA BAIXO"},
               clique::MvClipBaixo, clique::MvPistaBaixo);
    BotaoGrade(contexto, 7, 2,
               {.icone = "right", .cor = CorDeMover, .dica = "L: COLA ITEM SEGUINTE | SHIFT+L / R: MOVE 20MS DIR"},
               {clique::ColaClipDir.nome, ColarOuMoverDir}, {clique::MvClipDir.nome, Mover20msDir});
}

// While it is held, its command runs again with each tick of timer 2; those leave the status line alone.
static void BotaoQueRepete(ContextoGrade& contexto, int coluna, const AspectoBotao& aspecto, Clique esquerdo,
                           Clique direito) {
    if (!BotaoGrade(contexto, coluna, 2, aspecto, esquerdo, direito).sobre) return;
    if (contexto.mouse.esquerdoSeguro)
        AcaoRepetir = esquerdo.comando;
    else if (contexto.mouse.direitoSeguro)
        AcaoRepetir = direito.comando;
}

static void EsticarFaixas() { ZoomAllFaixas(true); }

static void AjustarAltura() { ZoomAllFaixas(false); }

void LinhaZoom(ContextoGrade& contexto) {
    BotaoQueRepete(contexto, 1,
                   {.icone = "zoom_in", .cor = CorNeutra, .dica = "L: ZOOM IN HORIZONTAL | R: ZOOM OUT HORIZONTAL"},
                   AcaoDoHost<acao::AproximarHorizontal>, AcaoDoHost<acao::AfastarHorizontal>);
    BotaoQueRepete(contexto, 3,
                   {.icone = "zoom_vert", .cor = CorNeutra, .dica = "L: ZOOM IN VERTICAL | R: ZOOM OUT VERTICAL"},
                   AcaoDoHost<acao::AproximarVertical>, AcaoDoHost<acao::AfastarVertical>);
    BotaoGrade(contexto, 5, 2, {.icone = "zoom_sel", .cor = {45, 80, 115}, .dica = "ZOOM NA SELECAO"},
               clique::VerSelecao);
    BotaoGrade(contexto, 7, 2, {.icone = "zoom_all", .cor = CorNeutra, .dica = "E: ESTICAR | R: AJUSTA ALTURA"},
               {"ZoomAllFaixas(esticar)", EsticarFaixas}, {"ZoomAllFaixas(so_altura)", AjustarAltura});
}
