#include "panel/host_options.h"

#include "host/editing.h"

void PrepararHost() {
    ExecutarAcao(acao::DesligarSnap);  // no snapping
    if (host::GetToggleCommandState(acao::AlternarLinhasDeGrade) == 1)
        ExecutarAcao(acao::AlternarLinhasDeGrade);  // no grid lines
    if (host::GetToggleCommandState(acao::Opcao1161) == 1) ExecutarAcao(acao::DesligarOpcao1161);
    if (!host::get_config_var) return;
    int tamanho = 0;
    void* perguntaAoFim = host::get_config_var("promptendrec", &tamanho);  // the question after each recording
    if (perguntaAoFim && tamanho == 4) *static_cast<int*>(perguntaAoFim) = 0;
}
