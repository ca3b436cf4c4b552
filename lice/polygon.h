// lice/polygon.h
// Filled shapes with straight edges. No edge is smoothed. Corners may lie anywhere outside the surface.
#pragma once
#include "lice/bitmap.h"

// Fills the convex polygon around 3 points or more, in any order. Points all on one row fill it from the leftmost to
// the rightmost. More than 512 points need the heap; without memory nothing is drawn.
void LICE_FillConvexPolygon(LICE_IBitmap* dest, const int* x, const int* y, int points, LICE_pixel color, float alpha,
                            int mode);
void LICE_FillTriangle(LICE_IBitmap* dest, int x1, int y1, int x2, int y2, int x3, int y3, LICE_pixel color,
                       float alpha, int mode);

// Fills from the top row to the bottom row and from the left to the right edge, all four included. Edges run straight,
// in 1/65536 of a pixel. Rows and edges may be given in either order. Rows count as they lie in memory: this is the one
// routine that does not turn a flipped surface round.
void LICE_FillTrapezoid(LICE_IBitmap* dest, double topLeft, double topRight, int topY, double bottomLeft,
                        double bottomRight, int bottomY, LICE_pixel color, float alpha, int mode);
void LICE_FillTrapezoid(LICE_IBitmap* dest, int topLeft, int topRight, int topY, int bottomLeft, int bottomRight,
                        int bottomY, LICE_pixel color, float alpha, int mode);
