#include "tests/apps/json.h"

#include <gtest/gtest.h>

#include <cctype>
#include <charconv>

namespace {

struct Reader {
    const char* at;
    const char* end;
    bool failed = false;

    char Peek() const { return at < end ? *at : '\0'; }
    void Blanks() {
        while (at < end && std::isspace(static_cast<unsigned char>(*at))) ++at;
    }
    bool Take(char c) {
        Blanks();
        if (Peek() != c) return false;
        ++at;
        return true;
    }
    void Want(bool good) {
        if (!good) failed = true;
    }

    std::string Text() {
        std::string text;
        Want(Take('"'));
        while (!failed && Peek() != '"') {
            const char c = Peek();
            Want(at < end && static_cast<unsigned char>(c) >= 32);
            ++at;
            if (c != '\\') {
                text += c;
                continue;
            }
            const char escaped = Peek();
            ++at;
            if (escaped != 'u') {
                Want(escaped == '"' || escaped == '\\');
                text += escaped;
                continue;
            }
            unsigned code = 0;
            Want(end - at > 4 && std::from_chars(at, at + 4, code, 16).ptr == at + 4);
            at += 4;
            if (code < 0x80)
                text += static_cast<char>(code);
            else
                for (int shift : {12, 6, 0})
                    text += static_cast<char>((shift == 12 ? 0xE0 : 0x80) | (code >> shift & 0x3F));
        }
        Want(Take('"'));
        return text;
    }

    Json Value() {
        Json value;
        Blanks();
        if (Peek() == '"') {
            value.text = Text();
        } else if (Take('[')) {
            while (!failed && !Take(']')) {
                Want(value.list.empty() || Take(','));
                value.list.push_back(Value());
            }
        } else if (Take('{')) {
            while (!failed && !Take('}')) {
                Want(value.fields.empty() || Take(','));
                Blanks();
                Json& field = value.fields[Text()];
                Want(Take(':'));
                field = Value();
            }
        } else if (std::isalpha(static_cast<unsigned char>(Peek()))) {
            while (std::isalpha(static_cast<unsigned char>(Peek()))) value.text += *at++;
            Want(value.text == "true" || value.text == "false" || value.text == "null");
        } else {
            const auto result = std::from_chars(at, end, value.number);
            Want(result.ec == std::errc());
            at = result.ptr;
        }
        return value;
    }
};

}  // namespace

Json Json::Parse(const std::string& text) {
    Reader reader{text.data(), text.data() + text.size()};
    Json value = reader.Value();
    reader.Blanks();
    EXPECT_TRUE(!reader.failed && reader.at == reader.end) << "not JSON: " << text;
    return value;
}

const Json& Json::operator[](const std::string& name) const {
    static const Json none;
    const auto found = fields.find(name);
    return found == fields.end() ? none : found->second;
}

const Json& Json::operator[](size_t index) const {
    static const Json none;
    return index < list.size() ? list[index] : none;
}
