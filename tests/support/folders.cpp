#include "tests/support/folders.h"

#include <gtest/gtest.h>

#include "platform/files.h"

std::string SourceFolder() { return SOURCE_FOLDER; }

std::string BuildFolder() { return BUILD_FOLDER; }

std::string LerArquivo(const std::string& caminho) {
    std::string bytes;
    return ReadTextFile(caminho, bytes) ? bytes : "(no file)";
}

void GravarArquivo(const std::string& caminho, const std::string& bytes) {
    std::FILE* arquivo = OpenFile(caminho, "wb");
    ASSERT_NE(arquivo, nullptr) << caminho;
    std::fwrite(bytes.data(), 1, bytes.size(), arquivo);
    std::fclose(arquivo);
}
