// What can be read and written by key on items, takes and tracks. A key that the stand-in does not know is a violation:
// the real host would give 0 in silence.
#include <cmath>
#include <cstring>

#include "simhost/calls.h"

namespace simhost {

enum class Form { Real, Whole, Flag };

template <class Thing>
struct Field {
    const char* key;
    double Thing::*value;
    Form form;
};

static const Field<Item> ItemFields[] = {
    {"D_POSITION", &Item::position, Form::Real},
    {"D_LENGTH", &Item::length, Form::Real},
    {"D_SNAPOFFSET", &Item::snapOffset, Form::Real},
    {"D_VOL", &Item::volume, Form::Real},
    {"D_FADEINLEN", &Item::fadeIn, Form::Real},
    {"D_FADEOUTLEN", &Item::fadeOut, Form::Real},
    {"D_FADEINLEN_AUTO", &Item::autoFadeIn, Form::Real},
    {"D_FADEOUTLEN_AUTO", &Item::autoFadeOut, Form::Real},
    {"D_FADEINDIR", &Item::fadeInDir, Form::Real},
    {"D_FADEOUTDIR", &Item::fadeOutDir, Form::Real},
    {"C_FADEINSHAPE", &Item::fadeInShape, Form::Whole},
    {"C_FADEOUTSHAPE", &Item::fadeOutShape, Form::Whole},
    {"B_MUTE", &Item::mute, Form::Flag},
    {"B_LOOPSRC", &Item::loopSource, Form::Flag},
    {"B_ALLTAKESPLAY", &Item::allTakesPlay, Form::Flag},
    {"C_LOCK", &Item::lock, Form::Whole},
    {"I_CUSTOMCOLOR", &Item::colour, Form::Whole},
    {"I_GROUPID", &Item::group, Form::Whole},
};

static const Field<Take> TakeFields[] = {
    {"D_STARTOFFS", &Take::startOffset, Form::Real},
    {"D_PLAYRATE", &Take::playRate, Form::Real},
    {"D_VOL", &Take::volume, Form::Real},
    {"D_PAN", &Take::pan, Form::Real},
    {"D_PITCH", &Take::pitch, Form::Real},
    {"B_PPITCH", &Take::preservePitch, Form::Flag},
    {"I_CHANMODE", &Take::channelMode, Form::Whole},
    {"I_CUSTOMCOLOR", &Take::colour, Form::Whole},
};

static const Field<Track> TrackFields[] = {
    {"I_RECARM", &Track::armed, Form::Whole},
    {"I_FXEN", &Track::fxEnabled, Form::Whole},
    {"I_CUSTOMCOLOR", &Track::colour, Form::Whole},
    {"I_HEIGHTOVERRIDE", &Track::height, Form::Whole},
};

// What is not a plain field. Get gives false for a key that is not here; Set likewise, and for one that only reads.
static bool GetSpecial(const Item& item, const char* key, double* value) {
    if (!std::strcmp(key, "B_UISEL"))
        *value = item.selected;
    else if (!std::strcmp(key, "I_CURTAKE"))
        *value = item.activeTake;
    else
        return false;
    return true;
}

static bool SetSpecial(Host& host, Item& item, const char* key, double value) {
    if (!std::strcmp(key, "D_POSITION"))
        host.project.tracks.Reposition(item, value, host.preferences.sortsAtOnce);
    else if (!std::strcmp(key, "B_UISEL"))
        host.project.tracks.Select(item, value != 0);
    else
        return false;
    return true;
}

static bool GetSpecial(const Take& take, const char* key, double* value) {
    if (std::strcmp(key, "IP_TAKENUMBER") != 0) return false;
    for (size_t i = 0; i < take.item->takes.size(); ++i)
        if (&*take.item->takes[i] == &take) *value = static_cast<double>(i);
    return true;
}

static bool SetSpecial(Host&, Take&, const char*, double) {
    return false;
}

static bool GetSpecial(const Track& track, const char* key, double* value) {
    if (!std::strcmp(key, "I_SELECTED"))
        *value = track.selected;
    else if (!std::strcmp(key, "IP_TRACKNUMBER"))
        *value = track.index + 1;
    else
        return false;
    return true;
}

static bool SetSpecial(Host&, Track& track, const char* key, double value) {
    if (std::strcmp(key, "I_SELECTED") != 0) return false;
    track.selected = value != 0;
    return true;
}

static double Formed(Form form, double value) {
    if (form == Form::Flag) return value != 0;
    if (form == Form::Whole) return value >= -2147483648.0 && value <= 2147483647.0 ? std::trunc(value) : 0.0;
    return value;
}

template <class Thing, size_t n>
static const Field<Thing>* Find(const Field<Thing> (&fields)[n], const char* key) {
    for (const Field<Thing>& field : fields)
        if (!std::strcmp(field.key, key)) return &field;
    return nullptr;
}

template <class Thing, size_t n>
static double GetField(Thing* thing, const Field<Thing> (&fields)[n], const char* key) {
    if (!thing) return 0.0;
    if (!key) key = "";
    if (const Field<Thing>* field = Find(fields, key)) return thing->*field->value;
    double value = 0.0;
    if (!GetSpecial(*thing, key, &value)) Host::Current().Violate(std::string("unknown key \"") + key + '"');
    return value;
}

template <class Thing, size_t n>
static bool SetField(Thing* thing, const Field<Thing> (&fields)[n], const char* key, double value) {
    if (!thing) return false;
    if (!key) key = "";
    Host& host = Host::Current();
    if (SetSpecial(host, *thing, key, value)) return true;
    const Field<Thing>* field = Find(fields, key);
    if (field)
        thing->*field->value = Formed(field->form, value);
    else
        host.Violate(std::string("\"") + key + "\" cannot be set");
    return field;
}

double api::GetMediaItemInfo_Value(MediaItem* item, const char* key) {
    return GetField(Host::Current().Know(item), ItemFields, key);
}
bool api::SetMediaItemInfo_Value(MediaItem* item, const char* key, double value) {
    return SetField(Host::Current().Know(item), ItemFields, key, value);
}
double api::GetMediaItemTakeInfo_Value(MediaItem_Take* take, const char* key) {
    return GetField(Host::Current().Know(take), TakeFields, key);
}
bool api::SetMediaItemTakeInfo_Value(MediaItem_Take* take, const char* key, double value) {
    return SetField(Host::Current().Know(take), TakeFields, key, value);
}
double api::GetMediaTrackInfo_Value(MediaTrack* track, const char* key) {
    return GetField(Host::Current().Know(track), TrackFields, key);
}
bool api::SetMediaTrackInfo_Value(MediaTrack* track, const char* key, double value) {
    return SetField(Host::Current().Know(track), TrackFields, key, value);
}

}  // namespace simhost
