#include "platform/files.h"

#include "platform/win32.h"

// Empty for an empty text and for one that is not UTF-8; no path of use is empty.
static std::wstring Wide(const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), bytes, nullptr, 0);
    std::wstring wide(length > 0 ? length : 0, L'\0');
    if (length > 0) MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), bytes, wide.data(), length);
    return wide;
}

std::FILE* OpenFile(const std::string& path, const char* mode) {
    const std::wstring wide = Wide(path);
    return wide.empty() ? nullptr : _wfopen(wide.c_str(), Wide(mode).c_str());
}

bool RemoveFile(const std::string& path) {
    const std::wstring wide = Wide(path);
    return !wide.empty() && DeleteFileW(wide.c_str());
}

std::string EnvironmentVariable(const char* name) {
    const std::wstring wideName = Wide(name);
    const DWORD room = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);  // counts the closing zero
    if (room == 0) return "";
    std::wstring value(room, L'\0');
    value.resize(GetEnvironmentVariableW(wideName.c_str(), value.data(), room));
    const int length = static_cast<int>(value.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, value.data(), length, nullptr, 0, nullptr, nullptr);
    std::string text(bytes, '\0');
    WideCharToMultiByte(CP_UTF8, 0, value.data(), length, text.data(), bytes, nullptr, nullptr);
    return text;
}
