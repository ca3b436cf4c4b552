// simhost/accessor.h
// What a take played when the accessor was made. Reading after the take has gone is a violation.
#pragma once
#include "simhost/project.h"

namespace simhost {

struct Accessor {
    Playback playback;
    const void* takeHandle;
    double length;  // of the item
    Identity identity;
};

}  // namespace simhost
