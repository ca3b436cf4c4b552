// platform/utf8.h
// The one reader of UTF-8.
#pragma once
#include <cstddef>

struct Utf8Character {
    char32_t code;
    int bytes;        // that it takes; 1 where no sequence begins
    bool wellFormed;  // false for a stray byte, an overlong form, a surrogate and what lies beyond U+10FFFF
};

// The character at the start of `text`, of which at least one byte, and at most `left`, are there to be looked at.
// A sequence is a lead byte of 194 to 244 and the trail bytes that it calls for; any other byte stands for itself.
// Reading ahead ends with the first byte that is no trail byte, so a closing zero is never passed.
Utf8Character ReadUtf8(const char* text, size_t left);
