// apps/studio/save.h
// The project as the host opens it.
#pragma once
#include <functional>

#include "simhost/host.h"

// Where sources lie as files. A source that was glued, rendered or recorded gets its file when it is first saved.
using SourceFiles = std::map<simhost::SourceRef, std::string>;

// Writes the project, and what has no file yet beside it. `working` is called now and then meanwhile.
bool SaveProject(const simhost::Project& project, const std::string& path, SourceFiles& files,
                 const std::function<void()>& working, std::string* error);
// All that saving keeps, but for the selection, as text to be compared; sources by where they lie in memory.
std::string Kept(const simhost::Project& project);
