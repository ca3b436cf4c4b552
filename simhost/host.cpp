#include "simhost/host.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "host/actions.h"
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

static void* GetFunc(const char* wanted) {
    Extension& extension = Host::Current().extension;
    const std::string name = wanted ? wanted : "";
    const int index = Contains(extension.forgotten, name) ? -1 : FunctionIndex(name);
    if (index >= 0) return Functions[index].address;
    extension.unknown.push_back(name);
    return nullptr;
}

// The command number, or 1; 0 when it is refused.
static int Register(const char* what, void* info) {
    Host& host = Host::Current();
    const std::string name = what ? what : "";
    if (Contains(host.extension.refused, name)) return 0;
    const bool command = name == "command_id";
    if (!command && name != "gaccel" && name != "hookcommand2" && name != "toggleaction" && !name.starts_with("API_") &&
        !name.starts_with("APIdef_")) {
        host.Violate("Register: there is nothing to register as \"" + name + '"');
        return 0;
    }
    if (!info) {
        host.Violate("Register: nothing is given for \"" + name + '"');
        return 0;
    }
    const int number = command ? ++host.actions.lastNumber : 1;
    host.extension.registrations.push_back({name, info, number});
    return number;
}

Host::Host() : record_{VersaoDoHost, nullptr, Register, GetFunc} {
    if (current) Abort("a second host while the first one lives");
    current = this;
    settings.SetNumber("promptendrec", 1);
    settings.project["projrenderresample"].resize(sizeof(int));
    for (const int number : {acao::AlternarTakesEmPistas, acao::ZoomNosItens, acao::Opcao1161})
        actions.toggles[number] = 0;
    actions.toggles[acao::AlternarLinhasDeGrade] = 1;  // grid lines are shown
    for (const char* key :
         {"RENDER_SETTINGS", "RENDER_BOUNDSFLAG", "RENDER_CHANNELS", "RENDER_SRATE", "RENDER_STARTPOS", "RENDER_ENDPOS",
          "RENDER_TAILFLAG", "RENDER_TAILMS", "RENDER_ADDTOPROJ", "RENDER_DITHER", "RENDER_RESAMPLEMODE"})
        project.numbers[key] = 0;
    for (const char* key : {"RENDER_FILE", "RENDER_PATTERN", "RENDER_FORMAT", "RENDER_FORMAT2"}) project.texts[key];
}

Host::~Host() { current = nullptr; }

Host& Host::Current() {
    if (!current) Abort("a host function was called while no host lives");
    return *current;
}

void* Extension::Function(const std::string& name) const {
    for (const Registration& r : registrations)
        if (r.name == "API_" + name) return r.info;
    return nullptr;
}

int Extension::ActionNumber(const std::string& idText) const {
    const char* id = idText.c_str() + idText.starts_with('_');
    for (const Registration& r : registrations)
        if (r.name == "command_id" && !std::strcmp(static_cast<const char*>(r.info), id)) return r.number;
    return 0;
}

void Host::Violate(const std::string& sentence) {
    if (violationCount_++ == 0)
        firstViolation_ = (calls.Running() ? std::string(calls.Running()) + ": " : "") + sentence;
}

void Host::ForgetViolations() {
    violationCount_ = 0;
    firstViolation_.clear();
}

bool Host::Check() {
    if (undo.Open()) Violate("an undo block was left open");
    if (screen.heldOff != 0) Violate("the refresh is still held off, " + std::to_string(screen.heldOff) + " times");
    if (!accessors.empty()) Violate("an audio accessor was not destroyed");
    return violationCount_ == 0;
}

void* Host::Owner(const void* handle, Kind kind) {
    std::string why;
    void* owner = OwnerOf(handle, kind, &why);
    if (!owner) Current().Violate(std::string("the ") + NameOf(kind) + " handle is " + why);
    return owner;
}

Host* Host::Know(ReaProject* handle) { return handle ? static_cast<Host*>(Owner(handle, Kind::Project)) : &Current(); }

}  // namespace simhost
