#include "panel/grid.h"

#include "panel/status.h"

PosicaoNaGrade PosicaoGrade(int coluna, int vao) {
    constexpr int margem = 8, celula = 35, fresta = 4;
    return {(coluna - 1) * (celula + fresta) + margem, vao * celula + (vao - 1) * fresta};
}

Celula CelulaGrade(const ContextoGrade& contexto, int coluna, int vao) {
    const auto [x, w] = PosicaoGrade(coluna, vao);
    return {x, contexto.y, w, contexto.h};
}

ResultadoBotao BotaoDireto(ContextoGrade& contexto, const Celula& c, const AspectoBotao& aspecto) {
    const ResultadoBotao resultado = Botao(contexto.bm, contexto.mouse, c, aspecto);
    if (resultado.dica) contexto.dica = resultado.dica;
    return resultado;
}

void Executar(const Clique& clique) {
    if (!clique.comando) return;
    clique.comando();
    StatusExecutado(clique.nome);
}

ResultadoBotao BotaoComComandos(ContextoGrade& contexto, const Celula& c, const AspectoBotao& aspecto, Clique esquerdo,
                                Clique direito) {
    const ResultadoBotao resultado = BotaoDireto(contexto, c, aspecto);
    if (resultado.cliqueEsquerdo) Executar(esquerdo);
    if (resultado.cliqueDireito) Executar(direito);
    return resultado;
}

ResultadoBotao BotaoGrade(ContextoGrade& contexto, int coluna, int vao, const AspectoBotao& aspecto, Clique esquerdo,
                          Clique direito) {
    return BotaoComComandos(contexto, CelulaGrade(contexto, coluna, vao), aspecto, esquerdo, direito);
}
