// Scripts that extensions add to the action list; RunAction runs them under their numbers.
#include "platform/files.h"
#include "simhost/calls.h"

namespace simhost {

// The command number; 0 when the file cannot be read, or is to be removed and was never added.
int api::AddRemoveReaScript(bool add, int, const char* file, bool) {
    Host& host = Host::Current();
    std::vector<Script>& scripts = host.scripts.added;
    const std::string path = file ? file : "";
    const auto script =
        std::find_if(scripts.begin(), scripts.end(), [&path](const Script& s) { return s.path == path; });
    if (script != scripts.end()) {
        const int number = script->number;
        if (!add) scripts.erase(script);
        return number;
    }
    if (!add) host.Violate("the script " + path + " is not in the action list");
    std::string text;
    if (!add || !ReadTextFile(path, text)) return 0;
    scripts.push_back({++host.actions.lastNumber, path, text});
    return host.actions.lastNumber;
}

}  // namespace simhost
