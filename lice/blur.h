// lice/blur.h
// A soft cross of five pixels over a rectangle. dest and src may be the same surface: what is read is then what was
// there before, but for the last row, whose neighbour above is already filtered.
#pragma once
#include "lice/bitmap.h"

// Coordinates are pixels of both surfaces as their sizes read, whatever their draw scales. Rectangles of fewer than
// two columns or rows, and surfaces whose scale makes them smaller than they read, are left alone.
void LICE_Blur(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, int srcx, int srcy, int srcw, int srch);
