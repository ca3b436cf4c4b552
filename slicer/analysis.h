// slicer/analysis.h
// Finds the silence of one item: a peak gate with a hold. The item is read in windows of 10 ms; a window sounds when
// any sample of any channel reaches the threshold, and a run of sound ends only when the silent windows behind it add
// up to the block. Nothing in the project changes here.
#pragma once
#include <vector>

#include "host/api.h"

// A stretch to cut away, in seconds from the item's start.
struct TrechoSilencio {
    double inicio;
    double fim;
};

// The silence of an item with that active take and that length in seconds, ascending. Empty when there is nothing to
// cut: no silence of more than a millisecond, no sound at all (an item is never cut away whole), shorter than 0.05 s,
// or not readable. limiarLinear is a sample's absolute value.
std::vector<TrechoSilencio> AnalisarItem(MediaItem_Take* take, double comprimento, double limiarLinear,
                                         double blocoSegundos);
