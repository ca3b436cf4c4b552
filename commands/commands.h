// commands/commands.h
// The edit commands behind the panel's buttons. Each is a plain function that reads the open project from the host,
// changes it and returns, with no result: what it refuses it says in a message box, or passes over in silence. A
// command that opens an undo block closes it on every path; those marked "no undo" open none.
#pragma once

// Each command without arguments once; from this list come the declarations, the panel's clicks with their status
// texts, and what the tests of all commands run.
// clang-format off
#define COMANDOS_DE_EDICAO(C) \
    /* Transport (transport.cpp), no undo */ \
    C(ExecutarGravacao)            /* record on the armed tracks, else on the selected ones; stops a recording */ \
    C(PararTudo)                   /* clear the selections, stop, disarm */ \
    C(PrevItemStart)               /* cursor to the nearest item start before it, or to 0 */ \
    C(NextItemEnd)                 /* cursor to the nearest item end behind it; stays when there is none */ \
    /* Regions (regions.cpp) */ \
    C(CriarOuRenomearRegiao) \
    C(SelTempoERegiao) \
    C(DeletarRegiaoSobCursor) \
    C(LimparRegioes) \
    /* Trim, cut, split, ripple delete (trim.cpp) */ \
    C(TrimEsquerda) \
    C(TrimDireita) \
    C(CortarE) \
    C(CortarD) \
    C(SplitNoCursor)               /* no undo */ \
    C(ExcluirRipple) \
    /* Gaps (gaps.cpp) */ \
    C(FechaLacuna) \
    C(FechaLacunaSubsequente) \
    C(JuntaClipCrossfade)          /* no undo */ \
    /* Selection (selection.cpp) */ \
    C(SelecionarTodosProjeto) \
    C(SelecionarTodosFaixa) \
    C(SelecionarAntesCursor) \
    C(SelecionarDepoisCursor) \
    C(SelecionarAntesCursorFaixa) \
    C(SelecionarDepoisCursorFaixa) \
    C(SelecaoFluxo) \
    C(SelTempoItens)               /* no undo */ \
    /* Moves (moves.cpp) */ \
    C(MvClipCima) \
    C(MvClipBaixo) \
    C(MvPistaCima) \
    C(MvPistaBaixo) \
    C(MvClipEsq) \
    C(MvClipDir) \
    C(ColaClipEsq) \
    C(ColaClipDir) \
    /* Mute, colour, envelope (properties.cpp) */ \
    C(MuteClip) \
    C(LimparCorItens)              /* no undo */ \
    C(LimparCorFaixas)             /* no undo */ \
    C(VolEnvelope) \
    /* View (view.cpp) */ \
    C(VerSelecao)
// clang-format on

#define DECLARAR(comando) void comando();
COMANDOS_DE_EDICAO(DECLARAR)
#undef DECLARAR

// Those with arguments; no undo.
void PlayRegiao(int n);  // the n-th by time, from 1
void AplicarCorItens(int r, int g, int b);
void AplicarCorFaixas(int r, int g, int b);
void ZoomAllFaixas(bool esticar);  // all tracks to one height; esticar: all items in view, too

// What buttons show.
bool GravacaoEmCurso();   // the transport records
bool BotaoGravarAtivo();  // the record action is on
bool TocandoSemGravar();
bool TodosItensMudos();  // some item is selected and each selected one is muted
