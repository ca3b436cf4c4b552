#include <cstdlib>

#include "tests/support/environment.h"

void SetEnvironment(const char* name, const std::string& value) {
    if (value.empty())
        unsetenv(name);
    else
        setenv(name, value.c_str(), 1);
}
