// panel/rows_render.cpp: bounce and glue; render and export.
#include "commands/items.h"
#include "panel/rows.h"
#include "render/render.h"

void LinhaBounce(ContextoGrade& contexto, int y) {
    constexpr CorBase cor = {40, 62, 75};
    static const BotaoDaLinha linha[] = {
        {1,
         2,
         {{.rotulo = "BOUNCE", .cor = cor, .dica = "BOUNCE INTELIGENTE"}, "BounceInteligente", BounceInteligente}},
        {3,
         2,
         {{.rotulo = "STEM", .cor = cor, .dica = "L: SEL. TRILHA BOUNCE | R: APAGA STEM SEL."},
          "Action_40435",
          Acao<40435>,
          "Action_40129",
          Acao<40129>}},
        {5, 2, {{.rotulo = "STEREO", .cor = cor, .dica = "GLUE STEREO"}, "StereoRender", StereoRender}},
        {7, 2, {{.rotulo = "MONO", .cor = cor, .dica = "GLUE MONO"}, "MonoRender", MonoRender}},
    };
    DesenharLinha(contexto, y, linha);
}

void LinhaRender(ContextoGrade& contexto, int y) {
    static const BotaoDaLinha linha[] = {
        {1,
         2,
         {{.rotulo = "RENDER", .cor = {82, 50, 25}, .dica = "RENDERIZA PROJETO"}, "RenderProjeto", RenderProjeto}},
        {3,
         2,
         {{.rotulo = "DESKTOP", .cor = {35, 70, 42}, .dica = "RENDERIZA PROJ. PARA AREA DE TRABALHO"},
          "RenderPreLeigo",
          RenderPreLeigo}},
        {5,
         2,
         {{.rotulo = "FOLDER", .cor = {40, 52, 70}, .dica = "ABRE ARQUIVO DIRETO NO EXPLORER"},
          "AbrirDiretorio",
          AbrirDiretorio}},
        {7,
         2,
         {{.rotulo = "CONFIG", .cor = {55, 55, 55}, .dica = "ABRE PREFERENCIAS DO RENDER"},
          "Action_40015",
          Acao<40015>}},
    };
    DesenharLinha(contexto, y, linha);
}
