// tests/support/kept.h
// What was looked at once and kept in a file below the sources. QUILMO_WRITE_GOLDEN=1 writes it anew.
#pragma once
#include <string>

#include "lice/bitmap.h"
#include "tests/support/desktop_driver.h"

void ConfereGuardado(const std::string& arquivo, const std::string& achado);
driver::Picture ImagemDe(LICE_IBitmap& bm);
// Says where the two differ first, and writes what is found instead beside the kept one.
void ConfereImagem(const std::string& arquivo, const driver::Picture& achada);
