// apps/studio/dialogs.h
// The host's dialogs as the system shows them. While one is open only the extension's windows take input.
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
// The same as extensions ask it, with commas between values. A caption with "=" is an option and not shown. Null:
// cancelled.
std::optional<std::string> AskInputs(const simhost::ShownInput& shown);
std::optional<std::string> AskForRecording();                        // the path of a file to open; null: cancelled
std::optional<std::string> AskWhereToSave(const std::string& path);  // offers that path; null: cancelled
void PaintAll();  // what waits for it, in all windows of this thread; nothing else happens meanwhile
