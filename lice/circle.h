// lice/circle.h
// Circles and arcs. A pixel's centre is its whole coordinate; a circle's centre is rounded to one, and r 0 is one
// pixel. A radius, position or angle that is not finite draws nothing.
#pragma once
#include "lice/bitmap.h"

// One pixel wide. A radius for which SmallCircleMask holds a mask draws that mask.
void LICE_Circle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode, bool aa);
void LICE_FillCircle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode, bool aa);

// Angles are radians from the top, clockwise, in either order. Only whole quadrants are exact: in each quadrant the arc
// shows all of the circle that lies in the box around its two ends there.
void LICE_Arc(LICE_IBitmap* dest, float cx, float cy, float r, float lowAngle, float highAngle, LICE_pixel color,
              float alpha, int mode, bool aa);
