// slicer/bounce.h
// The entry bounce: each selected item becomes a freshly glued one that sounds and sits as before, but whose source
// goes on behind both edges, so that the pieces cut from it can be dragged open.
#pragma once

extern bool BounceEntradaAtivo;  // the bounce's undo point is on the history

// At most so many seconds behind each edge. True if the glue was run; false leaves the project untouched.
bool BounceEntrada(double alcaSegundos);
