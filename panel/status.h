// panel/status.h
// The strip at the top of the panel: the last thing done, or what the pointer rests on.
// A hint covers the message and leaves it as it was; only another message replaces it.
#pragma once
#include "lice/lice.h"

extern char StatusMsg[160];  // the last message; empty at load, kept while the panel is closed

void DefinirStatus(const char* formato, ...);  // cut to 159 bytes
// "Executado: <nome>". A bare host action, "Action_<number>", clears the message instead.
void StatusExecutado(const char* nome);

// Draws the strip, 22 pixels high; a null or empty text shows the idle one.
void BarraStatus(LICE_IBitmap* bm, int x, int y, int w, const char* texto);
