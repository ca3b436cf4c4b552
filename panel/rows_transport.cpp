// panel/rows_transport.cpp: record, play, stop, and the jumps along the project. What the host is doing is asked just
// ahead of the row that shows it.
#include "panel/rows.h"
#include "panel/state.h"

void LinhaGravar(ContextoGrade& contexto) {
    const bool gravando = GravacaoEmCurso();
    BotaoGrade(contexto, 1, 8,
               {.rotulo = gravando ? "GRAVANDO..." : "GRAVAR",
                .icone = "rec",
                .cor = gravando && PiscaLigado ? CorBase{160, 35, 35} : CorBase{95, 38, 38},
                .dica = "GRAVAR NA FAIXA SELECIONADA"},
               clique::ExecutarGravacao);
}

// A recording is not paused from here; the status says "Play/Pause" all the same.
static void TocarOuPausar() {
    if (!BotaoGravarAtivo()) ExecutarAcao(acao::TocarOuPausar);
}

void LinhaTocar(ContextoGrade& contexto) {
    const bool tocando = TocandoSemGravar();
    BotaoGrade(contexto, 1, 8,
               {.rotulo = tocando ? "PLAYING" : "PLAY / PAUSE",
                .icone = tocando ? "pause" : "play",
                .cor = tocando ? CorBase{38, 98, 62} : CorBase{50, 90, 130},
                .dica = "E: PLAY/PAUSE | D: PLAY/STOP"},
               {"Play/Pause", TocarOuPausar}, {"Play/Stop", Acao<acao::TocarOuParar>});
}

void LinhaParar(ContextoGrade& contexto) {
    BotaoGrade(contexto, 1, 8,
               {.rotulo = "PARAR", .icone = "stop", .cor = {85, 35, 45}, .dica = "PARAR + DESARMAR + LIMPAR"},
               clique::PararTudo);
}

void LinhaNavegacao(ContextoGrade& contexto) {
    constexpr CorBase cor = {36, 44, 54};
    BotaoGrade(contexto, 1, 2, {.icone = "start", .cor = cor, .dica = "INICIO DO PROJETO"},
               AcaoDoHost<acao::IrAoInicio>);
    BotaoGrade(contexto, 3, 2, {.icone = "left", .cor = cor, .dica = "INICIO DO ITEM FAIXA SEL."},
               clique::PrevItemStart);
    BotaoGrade(contexto, 5, 2, {.icone = "right", .cor = cor, .dica = "FIM DO ITEM FAIXA SEL."}, clique::NextItemEnd);
    BotaoGrade(contexto, 7, 2, {.icone = "end", .cor = cor, .dica = "FIM DO PROJETO"}, AcaoDoHost<acao::IrAoFim>);
}
