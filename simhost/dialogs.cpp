// Dialogs, answered by a callback or from the queues of answers.
#include <cstring>

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

}  // namespace simhost
