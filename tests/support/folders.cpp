#include "tests/support/folders.h"

std::string SourceFolder() {
    return SOURCE_FOLDER;
}

std::string BuildFolder() {
    return BUILD_FOLDER;
}
