#include "panel/main_page.h"

#include "panel/pass.h"
#include "panel/rows.h"
#include "panel/status.h"
#include "slicer/page.h"
#include "slicer/preview.h"

// Top to bottom; a row's buttons run their commands in its place of the pass.
static const struct {
    int y;
    void (*linha)(ContextoGrade&, int y);
} Linhas[] = {
    {26, LinhaGravar},  {62, LinhaTocar},    {98, LinhaParar},    {134, LinhaNavegacao}, {179, LinhaRegioes},
    {224, LinhaEdicao}, {269, LinhaLacunas}, {314, LinhaSelecao}, {359, LinhaItens},     {399, LinhaMover},
    {444, LinhaZoom},   {489, LinhaBounce},  {530, LinhaRender},  {575, LinhaCores1},    {615, LinhaCores2},
};

void PaginaPrincipal(HWND janela, HDC dc) {
    if (ModoFatiadorAtivo) return PaginaFatiador(janela, dc);
    ContextoGrade contexto = {ComecarPasse(janela), Mouse};
    for (const auto& [y, linha] : Linhas) linha(contexto, y);
    // The strip comes last: a message written in this pass is already in it, unless the pointer rests on a button.
    RECT cliente = {};
    GetClientRect(janela, &cliente);
    const char* texto = contexto.dica ? contexto.dica : *StatusMsg ? StatusMsg : nullptr;
    BarraStatus(contexto.bm, 8, 3, cliente.right - 16, texto);
    TerminarPasse(dc);
}
