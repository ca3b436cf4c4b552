// host/actions.h
// The host's numbered actions that the module runs or asks about, once: name and number, in the order of the numbers.
#pragma once

#define ACOES_DO_HOST(A)               \
    A(Tocar, 1007)                     \
    A(AfastarHorizontal, 1011)         \
    A(AproximarHorizontal, 1012)       \
    A(Gravar, 1013)                    \
    A(Parar, 1016)                     \
    A(Opcao1161, 1161)                 \
    A(DesligarOpcao1161, 1162)         \
    A(AbrirConfigRender, 40015)        \
    A(TirarSelecaoDeTempo, 40020)      \
    A(IrAoInicio, 40042)               \
    A(IrAoFim, 40043)                  \
    A(TocarOuParar, 40044)             \
    A(DuplicarFaixas, 40062)           \
    A(TocarOuPausar, 40073)            \
    A(AproximarVertical, 40111)        \
    A(AfastarVertical, 40112)          \
    A(ApagarTakeAtivo, 40129)          \
    A(AlternarLinhasDeGrade, 40145)    \
    A(DesselecionarFaixas, 40297)      \
    A(PararGravacao, 40328)            \
    A(RenderTakeMono, 40361)           \
    A(ColarItens, 40362)               \
    A(AlternarTakesEmPistas, 40435)    \
    A(AlternarEnvelopeDeVolume, 40693) \
    A(RemoverItens, 40697)             \
    A(DesligarSnap, 40753)             \
    A(DuplicarItens, 41295)            \
    A(ApararBordaEsquerda, 41305)      \
    A(ApararBordaDireita, 41311)       \
    A(ColarSelecao, 41588)             \
    A(ZoomNosItens, 41622)             \
    A(RenderizarComUltimas, 41824)     \
    A(RenderTakeStereo, 41993)         \
    A(RenderizarProjeto, 42230)        \
    A(AbrirPastaDoRender, 42411)       \
    A(AlternarMediaExplorer, 50124)

namespace acao {
enum Numero : int {
#define NUMERO(nome, numero) nome = numero,
    ACOES_DO_HOST(NUMERO)
#undef NUMERO
};
}  // namespace acao
