// lice/text_reader.h
// Reads UTF-8 text character by character, never beyond the byte count or the zero byte. Bytes that make no sequence
// stand for themselves.
// Text drawing has characters of 16 bits; those beyond read as a space. An ASCII letter and a combining mark behind it
// are one character: the letter, and the mark from bit 20 on.
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
