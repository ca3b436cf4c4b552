// slicer/peak_gate.h
// A peak gate with a hold: frames are cut into windows of one length from the item's first frame; a window sounds when
// any sample of any channel reaches the threshold; sounding windows less than the block apart are one run of sound.
#pragma once
#include <vector>

// Frames of sound: the first, and the one behind the last.
struct TrechoSom {
    int inicio, fim;
};

struct PortaDePico {
    const double limiar;                  // a sample's absolute value; at 0 or below everything sounds, at NaN nothing
    const int canais;                     // interleaved
    const int tamanhoJanela;              // frames, 1 at least; the item's last window may be shorter
    const int blocoMinimo;                // frames of silence that part two runs, 1 at least
    const int totalQuadros;               // of the item
    std::vector<TrechoSom> trechos = {};  // found so far, ascending; the last may still grow
};

// Takes the item's next n frames, the first of which is its frame p. Windows may lie across two calls.
void VarrerQuadros(PortaDePico& porta, const double* amostras, int p, int n);
