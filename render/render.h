// render/render.h
// Printing audio: the commands that glue the selected items into one rendered take, render the project, and export it
// to the desktop. None opens an undo block: the host's actions record what they do.
#pragma once

void StereoRender();
void MonoRender();
void BounceInteligente();  // mono or stereo, by the channels of the first selected item's source
// With the most recent settings, over the regions, else the time selection, else all items.
void RenderProjeto();
void AbrirDiretorio();
// Exports into the desktop folder through a script that the host runs (desktop_export.cpp).
void RenderPreLeigo();
