// lice/glyph_draw.h
// One rendered glyph onto a surface: bytes of coverage become opacities.
#pragma once
#include "lice/bitmap.h"
#include "lice/glyph_cache.h"
#include "lice/text_style.h"

// The pen is at (x, y), y being the top of the cell. A null clip is the whole surface. False where clip or surface are
// empty.
bool DrawGlyphMask(LICE_IBitmap* bitmap, const GlyphRecord& glyph, const uint8_t* mask, const TextStyle& style, int x,
                   int y, const RECT* clip);
