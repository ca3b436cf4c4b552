// The project's times, settings by name, and what the host tells of itself: paths, colours, living pointers.
#include <algorithm>
#include <cstring>

#include "simhost/calls.h"

namespace simhost {

double api::GetCursorPosition() { return Host::Current().project.cursor; }

void api::SetEditCurPos(double seconds, bool, bool seekPlay) {
    Host& host = Host::Current();
    host.project.cursor = std::max(0.0, seconds);
    if (seekPlay && host.transport.state & Transport::Playing) host.transport.position = host.project.cursor;
}

static void GetSetRange(bool set, TimeRange& range, double* start, double* end) {
    if (!start || !end) return Host::Current().Violate("start and end must not be null");
    if (set)
        range = {*start, *end};
    else
        *start = range.start, *end = range.end;
}

void api::GetSet_ArrangeView2(ReaProject* project, bool set, int, int, double* start, double* end) {
    if (Host* host = Host::Know(project)) GetSetRange(set, host->project.view, start, end);
}

// Setting the loop sets the time selection with it; setting the time selection leaves the loop alone.
void api::GetSet_LoopTimeRange(bool set, bool loop, double* start, double* end, bool) {
    Project& project = Host::Current().project;
    GetSetRange(set, loop ? project.loop : project.timeSelection, start, end);
    if (set && loop) project.timeSelection = project.loop;
}

static constexpr char ResampleSetting[] = "projrenderresample";

double api::GetSetProjectInfo(ReaProject* project, const char* key, double value, bool set) {
    Host& host = Host::Current();
    if (!host.Know(project)) return 0.0;
    const auto found = host.project.numbers.find(key ? key : "");
    if (found == host.project.numbers.end()) {
        host.Violate(std::string("unknown setting \"") + (key ? key : "") + '"');
        return 0.0;
    }
    // Two names for one setting: as a number here, and as a place in memory through projectconfig_var_addr.
    std::vector<char>& resample = host.settings.project[ResampleSetting];
    if (found->first == "RENDER_RESAMPLEMODE" && resample.size() == sizeof(int)) {
        int mode = value >= -2147483648.0 && value <= 2147483647.0 ? static_cast<int>(value) : 0;
        if (set) std::memcpy(resample.data(), &mode, sizeof mode);
        std::memcpy(&mode, resample.data(), sizeof mode);
        return mode;
    }
    if (set) found->second = value;
    return found->second;
}

// A caller that reads is taken to have room for 512 bytes.
bool api::GetSetProjectInfo_String(ReaProject* project, const char* key, char* value, bool set) {
    Host& host = Host::Current();
    if (!host.Know(project)) return false;
    const auto found = host.project.texts.find(key ? key : "");
    if (found == host.project.texts.end() || !value) {
        host.Violate(std::string("unknown setting, or no text, for \"") + (key ? key : "") + '"');
        return false;
    }
    if (set)
        found->second = value;
    else
        value[found->second.copy(value, 511)] = 0;
    return true;
}

ReaProject* api::EnumProjects(int index, char* path, int pathSize) {
    Host& host = Host::Current();
    if (index != -1 && index != 0) return nullptr;
    if (path && pathSize > 0) path[host.project.path.copy(path, pathSize - 1)] = 0;
    return host.Handle();
}

void* api::get_config_var(const char* name, int* size) {
    auto& settings = Host::Current().settings.host;
    const auto found = settings.find(name ? name : "");
    const bool known = found != settings.end();
    if (size) *size = known ? static_cast<int>(found->second.size()) : 0;
    return known ? found->second.data() : nullptr;
}

int Settings::Number(const std::string& name) const {
    const auto found = host.find(name);
    int value = 0;
    if (found != host.end() && found->second.size() == sizeof value)
        std::memcpy(&value, found->second.data(), sizeof value);
    return value;
}

void Settings::SetNumber(const std::string& name, int value) {
    std::vector<char>& bytes = host[name];
    bytes.resize(sizeof value);
    std::memcpy(bytes.data(), &value, sizeof value);
}

// An offset is the setting's place in the list, times 16, behind a head of 64 bytes.
static constexpr int FirstOffset = 64, OffsetStep = 16;

void* api::projectconfig_var_addr(ReaProject* project, int offset) {
    Host& host = Host::Current();
    if (!host.Know(project)) return nullptr;
    int at = FirstOffset;
    for (auto& [name, bytes] : host.settings.project) {
        if (at == offset) return bytes.data();
        at += OffsetStep;
    }
    host.Violate("no setting lies at offset " + std::to_string(offset));
    return nullptr;
}

int api::projectconfig_var_getoffs(const char* name, int* size) {
    int at = FirstOffset;
    for (const auto& [known, bytes] : Host::Current().settings.project) {
        if (name && known == name) {
            if (size) *size = static_cast<int>(bytes.size());
            return at;
        }
        at += OffsetStep;
    }
    if (size) *size = 0;
    return 0;
}

int api::ColorToNative(int red, int green, int blue) { return (red & 255) | (green & 255) << 8 | (blue & 255) << 16; }

HWND api::GetMainHwnd() { return Host::Current().mainWindow; }

const char* api::GetOS() { return "Win64"; }

const char* api::GetResourcePath() { return Host::Current().resourcePath.c_str(); }

bool api::ValidatePtr(void* pointer, const char* typeName) {
    static const struct {
        const char* name;
        Kind kind;
    } types[] = {{"ReaProject*", Kind::Project},
                 {"MediaTrack*", Kind::Track},
                 {"MediaItem*", Kind::Item},
                 {"MediaItem_Take*", Kind::Take},
                 {"PCM_source*", Kind::Source}};
    for (const auto& type : types)
        if (typeName && !std::strcmp(type.name, typeName)) return OwnerOf(pointer, type.kind, nullptr);
    Host::Current().Violate(std::string("unknown type \"") + (typeName ? typeName : "") + '"');
    return false;
}

}  // namespace simhost
