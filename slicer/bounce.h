// slicer/bounce.h
// The entry bounce: each selected item is glued anew. It sounds and sits as before, but its source goes on behind both
// edges: pieces cut from it can be dragged open.
#pragma once

extern bool BounceEntradaAtivo;  // the bounce's undo point is on the history

// At most so many seconds behind each edge. True if the glue was run; false leaves the project untouched.
bool BounceEntrada(double alcaSegundos);
