// commands/commands.h
// The edit commands behind the panel's buttons. Each is a plain function that reads the open project from the host,
// changes it and returns, with no result: what it refuses it says in a message box, or passes over in silence. A
// command that opens an undo block closes it on every path; those marked "no undo" open none.
#pragma once

// Transport (transport.cpp), no undo.
void ExecutarGravacao();  // record on the armed tracks, else on the selected ones; while recording: stop and disarm
void PararTudo();         // clear the selections, stop, disarm
void PrevItemStart();     // cursor to the nearest item start before it, or to 0
void NextItemEnd();       // cursor to the nearest item end behind it; stays when there is none
bool GravacaoEmCurso();   // the transport records
bool BotaoGravarAtivo();  // the record action is on
bool TocandoSemGravar();

// Regions (regions.cpp).
void PlayRegiao(int n);  // the n-th by time, from 1; no undo
void CriarOuRenomearRegiao();
void SelTempoERegiao();
void DeletarRegiaoSobCursor();
void LimparRegioes();

// Trim, cut, split, ripple delete (trim.cpp).
void TrimEsquerda();
void TrimDireita();
void CortarE();
void CortarD();
void SplitNoCursor();  // no undo
void ExcluirRipple();

// Gaps (gaps.cpp).
void FechaLacuna();
void FechaLacunaSubsequente();
void JuntaClipCrossfade();  // no undo

// Selection (selection.cpp).
void SelecionarTodosProjeto();
void SelecionarTodosFaixa();
void SelecionarAntesCursor();
void SelecionarDepoisCursor();
void SelecionarAntesCursorFaixa();
void SelecionarDepoisCursorFaixa();
void SelecaoFluxo();
void SelTempoItens();  // no undo

// Moves (moves.cpp).
void MvClipCima();
void MvClipBaixo();
void MvPistaCima();
void MvPistaBaixo();
void MvClipEsq();
void MvClipDir();
void ColaClipEsq();
void ColaClipDir();

// Mute, colour, envelope (properties.cpp).
void MuteClip();
bool TodosItensMudos();                     // some item is selected and each selected one is muted
void AplicarCorItens(int r, int g, int b);  // no undo, as the three below
void AplicarCorFaixas(int r, int g, int b);
void LimparCorItens();
void LimparCorFaixas();
void VolEnvelope();

// View (view.cpp).
void VerSelecao();
void ZoomAllFaixas(bool esticar);  // all tracks to one height; esticar: all items in view, too; no undo
