// Markers and regions, enumerated together by position.
#include <algorithm>

#include "simhost/calls.h"

namespace simhost {

int api::AddProjectMarker2(ReaProject* project, bool isRegion, double start, double end, const char* name,
                           int wantedNumber, int colour) {
    Host* host = Host::Know(project);
    return host ? AddMarker(host->project, {isRegion, start, end, name ? name : "", 0, colour}, wantedNumber) : -1;
}

int api::CountProjectMarkers(ReaProject* project, int* markers, int* regions) {
    Host& host = Host::Current();
    if (!host.Know(project)) return 0;
    const std::vector<Marker>& all = host.project.markers;
    const auto regionCount = std::count_if(all.begin(), all.end(), [](const Marker& m) { return m.isRegion; });
    if (regions) *regions = static_cast<int>(regionCount);
    if (markers) *markers = static_cast<int>(all.size() - regionCount);
    return static_cast<int>(all.size());
}

bool api::DeleteProjectMarker(ReaProject* project, int number, bool isRegion) {
    Host& host = Host::Current();
    if (!host.Know(project)) return false;
    const Marker* marker = FindMarker(host.project, number, isRegion);
    if (marker) host.project.markers.erase(host.project.markers.begin() + (marker - host.project.markers.data()));
    return marker;
}

int api::EnumProjectMarkers(int index, bool* isRegion, double* start, double* end, const char** name, int* number) {
    return EnumProjectMarkers3(nullptr, index, isRegion, start, end, name, number, nullptr);
}

int api::EnumProjectMarkers3(ReaProject* project, int index, bool* isRegion, double* start, double* end,
                             const char** name, int* number, int* colour) {
    Host& host = Host::Current();
    if (!host.Know(project) || index < 0 || static_cast<size_t>(index) >= host.project.markers.size()) return 0;
    const Marker& marker = host.project.markers[index];
    if (isRegion) *isRegion = marker.isRegion;
    if (start) *start = marker.start;
    if (end) *end = marker.end;
    if (name) *name = marker.name.c_str();  // good until the markers change
    if (number) *number = marker.number;
    if (colour) *colour = marker.colour;
    return index + 1;
}

// Of regions that overlap, the one that starts last; a region's end is no longer in it.
void api::GetLastMarkerAndCurRegion(ReaProject* project, double time, int* markerIndex, int* regionIndex) {
    Host& host = Host::Current();
    int lastMarker = -1, region = -1;
    const std::vector<Marker>& all = host.project.markers;
    for (size_t i = 0; host.Know(project) && i < all.size() && all[i].start <= time; ++i) {
        if (!all[i].isRegion)
            lastMarker = static_cast<int>(i);
        else if (time < all[i].end)
            region = static_cast<int>(i);
    }
    if (markerIndex) *markerIndex = lastMarker;
    if (regionIndex) *regionIndex = region;
}

bool api::SetProjectMarker3(ReaProject* project, int number, bool isRegion, double start, double end, const char* name,
                            int colour) {
    Host& host = Host::Current();
    Marker* marker = host.Know(project) ? FindMarker(host.project, number, isRegion) : nullptr;
    if (!marker) return false;
    marker->start = start;
    marker->end = isRegion ? end : start;
    if (name && *name) marker->name = name;  // an empty name does not clear one
    if (colour) marker->colour = colour;
    SortMarkers(host.project);
    return true;
}

}  // namespace simhost
