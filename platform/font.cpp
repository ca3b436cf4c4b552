#include "platform/font.h"

#include <cstring>

HFONT CreateInterfaceFont(int height, int weight) {
    LOGFONTA wanted{};
    wanted.lfHeight = height;
    wanted.lfWeight = weight;
    wanted.lfQuality = ANTIALIASED_QUALITY;
    std::strcpy(wanted.lfFaceName, "Segoe UI");
    return CreateFontIndirectA(&wanted);
}
