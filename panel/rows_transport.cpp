// panel/rows_transport.cpp: record, play, stop, and the jumps along the project. What the host is doing is asked just
// ahead of the row that shows it.
#include "commands/commands.h"
#include "commands/items.h"
#include "panel/rows.h"
#include "panel/state.h"

// A row that is one button.
static void BotaoLargo(ContextoGrade& contexto, int y, const BotaoDePagina& botao) {
    BotaoGrade(contexto, 1, 8, AlturaBaixa, y, botao);
}

void LinhaGravar(ContextoGrade& contexto, int y) {
    const bool gravando = GravacaoEmCurso();
    BotaoLargo(contexto, y,
               {{.rotulo = gravando ? "GRAVANDO..." : "GRAVAR",
                 .icone = "rec",
                 .cor = gravando && PiscaLigado ? CorBase{160, 35, 35} : CorBase{95, 38, 38},
                 .dica = "GRAVAR NA FAIXA SELECIONADA"},
                "ExecutarGravacao",
                ExecutarGravacao});
}

// A recording is not paused from here; the status says "Play/Pause" all the same.
static void TocarOuPausar() {
    if (!BotaoGravarAtivo()) ExecutarAcao(40073);
}

void LinhaTocar(ContextoGrade& contexto, int y) {
    const bool tocando = TocandoSemGravar();
    BotaoLargo(contexto, y,
               {{.rotulo = tocando ? "PLAYING" : "PLAY / PAUSE",
                 .icone = tocando ? "pause" : "play",
                 .cor = tocando ? CorBase{38, 98, 62} : CorBase{50, 90, 130},
                 .dica = "E: PLAY/PAUSE | D: PLAY/STOP"},
                "Play/Pause",
                TocarOuPausar,
                "Play/Stop",
                Acao<40044>});
}

void LinhaParar(ContextoGrade& contexto, int y) {
    BotaoLargo(contexto, y,
               {{.rotulo = "PARAR", .icone = "stop", .cor = {85, 35, 45}, .dica = "PARAR + DESARMAR + LIMPAR"},
                "PararTudo",
                PararTudo});
}

void LinhaNavegacao(ContextoGrade& contexto, int y) {
    constexpr CorBase cor = {36, 44, 54};
    static const BotaoDaLinha linha[] = {
        {1, 2, {{.icone = "start", .cor = cor, .dica = "INICIO DO PROJETO"}, "Action_40042", Acao<40042>}},
        {3, 2, {{.icone = "left", .cor = cor, .dica = "INICIO DO ITEM FAIXA SEL."}, "PrevItemStart", PrevItemStart}},
        {5, 2, {{.icone = "right", .cor = cor, .dica = "FIM DO ITEM FAIXA SEL."}, "NextItemEnd", NextItemEnd}},
        {7, 2, {{.icone = "end", .cor = cor, .dica = "FIM DO PROJETO"}, "Action_40043", Acao<40043>}},
    };
    DesenharLinha(contexto, y, linha);
}
