// slicer/slice.h
// Cuts an item by its silence, and closes up what is left. Neither opens an undo block: the caller does.
#pragma once
#include <vector>

#include "slicer/analysis.h"

// Cuts the spans out of the item. The surviving pieces are selected; the item itself is gone if its start was silent.
void FatiarItem(const ItemLido& lido, const std::vector<TrechoSilencio>& silencio);

// On each track, moves the selected items left until each overlaps the end of the one before it by 5 ms, and gives
// their edges fades of that length. What overlaps more stays where it is. A single selected item is not touched.
void FecharLacunasFatias();
