#include "lice/text_reader.h"

#include <algorithm>

#include "platform/utf8.h"

namespace {

// A negative count is no limit.
Utf8Character Read(const char* at, int left) {
    const Utf8Character read = ReadUtf8(at, static_cast<size_t>(left));
    return {read.bytes > 3 ? U' ' : read.code, read.bytes, read.wellFormed};
}

bool IsLetter(unsigned code) { return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z'); }

}  // namespace

unsigned TextReader::NextSequence() {
    const Utf8Character first = Read(at, left);
    unsigned code = first.code;
    int bytes = first.bytes;
    if (bytes == 1 && IsLetter(code) && (left < 0 || left > 2)) {
        const Utf8Character mark = Read(at + 1, left < 0 ? left : left - 1);
        if (mark.code >= 0x300 && mark.code <= 0x36F) {
            code |= mark.code << MarkShift;
            bytes += mark.bytes;
        }
    }
    at += bytes;
    if (left > 0) left = std::max(left - bytes, 0);
    return code;
}
