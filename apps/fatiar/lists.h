// apps/fatiar/lists.h
// A cut as other programs read it, so that they can make it themselves.
#pragma once
#include <string>
#include <vector>

#include "apps/fatiar/cut.h"
#include "apps/fatiar/options.h"

struct ListedCut {
    Cut cut;
    int channels;
    std::string name;       // for people
    std::string reference;  // the file that is cut, as the list says it
};

struct ListFormat {
    const char* name;
    const char* ending;
    bool many;  // one list holds several recordings; the others hold one
    // One text for each file: only CMX 3600 may need several.
    std::vector<std::string> (*write)(const std::vector<ListedCut>& cuts, FrameRate frameRate);
};

const ListFormat* FindListFormat(const std::string& name);  // null: there is none

// From the list's folder to a file: relative when it lies there or below, else absolute. What is no path of this
// system, such as C:\fala.mp4 or an address, stays as it is.
std::string ReferenceTo(const std::string& path, const std::string& listPath);
