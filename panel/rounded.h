// panel/rounded.h
// Rounded rectangles: filled, with anti-aliased corners; as an outline; and both at once.
#pragma once
#include "lice/lice.h"

void PreencheArredondado(LICE_IBitmap* bm, int x, int y, int w, int h, int raio, LICE_pixel cor, float alfa);
void ContornoArredondado(LICE_IBitmap* bm, int x, int y, int w, int h, int raio, LICE_pixel cor, float alfa);
// Opaque, with an outline of that opacity on its edge: the pixels of the two, in one walk over the rows.
void FaceArredondada(LICE_IBitmap* bm, int x, int y, int w, int h, int raio, LICE_pixel cor, LICE_pixel contorno,
                     float alfa);
