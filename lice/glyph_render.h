// lice/glyph_render.h
// Rendering: GDI draws a character white on black, and its coverage is cropped, shaped by the font's flags and kept.
#pragma once
#include "lice/glyph_cache.h"
#include "lice/text_reader.h"
#include "lice/text_style.h"

// A character that cannot be rendered takes no room. Null `font`: what is selected is drawn with.
void RenderGlyph(GlyphCache& glyphs, const TextStyle& style, HFONT font, unsigned code);

// All characters of a text that are not rendered yet.
void RenderMissing(GlyphCache& glyphs, const TextStyle& style, HFONT font, TextReader text, UINT format);
