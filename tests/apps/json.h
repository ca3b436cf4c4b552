// tests/apps/json.h
// As much of a JSON reader as a test needs. It is strict: what is not JSON fails the test that reads it.
#pragma once
#include <map>
#include <string>
#include <vector>

struct Json {
    double number = 0;
    std::string text;
    std::vector<Json> list;
    std::map<std::string, Json> fields;

    static Json Parse(const std::string& text);
    const Json& operator[](const std::string& name) const;
    const Json& operator[](size_t index) const;
};
