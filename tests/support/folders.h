// tests/support/folders.h
// Where tests find what is kept beside the sources, and what was built; and what is in files. Paths are UTF-8.
#pragma once
#include <string>

std::string SourceFolder();
std::string BuildFolder();

std::string LerArquivo(const std::string& caminho);  // "(no file)" when there is none
void GravarArquivo(const std::string& caminho, const std::string& conteudo);
