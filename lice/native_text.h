// lice/native_text.h
// Text drawn by GDI itself: into the surface where it has a context, otherwise on a scratch copy of it.
#pragma once
#include "lice/bitmap.h"
#include "lice/text_reader.h"
#include "lice/text_style.h"

// Whether a text is GDI's: where glyphs would be too tall to keep, or where the font prefers it, `mayPrefer` is true,
// and it looks the same.
bool WantsNativeText(LICE_IBitmap* bitmap, const TextStyle& style, HFONT font, UINT format, bool mayPrefer);

// As DrawText; the result is GDI's.
int DrawNativeText(LICE_IBitmap* bitmap, const TextStyle& style, HFONT font, TextReader text, RECT* rect, UINT format);
