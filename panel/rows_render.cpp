// panel/rows_render.cpp: bounce and glue; render and export.
#include "panel/rows.h"

void LinhaBounce(ContextoGrade& contexto) {
    constexpr CorBase cor = {40, 62, 75};
    BotaoGrade(contexto, 1, 2, {.rotulo = "BOUNCE", .cor = cor, .dica = "BOUNCE INTELIGENTE"},
               clique::BounceInteligente);
    BotaoGrade(contexto, 3, 2, {.rotulo = "STEM", .cor = cor, .dica = "L: SEL. TRILHA BOUNCE | R: APAGA STEM SEL."},
               AcaoDoHost<acao::AlternarTakesEmPistas>, AcaoDoHost<acao::ApagarTakeAtivo>);
    BotaoGrade(contexto, 5, 2, {.rotulo = "STEREO", .cor = cor, .dica = "GLUE STEREO"}, clique::StereoRender);
    BotaoGrade(contexto, 7, 2, {.rotulo = "MONO", .cor = cor, .dica = "GLUE MONO"}, clique::MonoRender);
}

void LinhaRender(ContextoGrade& contexto) {
    BotaoGrade(contexto, 1, 2, {.rotulo = "RENDER", .cor = {82, 50, 25}, .dica = "RENDERIZA PROJETO"},
               clique::RenderProjeto);
    BotaoGrade(contexto, 3, 2,
               {.rotulo = "DESKTOP", .cor = {35, 70, 42}, .dica = "RENDERIZA PROJ. PARA AREA DE TRABALHO"},
               clique::RenderPreLeigo);
    BotaoGrade(contexto, 5, 2, {.rotulo = "FOLDER", .cor = {40, 52, 70}, .dica = "ABRE ARQUIVO DIRETO NO EXPLORER"},
               clique::AbrirDiretorio);
    BotaoGrade(contexto, 7, 2, {.rotulo = "CONFIG", .cor = {55, 55, 55}, .dica = "ABRE PREFERENCIAS DO RENDER"},
               AcaoDoHost<acao::AbrirConfigRender>);
}
