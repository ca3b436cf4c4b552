// Scripts that extensions add to the action list; RunAction runs them under their numbers.
#include "platform/files.h"
#include "simhost/calls.h"

namespace simhost {

int api::AddRemoveReaScript(bool add, int, const char* path, bool) {
    return Host::Current().AddRemoveScript(add, path ? path : "");
}

int Host::AddRemoveScript(bool add, const std::string& path) {
    for (auto script = scripts.begin(); script != scripts.end(); ++script)
        if (script->path == path) {
            const int number = script->number;
            if (!add) scripts.erase(script);
            return number;
        }
    if (!add) {
        Violate("the script " + path + " is not in the action list");
        return 0;
    }
    std::string text;
    if (!ReadTextFile(path, text)) return 0;
    scripts.push_back({++lastNumber_, path, text});
    return lastNumber_;
}

}  // namespace simhost
