// lice/native_text.h
// Text drawn by GDI itself, on the surface where it has a context, otherwise on a scratch copy of it.
#pragma once
#include "lice/bitmap.h"
#include "lice/text_reader.h"
#include "lice/text_style.h"

// Whether GDI draws a text: one too tall for cached glyphs, or one whose font prefers it and that looks the same.
// `mayPrefer` is false where the caller forbids the latter.
bool WantsNativeText(LICE_IBitmap* bitmap, const TextStyle& style, HFONT font, UINT format, bool mayPrefer);

// As DrawText; the result is GDI's.
int DrawNativeText(LICE_IBitmap* bitmap, const TextStyle& style, HFONT font, TextReader text, RECT* rect, UINT format);
