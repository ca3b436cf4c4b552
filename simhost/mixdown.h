// simhost/mixdown.h
// Tracks and items turned into one stream of sound, a block at a time. Every item starts on the frame nearest to its
// position, so that one that plays at its source's own rate is heard sample for sample, never between two of them.
#pragma once
#include <functional>
#include <vector>

#include "simhost/project.h"

namespace simhost {

struct MixRange {
    int rate, channels;
    double start, end;  // project time in seconds

    int64_t Frames() const;  // the nearest to (end - start) * rate; 0 where they cannot be counted
};

// Takes the next frames of the mix; false stops it.
using MixSink = std::function<bool(const double* interleaved, int frames)>;

// The sum of the items, as MixItem plays each: take, offsets, rates, volumes, mutes and fades. False: the sink stopped
// it.
bool MixItems(const std::vector<const Item*>& items, const MixRange& range, const MixSink& sink);

// The sum of all tracks with their volumes; muted tracks are left out, and all but the soloed ones where there are any.
bool MixProject(const Project& project, const MixRange& range, const MixSink& sink);

}  // namespace simhost
