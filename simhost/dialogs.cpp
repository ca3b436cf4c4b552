// Dialogs, answered by a callback or from the queues of answers.
#include <cstring>

#include "simhost/calls.h"

namespace simhost {

int api::ShowMessageBox(const char* text, const char* title, int type) {
    Dialogs& dialogs = Host::Current().dialogs;
    if (!text || !title) Host::Current().Violate("a message without text or title");
    ShownMessage shown{text ? text : "", title ? title : "", type, type == 4 ? 7 : 1};
    if (dialogs.onMessage) {
        shown.answer = dialogs.onMessage(shown.text, shown.title, type);
    } else if (!dialogs.messageAnswers.empty()) {
        shown.answer = dialogs.messageAnswers.front();
        dialogs.messageAnswers.pop_front();
    }
    dialogs.messages.push_back(shown);
    return shown.answer;
}

bool api::GetUserInputs(const char* title, int count, const char* captions, char* values, int valuesSize) {
    Dialogs& dialogs = Host::Current().dialogs;
    if (!title || !captions || !values || count < 1 || valuesSize < 1 || !std::memchr(values, 0, valuesSize)) {
        Host::Current().Violate("a dialog needs a title, captions, a field, and a buffer that holds a text");
        return false;
    }
    ShownInput shown{title, captions, values, std::nullopt};
    if (dialogs.onInput) {
        shown.answer = dialogs.onInput(shown);
    } else if (!dialogs.inputAnswers.empty()) {
        shown.answer = dialogs.inputAnswers.front();
        dialogs.inputAnswers.pop_front();
    }
    dialogs.inputs.push_back(shown);
    if (!shown.answer) return false;
    const size_t length = shown.answer->copy(values, valuesSize - 1);
    values[length] = 0;
    return true;
}

}  // namespace simhost
