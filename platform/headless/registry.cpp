// An empty registry: no key is ever found.
#include "platform/headless/win32_gdi.h"

LONG RegOpenKeyA(HKEY, LPCSTR, HKEY* result) {
    if (result) *result = nullptr;
    return ERROR_FILE_NOT_FOUND;
}

LONG RegCloseKey(HKEY) { return ERROR_INVALID_HANDLE; }
