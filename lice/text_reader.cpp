#include "lice/text_reader.h"

#include <algorithm>

namespace {

struct Utf8Character {
    unsigned value;
    int bytes;
};

bool IsTrail(unsigned char b) {
    return b >= 128 && b <= 191;
}

// Whether `count` trail bytes follow the byte at `at`. The zero byte is none, so that it is not passed.
bool TrailsFollow(const unsigned char* at, int left, int count) {
    if (left >= 0 && left <= count) return false;
    for (int i = 1; i <= count; ++i)
        if (!IsTrail(at[i])) return false;
    return true;
}

Utf8Character Decode(const char* text, int left) {
    const auto* at = reinterpret_cast<const unsigned char*>(text);
    const unsigned b = at[0];
    if (b >= 194 && b <= 223 && TrailsFollow(at, left, 1)) return {(b & 31) << 6 | (at[1] & 63u), 2};
    if (b >= 224 && b <= 239 && TrailsFollow(at, left, 2))
        return {(b & 15) << 12 | (at[1] & 63u) << 6 | (at[2] & 63u), 3};
    if (b >= 240 && b <= 244 && TrailsFollow(at, left, 3)) return {' ', 4};
    return {b, 1};
}

bool IsLetter(unsigned code) {
    return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
}

}  // namespace

unsigned TextReader::NextSequence() {
    const Utf8Character first = Decode(at, left);
    unsigned code = first.value;
    int bytes = first.bytes;
    if (bytes == 1 && IsLetter(code) && (left < 0 || left > 2)) {
        const Utf8Character mark = Decode(at + 1, left < 0 ? left : left - 1);
        if (mark.value >= 0x300 && mark.value <= 0x36F) {
            code |= mark.value << MarkShift;
            bytes += mark.bytes;
        }
    }
    at += bytes;
    if (left > 0) left = std::max(left - bytes, 0);
    return code;
}

bool HasWideCharacters(TextReader text) {
    for (; !text.AtEnd(); ++text.at) {
        const auto* at = reinterpret_cast<const unsigned char*>(text.at);
        if (*at >= 194 && *at <= 244 && TrailsFollow(at, text.left, *at < 224 ? 1 : 2)) return true;
        if (text.left > 0) --text.left;
    }
    return false;
}
