// lice/lice.h
// The raster library: surfaces, drawing, text. Drawing routines take a surface (null: nothing is drawn), an `alpha` of
// 0.0 to 1.0, and a mode word, 0 being plain copying. They clip to the surface, whatever their arguments.
// Inside, combine.h holds the arithmetic, and each drawing loop is a template on it. paint.h decides the mode once for
// each call.
#pragma once
#include "lice/bitmap.h"
#include "lice/blit.h"
#include "lice/blur.h"
#include "lice/circle.h"
#include "lice/fill.h"
#include "lice/font.h"
#include "lice/glyph.h"
#include "lice/line.h"
#include "lice/pixel.h"
#include "lice/polygon.h"
#include "lice/round_rect.h"
#include "lice/scaled_blit.h"
