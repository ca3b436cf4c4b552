// tests/support/kept.h
// What was found once, looked at, and kept in a file below the sources; every platform must find the same, to the last
// bit. QUILMO_WRITE_GOLDEN=1 writes it anew.
#pragma once
#include <string>

#include "tests/support/desktop_driver.h"

void ConfereGuardado(const std::string& arquivo, const std::string& achado);
// Says where the two differ first, and writes what is found instead beside the kept one.
void ConfereImagem(const std::string& arquivo, const driver::Picture& achada);
