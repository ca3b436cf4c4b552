// slicer/titles.h
// The titles of the slicer's undo points, by which the preview mode knows them on the host's history.
#pragma once

inline constexpr char TituloDoPreview[] = "Fatiador Preview";  // every call of Quilmo_AutoSplit leaves one
inline constexpr char TituloDoBounce[] = "Fatiador Bounce Entrada";
