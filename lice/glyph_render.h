// lice/glyph_render.h
// Has GDI draw a character white on black, crops its coverage, shapes it by the font's flags and keeps it.
#pragma once
#include "lice/glyph_cache.h"
#include "lice/text_reader.h"
#include "lice/text_style.h"

// A character that cannot be rendered takes no room. Null `font`: what is selected is drawn with.
void RenderGlyph(GlyphCache& glyphs, const TextStyle& style, HFONT font, unsigned code);

// All characters of a text that are not rendered yet.
void RenderMissing(GlyphCache& glyphs, const TextStyle& style, HFONT font, TextReader text, UINT format);
