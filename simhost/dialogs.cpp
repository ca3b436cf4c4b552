// Dialogs, answered by a callback or from the script queues, and the scripts that extensions add.
#include <cstring>

#include "platform/files.h"
#include "simhost/calls.h"

namespace simhost {

int api::ShowMessageBox(const char* text, const char* title, int type) {
    Host& host = Host::Current();
    if (!text || !title) host.Violate("a message without text or title");
    ShownMessage shown{text ? text : "", title ? title : "", type, type == 4 ? 7 : 1};
    if (host.onMessage) {
        shown.answer = host.onMessage(shown.text, shown.title, type);
    } else if (!host.messageAnswers.empty()) {
        shown.answer = host.messageAnswers.front();
        host.messageAnswers.pop_front();
    }
    host.messages.push_back(shown);
    return shown.answer;
}

bool api::GetUserInputs(const char* title, int count, const char* captions, char* values, int valuesSize) {
    Host& host = Host::Current();
    if (!title || !captions || !values || count < 1 || valuesSize < 1 || !std::memchr(values, 0, valuesSize)) {
        host.Violate("a dialog needs a title, captions, a field, and a buffer that holds a text");
        return false;
    }
    ShownInput shown{title, captions, values, std::nullopt};
    if (host.onInput) {
        shown.answer = host.onInput(shown);
    } else if (!host.inputAnswers.empty()) {
        shown.answer = host.inputAnswers.front();
        host.inputAnswers.pop_front();
    }
    host.inputs.push_back(shown);
    if (!shown.answer) return false;
    const size_t length = shown.answer->copy(values, valuesSize - 1);
    values[length] = 0;
    return true;
}

static std::optional<std::string> ReadWhole(const char* path) {
    std::FILE* file = OpenFile(path, "rb");
    if (!file) return std::nullopt;
    std::string text;
    char block[4096];
    while (const size_t n = std::fread(block, 1, sizeof block, file)) text.append(block, n);
    std::fclose(file);
    return text;
}

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
    const std::optional<std::string> text = ReadWhole(path.c_str());
    if (!text) return 0;
    scripts.push_back({++lastNumber_, path, *text});
    return lastNumber_;
}

}  // namespace simhost
