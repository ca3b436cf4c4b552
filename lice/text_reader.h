// lice/text_reader.h
// Reads UTF-8 text character by character. Reading ahead never passes the byte count or the zero byte, so that a
// sequence that is cut short, or is no sequence at all, reads byte by byte.
// A character of text drawing is 16 bits wide; what lies beyond reads as a space. An ASCII letter with a combining mark
// behind it is one character: the letter, and the mark from bit 20 on.
#pragma once

inline constexpr int MarkShift = 20;

struct TextReader {
    const char* at;
    int left;  // bytes; negative: up to the zero byte

    bool AtEnd() const { return left == 0 || *at == 0; }
    unsigned Next();  // not at the end
};

// Whether there is any sequence of several bytes, as GDI has to be told.
bool HasWideCharacters(TextReader text);
