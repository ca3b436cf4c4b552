#include "platform/win32.h"
#include "tests/support/environment.h"

void SetEnvironment(const char* name, const std::string& value) {
    wchar_t wide[1024] = L"";
    MultiByteToWideChar(CP_UTF8, 0, value.c_str(), -1, wide, 1024);
    const std::wstring wideName(name, name + std::string(name).size());
    SetEnvironmentVariableW(wideName.c_str(), value.empty() ? nullptr : wide);
}
