// panel/icons.h
// The panel's icons: drawn, not stored, at any size.
#pragma once
#include "lice/lice.h"

// Draws the named icon into the square of side s at x, y; a name that is not known draws nothing. Names: play, pause,
// stop, rec, circle, up, down, left, right, start, end, zoom_in, zoom_out, zoom_sel, zoom_all, zoom_vert.
void DesenhaIcone(LICE_IBitmap* bm, int x, int y, float s, const char* nome, LICE_pixel cor, float alfa);
