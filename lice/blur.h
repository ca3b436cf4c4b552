// lice/blur.h
// A soft cross of five pixels over a rectangle. dest and src may be the same surface: the pixels read are then the old
// ones, but in the last row, whose neighbour above is already filtered.
#pragma once
#include "lice/bitmap.h"

// Coordinates count pixels as both surfaces' sizes read, whatever their draw scales. Rectangles of fewer than two
// columns or rows are left alone, and so are surfaces that their scale makes smaller.
void LICE_Blur(LICE_IBitmap* dest, LICE_IBitmap* src, int dstx, int dsty, int srcx, int srcy, int srcw, int srch);
