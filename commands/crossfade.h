// commands/crossfade.h
// Short automatic fades at item edges, and the joining of two items with a crossfade of that length.
#pragma once
#include "commands/items.h"

inline constexpr double ComprimentoDoFade = 0.005;  // seconds; also the overlap of a join

void FadeDeEntrada(MediaItem* item);
void FadeDeSaida(MediaItem* item);
// Moves `b` left so that it overlaps the end of `a`, unless it already does, and fades one into the other.
void UnirComCrossfade(MediaItem* a, MediaItem* b);
