// slicer/analysis.h
// Finds the silence of one item: what a peak gate (peak_gate.h) with windows of 10 ms leaves out. Nothing in the
// project changes here.
#pragma once
#include <vector>

#include "host/api.h"

// A stretch to cut away, in seconds from the item's start.
struct TrechoSilencio {
    double inicio;
    double fim;
};

// The silence of an item with that active take and that length in seconds, ascending. limiarLinear is a sample's
// absolute value. Silence of a millisecond or less does not count. Also empty when nothing sounds: no item is cut
// away whole. So it is for an item that is shorter than 0.05 s or cannot be read.
std::vector<TrechoSilencio> AnalisarItem(MediaItem_Take* take, double comprimento, double limiarLinear,
                                         double blocoSegundos);
