#include "panel/main_page.h"

#include "panel/pass.h"
#include "panel/rows.h"
#include "panel/slicer_page.h"
#include "panel/status.h"
#include "slicer/preview.h"

// Top to bottom; a row's buttons run their commands in its place of the pass.
static const struct {
    int y, h;
    void (*desenhar)(ContextoGrade&);
} Linhas[] = {
    {26, 32, LinhaGravar},   {62, 32, LinhaTocar},   {98, 32, LinhaParar},    {134, 36, LinhaNavegacao},
    {179, 36, LinhaRegioes}, {224, 36, LinhaEdicao}, {269, 36, LinhaLacunas}, {314, 36, LinhaSelecao},
    {359, 36, LinhaItens},   {399, 36, LinhaMover},  {444, 36, LinhaZoom},    {489, 36, LinhaBounce},
    {530, 36, LinhaRender},  {575, 36, LinhaCores1}, {615, 36, LinhaCores2},
};

void PaginaPrincipal(HWND janela, HDC dc) {
    if (ModoFatiadorAtivo) return PaginaFatiador(janela, dc);
    const Passe passe(janela, dc, "principal");
    ContextoGrade contexto = {passe.Fundo(), Mouse};
    for (const auto& [y, h, desenhar] : Linhas) {
        contexto.y = y;
        contexto.h = h;
        desenhar(contexto);
    }
    // The strip comes last: a message written in this pass is already in it, unless the pointer rests on a button.
    RECT cliente = {};
    GetClientRect(janela, &cliente);
    const char* texto = contexto.dica ? contexto.dica : *StatusMsg ? StatusMsg : nullptr;
    BarraStatus(contexto.bm, 8, 3, cliente.right - 16, texto);
}
