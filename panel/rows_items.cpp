// panel/rows_items.cpp: duplicate, mute, move and zoom.
#include "commands/commands.h"
#include "commands/items.h"
#include "panel/rows.h"

static constexpr CorBase CorNeutra = {42, 50, 58}, CorDeMover = {40, 58, 48};

void LinhaItens(ContextoGrade& contexto, int y) {
    const BotaoDaLinha linha[] = {
        {1,
         2,
         {{.rotulo = "DUP", .cor = CorNeutra, .dica = "E: DUPLICAR ITENS | D: DUPLICAR PISTAS"},
          "Action_41295",
          Acao<41295>,
          "Action_40062",
          Acao<40062>}},
        {3,
         2,
         {{.rotulo = "VOL", .cor = CorNeutra, .dica = "ADICIONA ENVELOPE DE VOLUME"}, "VolEnvelope", VolEnvelope}},
        {5,
         2,
         {{.icone = "up", .cor = CorNeutra, .dica = "E: ITEM PARA CIMA | D: PISTA PARA CIMA"},
          "MvClipCima",
          MvClipCima,
          "MvPistaCima",
          MvPistaCima}},
        {7,
         2,
         {{.rotulo = "MUTE", .cor = CorNeutra, .dica = "MUTA OU DESMUTA ITEMS", .ativo = TodosItensMudos()},
          "MuteClip",
          MuteClip}},
    };
    DesenharLinha(contexto, y, linha);
}

// Two nudges of 10 ms, each with an undo point of its own.
template <void (*cutucar)()>
static void Mover20ms() {
    cutucar();
    cutucar();
}

// The Shift key is read at the moment of the click; the status names the plain command in both cases.
template <void (*colar)(), void (*cutucar)()>
static void ColarOuMover() {
    const bool shift = (GetAsyncKeyState(VK_SHIFT) & 0x8000) != 0;
    if (shift)
        Mover20ms<cutucar>();
    else
        colar();
}

void LinhaMover(ContextoGrade& contexto, int y) {
    static const BotaoDaLinha linha[] = {
        {1,
         2,
         {{.rotulo = "MEDIA", .cor = CorNeutra, .dica = "ABRIR/FECHAR O MEDIA EXPLORER"}, "Action_50124", Acao<50124>}},
        {3,
         2,
         {{.icone = "left", .cor = CorDeMover, .dica = "L: COLA NO ANTERIOR | SHIFT+L / R: MOVE 20MS ESQ"},
          "ColaClipEsq",
          ColarOuMover<ColaClipEsq, MvClipEsq>,
          "MvClipEsq",
          Mover20ms<MvClipEsq>}},
        {5,
         2,
         {{.icone = "down", .cor = CorNeutra, .dica = "L: ITEM PARA BAIXO | R: PISTA PARA BAIXO"},
          "MvClipBaixo",
          MvClipBaixo,
          "MvPistaBaixo",
          MvPistaBaixo}},
        {7,
         2,
         {{.icone = "right", .cor = CorDeMover, .dica = "L: COLA ITEM SEGUINTE | SHIFT+L / R: MOVE 20MS DIR"},
          "ColaClipDir",
          ColarOuMover<ColaClipDir, MvClipDir>,
          "MvClipDir",
          Mover20ms<MvClipDir>}},
    };
    DesenharLinha(contexto, y, linha);
}

template <bool esticar>
static void Zoom() {
    ZoomAllFaixas(esticar);
}

void LinhaZoom(ContextoGrade& contexto, int y) {
    static const BotaoDaLinha linha[] = {
        {1,
         2,
         {{.icone = "zoom_in", .cor = CorNeutra, .dica = "L: ZOOM IN HORIZONTAL | R: ZOOM OUT HORIZONTAL"},
          "Action_1012",
          Acao<1012>,
          "Action_1011",
          Acao<1011>,
          true}},
        {3,
         2,
         {{.icone = "zoom_vert", .cor = CorNeutra, .dica = "L: ZOOM IN VERTICAL | R: ZOOM OUT VERTICAL"},
          "Action_40111",
          Acao<40111>,
          "Action_40112",
          Acao<40112>,
          true}},
        {5, 2, {{.icone = "zoom_sel", .cor = {45, 80, 115}, .dica = "ZOOM NA SELECAO"}, "VerSelecao", VerSelecao}},
        {7,
         2,
         {{.icone = "zoom_all", .cor = CorNeutra, .dica = "E: ESTICAR | R: AJUSTA ALTURA"},
          "ZoomAllFaixas(esticar)",
          Zoom<true>,
          "ZoomAllFaixas(so_altura)",
          Zoom<false>}},
    };
    DesenharLinha(contexto, y, linha);
}
