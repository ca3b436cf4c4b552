#include "platform/utf8.h"

Utf8Character ReadUtf8(const char* text, size_t left) {
    const auto byte = [text](int i) { return static_cast<unsigned char>(text[i]); };
    const char32_t lead = byte(0);
    const int trails = lead >= 194 && lead < 224   ? 1
                       : lead >= 224 && lead < 240 ? 2
                       : lead >= 240 && lead < 245 ? 3
                                                   : 0;
    const Utf8Character alone = {lead, 1, lead < 128};
    if (trails == 0 || left <= static_cast<size_t>(trails)) return alone;
    char32_t code = lead & (63u >> trails);
    for (int i = 1; i <= trails; ++i) {
        if (byte(i) < 128 || byte(i) > 191) return alone;
        code = code << 6 | (byte(i) & 63u);
    }
    constexpr char32_t Smallest[] = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    return {code, trails + 1, code >= Smallest[trails] && code <= 0x10FFFF && !surrogate};
}
