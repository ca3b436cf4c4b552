// simhost/sound.h
// What takes and items sound like. Glue, take renders and the mix-down are all made of MixItem.
#pragma once
#include "simhost/project.h"

namespace simhost {

// Fills frames * channels doubles with the take's samples before volume and fades, from `start` seconds behind its
// item's start, as seen through the take's start offset and play rate. One channel goes to all; otherwise channels that
// the source lacks are zero. When rates agree and the frames lie on the source's own, they come straight from
// Source::Read. Other rates are read by linear interpolation. False: the source cannot be read, or there is none.
bool ReadTake(const Take& take, int rate, int channels, double start, int frames, double* interleaved);

// Adds what the item plays between project time `start` and frames later: the active take with item and take volume
// and fades, nothing outside the item, nothing when muted.
void MixItem(const Item& item, int rate, int channels, double start, int frames, double* mix);

// The sample as a file keeps it: rounded to 24 bits; what is beyond full scale is held there, and what is no number is
// silence.
int To24Bits(double sample);

// The factor of the item's fades `t` seconds behind its start.
double FadeAt(const Item& item, double t);

}  // namespace simhost
