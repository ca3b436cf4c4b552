// lice/text_reader.h
// Reads UTF-8 text character by character. Reading ahead never passes the byte count or the zero byte, so that a
// sequence that is cut short, or is no sequence at all, reads byte by byte.
// A character of text drawing is 16 bits wide; what lies beyond reads as a space. An ASCII letter with a combining mark
// behind it is one character: the letter, and the mark from bit 20 on.
#pragma once

inline constexpr int MarkShift = 20;

class TextReader {
  public:
    TextReader(const char* text, int count) : at(text), left(count) {}

    const char* at;
    int left;  // bytes; negative: up to the zero byte

    bool AtEnd() const { return left == 0 || *at == 0; }
    unsigned Next() {  // not at the end
        const bool plain = static_cast<signed char>(*at) >= 0 && (left == 1 || static_cast<signed char>(at[1]) >= 0);
        if (!plain) return NextSequence();
        if (left > 0) --left;
        return static_cast<unsigned>(*at++);
    }

  private:
    unsigned NextSequence();
};
