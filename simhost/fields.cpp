// What can be read and written by key on items, takes and tracks. A key that the stand-in does not know is a violation:
// the real host would give 0 in silence.
#include <cmath>
#include <string_view>

#include "simhost/calls.h"

namespace simhost {

template <class Thing>
struct Field {
    std::string_view key;  // its first letter tells what it holds
    double Thing::*value;
};

static const Field<Item> ItemFields[] = {
    {"D_POSITION", &Item::position},   {"D_LENGTH", &Item::length},           {"D_FADEINLEN_AUTO", &Item::fadeIn},
    {"D_FADEINDIR", &Item::fadeInDir}, {"D_FADEOUTLEN_AUTO", &Item::fadeOut}, {"D_FADEOUTDIR", &Item::fadeOutDir},
    {"B_MUTE", &Item::mute},           {"I_CUSTOMCOLOR", &Item::colour},
};

static const Field<Take> TakeFields[] = {
    {"D_STARTOFFS", &Take::startOffset},
    {"D_PLAYRATE", &Take::playRate},
};

static const Field<Track> TrackFields[] = {
    {"I_RECARM", &Track::armed},
    {"I_FXEN", &Track::fxEnabled},
    {"I_CUSTOMCOLOR", &Track::colour},
    {"I_HEIGHTOVERRIDE", &Track::height},
};

// B: a flag, I: a whole number, D: any.
static double Formed(char letter, double value) {
    if (letter == 'B') return value != 0;
    if (letter == 'I') return value >= -2147483648.0 && value <= 2147483647.0 ? std::trunc(value) : 0.0;
    return value;
}

static std::string_view Text(const char* key) { return key ? key : ""; }

// Null, with a violation, when there is no such key.
template <class Thing, size_t n>
static const Field<Thing>* Find(const Field<Thing> (&fields)[n], const char* key) {
    for (const Field<Thing>& field : fields)
        if (field.key == Text(key)) return &field;
    Host::Current().Violate("unknown key \"" + std::string(Text(key)) + '"');
    return nullptr;
}

template <class Thing, size_t n>
static double Get(const Thing* thing, const Field<Thing> (&fields)[n], const char* key) {
    const Field<Thing>* field = thing ? Find(fields, key) : nullptr;
    return field ? thing->*field->value : 0.0;
}

template <class Thing, size_t n>
static bool Set(Thing* thing, const Field<Thing> (&fields)[n], const char* key, double value) {
    const Field<Thing>* field = thing ? Find(fields, key) : nullptr;
    if (field) thing->*field->value = Formed(field->key[0], value);
    return field;
}

double api::GetMediaItemInfo_Value(MediaItem* item, const char* key) { return Get(Host::Know(item), ItemFields, key); }
bool api::SetMediaItemInfo_Value(MediaItem* item, const char* key, double value) {
    if (Text(key) == "D_POSITION") return SetMediaItemPosition(item, value, false);
    return Set(Host::Know(item), ItemFields, key, value);
}
double api::GetMediaItemTakeInfo_Value(MediaItem_Take* take, const char* key) {
    return Get(Host::Know(take), TakeFields, key);
}
bool api::SetMediaItemTakeInfo_Value(MediaItem_Take* take, const char* key, double value) {
    return Set(Host::Know(take), TakeFields, key, value);
}
double api::GetMediaTrackInfo_Value(MediaTrack* handle, const char* key) {
    const Track* track = Host::Know(handle);
    if (track && Text(key) == "I_SELECTED") return track->selected;
    if (track && Text(key) == "IP_TRACKNUMBER") return track->index + 1;
    return Get(track, TrackFields, key);
}
bool api::SetMediaTrackInfo_Value(MediaTrack* track, const char* key, double value) {
    return Set(Host::Know(track), TrackFields, key, value);
}

}  // namespace simhost
