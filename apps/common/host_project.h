// apps/common/host_project.h
// Tracks and their items as the host's project file says them. Times are seconds.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

struct ProjectItem {
    double position, length;
    double offset = 0, rate = 1;  // into the file, and how fast it is played
    double fadeIn = 0, fadeOut = 0;
    std::string name, file;  // the file: absolute, or relative to the project's folder
    bool mute = false, selected = false;
};

struct ProjectTrack {
    std::string name;
    std::vector<ProjectItem> items;
};

// To the nanosecond, without zeros at its end, whatever the locale.
std::string Decimal(double value);

std::string HostProjectText(int rate, int64_t time, const std::vector<ProjectTrack>& tracks);  // time: since 1970
