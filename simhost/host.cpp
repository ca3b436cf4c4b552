#include "simhost/host.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "host/actions.h"
#include "simhost/accessor.h"
#include "simhost/calls.h"

namespace simhost {

static Host* current = nullptr;

[[noreturn]] static void Abort(const char* sentence) {
    std::fprintf(stderr, "simhost: %s\n", sentence);
    std::abort();
}

static bool Contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

static void* GetFunc(const char* name) {
    Host& host = Host::Current();
    void* function = host.Function(name);
    if (!function) host.unknownNames.push_back(name ? name : "");
    return function;
}

static int Register(const char* name, void* info) {
    return Host::Current().Register(name ? name : "", info);
}

Host::Host() : record_{VersaoDoHost, nullptr, simhost::Register, GetFunc}, counters_(FunctionCount) {
    if (current) Abort("a second host while the first one lives");
    current = this;
    SetConfigInt("promptendrec", 1);
    projectConfigVars["projrenderresample"].resize(sizeof(int));
    for (const int number : {acao::AlternarTakesEmPistas, acao::ZoomNosItens, acao::Opcao1161}) toggles[number] = 0;
    toggles[acao::AlternarLinhasDeGrade] = 1;  // grid lines are shown
    for (const char* key : {"RENDER_SETTINGS", "RENDER_BOUNDSFLAG", "RENDER_CHANNELS", "RENDER_SRATE",
                            "RENDER_STARTPOS", "RENDER_ENDPOS", "RENDER_TAILFLAG", "RENDER_TAILMS", "RENDER_ADDTOPROJ",
                            "RENDER_DITHER", "RENDER_RESAMPLEMODE", "PROJECT_SRATE"})
        project.numbers[key] = 0;
    for (const char* key : {"RENDER_FILE", "RENDER_PATTERN", "RENDER_FORMAT", "RENDER_FORMAT2"}) project.texts[key];
}

Host::~Host() {
    current = nullptr;
}

Host& Host::Current() {
    if (!current) Abort("a host function was called while no host lives");
    return *current;
}

int Host::Register(const std::string& name, void* info) {
    if (Contains(refused, name)) return 0;
    int number = 1;
    if (name == "command_id")
        number = ++lastNumber_;
    else if (name != "gaccel" && name != "hookcommand2" && name != "toggleaction" && !name.starts_with("API_") &&
             !name.starts_with("APIdef_")) {
        Violate("Register: there is nothing to register as \"" + name + '"');
        return 0;
    }
    if (!info) {
        Violate("Register: nothing is given for \"" + name + '"');
        return 0;
    }
    registrations.push_back({name, info, number});
    return number;
}

void Host::Forget(const std::string& function) {
    forgotten_.push_back(function);
}

void* Host::Function(const char* name) const {
    const int index = name && !Contains(forgotten_, name) ? FunctionIndex(name) : -1;
    return index < 0 ? nullptr : Functions[index].address;
}

void* Host::ApiFunction(const std::string& name) const {
    for (const Registration& r : registrations)
        if (r.name == "API_" + name) return r.info;
    return nullptr;
}

int Host::ActionNumber(const std::string& idText) const {
    const char* id = idText.c_str() + idText.starts_with('_');
    for (const Registration& r : registrations)
        if (r.name == "command_id" && !std::strcmp(static_cast<const char*>(r.info), id)) return r.number;
    return 0;
}

void Host::Violate(const std::string& sentence) {
    if (violationCount_++ == 0) firstViolation_ = (running_ ? std::string(running_) + ": " : std::string()) + sentence;
}

void Host::ForgetViolations() {
    violationCount_ = 0;
    firstViolation_.clear();
}

bool Host::Check() {
    if (blockDepth_ > 0) Violate("an undo block was left open");
    if (refreshHeldOff != 0) Violate("the refresh is still held off, " + std::to_string(refreshHeldOff) + " times");
    if (!accessors.empty()) Violate("an audio accessor was not destroyed");
    return violationCount_ == 0;
}

void* Host::Owner(const void* handle, Kind kind) {
    std::string why;
    void* owner = OwnerOf(handle, kind, &why);
    if (!owner) Violate(std::string("the ") + NameOf(kind) + " handle is " + why);
    return owner;
}

bool Host::Know(ReaProject* handle) {
    return !handle || Owner(handle, Kind::Project) == this;
}

}  // namespace simhost
