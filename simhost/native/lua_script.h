// simhost/native/lua_script.h
// Runs the scripts that callers add, in a real Lua 5.4. They find the host calls that they are known to use, and what
// extensions registered. What goes wrong in a script is a violation.
#pragma once
#include "simhost/host.h"

namespace simhost {

// From now on the host runs added scripts, inside Main_OnCommand.
void RunScriptsWithLua(Host& host);

}  // namespace simhost
