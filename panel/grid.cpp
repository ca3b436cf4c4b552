#include "panel/grid.h"

#include "panel/state.h"
#include "panel/status.h"

PosicaoNaGrade PosicaoGrade(int coluna, int vao) {
    constexpr int margem = 8, celula = 35, fresta = 4;
    return {(coluna - 1) * (celula + fresta) + margem, vao * celula + (vao - 1) * fresta};
}

ResultadoBotao BotaoDireto(ContextoGrade& contexto, const Celula& c, const AspectoBotao& aspecto) {
    const ResultadoBotao resultado = Botao(contexto.bm, contexto.mouse, c, aspecto);
    if (resultado.dica) contexto.dica = resultado.dica;
    return resultado;
}

static void Executar(Comando comando, const char* nome) {
    if (!comando) return;
    comando();
    StatusExecutado(nome);
}

void BotaoComComando(ContextoGrade& contexto, const Celula& c, const BotaoDePagina& botao) {
    const ResultadoBotao resultado = BotaoDireto(contexto, c, botao.aspecto);
    if (resultado.cliqueEsquerdo) Executar(botao.comando, botao.nome);
    if (resultado.cliqueDireito) Executar(botao.comandoDireito, botao.nomeDireito ? botao.nomeDireito : botao.nome);
    if (!botao.repete || !resultado.sobre) return;
    if (contexto.mouse.esquerdoSeguro)
        AcaoRepetir = botao.comando;
    else if (contexto.mouse.direitoSeguro)
        AcaoRepetir = botao.comandoDireito;
}

void BotaoGrade(ContextoGrade& contexto, int coluna, int vao, int h, int y, const BotaoDePagina& botao) {
    const auto [x, w] = PosicaoGrade(coluna, vao);
    BotaoComComando(contexto, {x, y, w, h}, botao);
}
