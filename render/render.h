// render/render.h
// Printing audio: the commands that glue the selected items into one rendered take, render the project, and export it
// to the desktop. None opens an undo block: the host's actions record what they do.
#pragma once

// Each command once, as in commands/commands.h.
// clang-format off
#define COMANDOS_DE_RENDER(C) \
    C(StereoRender) \
    C(MonoRender) \
    C(BounceInteligente)  /* mono or stereo, by the channels of the first selected item's source */ \
    C(RenderProjeto)      /* most recent settings; over the regions, else the time selection, else all items */ \
    C(AbrirDiretorio) \
    C(RenderPreLeigo)     /* into the desktop folder, through a script that the host runs (desktop_export.cpp) */
// clang-format on

#define DECLARAR(comando) void comando();
COMANDOS_DE_RENDER(DECLARAR)
#undef DECLARAR
