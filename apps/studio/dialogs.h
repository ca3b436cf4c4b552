// apps/studio/dialogs.h
// The host's dialogs as the system shows them. While one is open none of the program's windows takes input, so that no
// edit comes between a question and its answer.
#pragma once
#include <optional>
#include <string>

#include "platform/win32.h"
#include "simhost/host.h"

int ShowMessage(const std::string& text, const std::string& title, int type);  // as MessageBox
// One field for each caption; captions with "=" are options and not shown. Values are separated by commas. Null:
// cancelled.
std::optional<std::string> AskInputs(const simhost::ShownInput& shown);
std::optional<std::string> AskForRecording(HWND owner);  // the path of a file to open; null: cancelled
