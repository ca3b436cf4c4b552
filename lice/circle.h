// lice/circle.h
// Circles, arcs and rounded rectangles. The centre of a pixel is its whole coordinate, a circle's own centre is rounded
// to it, and r 0 is one pixel. Without a radius, position or angle that is a finite number nothing is drawn.
#pragma once
#include "lice/bitmap.h"

// One pixel wide. Where SmallCircleMask holds a mask for exactly this radius, it is that mask.
void LICE_Circle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode, bool aa);
void LICE_FillCircle(LICE_IBitmap* dest, float cx, float cy, float r, LICE_pixel color, float alpha, int mode, bool aa);

// Angles in radians from the top, clockwise, in either order. In each quadrant it reaches, the circle is cut by the box
// around the arc's two ends there, so that an arc that ends inside a quadrant shows whatever of the circle lies in the
// box: whole quadrants are what it draws well.
void LICE_Arc(LICE_IBitmap* dest, float cx, float cy, float r, float lowAngle, float highAngle, LICE_pixel color,
              float alpha, int mode, bool aa);

// An outline from x to x + w and from y to y + h, both included: pass a width in pixels less 1. Rounded to whole
// pixels. The radius is cut to what fits; below 2 the corners are square.
void LICE_RoundRect(LICE_IBitmap* dest, float x, float y, float w, float h, int cornerRadius, LICE_pixel color,
                    float alpha, int mode, bool aa);
