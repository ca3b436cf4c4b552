// apps/studio/dialogs.h
// The host's dialogs as the system shows them. While one is open the main window takes no input; the extension's
// windows do, as in any host.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "platform/win32.h"
#include "simhost/host.h"

int ShowMessage(const std::string& text, const std::string& title, int type);  // as MessageBox
struct Field {
    std::string caption, value;
};
// False: cancelled, and the values are as they were.
bool AskFields(const std::string& title, std::vector<Field>& fields);
// The same as extensions ask it. Captions with "=" are options and not shown. Values are separated by commas. Null:
// cancelled.
std::optional<std::string> AskInputs(const simhost::ShownInput& shown);
std::optional<std::string> AskForRecording();  // the path of a file to open; null: cancelled
