#include "apps/common/text.h"

#include "platform/win32.h"

std::wstring Wide(const std::string& utf8) {
    const int bytes = static_cast<int>(utf8.size());
    std::wstring wide(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string Utf8(const std::wstring& wide) {
    const int length = static_cast<int>(wide.size());
    std::string text(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr), '\0');
    const int bytes = static_cast<int>(text.size());
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(), bytes, nullptr, nullptr);
    return text;
}

std::wstring ProgramFolder() {
    std::wstring path(32768, L'\0');  // the longest that there is
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\'));
}
