// lice/circle.h
// Circles and arcs. The centre of a pixel is its whole coordinate, a circle's own centre is rounded to it, and r 0 is
// one pixel. Without a radius, position or angle that is a finite number nothing is drawn.
#pragma once
#include "lice/bitmap.h"

// One pixel wide. Where SmallCircleMask holds a mask for exactly this radius, it is that mask.
void LICE_Circle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode, bool aa);
void LICE_FillCircle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode, bool aa);

// Angles in radians from the top, clockwise, in either order. Only whole quadrants are exact: in each quadrant that it
// reaches, an arc shows all of the circle that lies in the box around the arc's two ends there.
void LICE_Arc(LICE_IBitmap* dest, float cx, float cy, float r, float lowAngle, float highAngle, LICE_pixel color,
              float alpha, int mode, bool aa);
