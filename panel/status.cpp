#include "panel/status.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

char StatusMsg[160] = "";

void DefinirStatus(const char* formato, ...) {
    va_list argumentos;
    va_start(argumentos, formato);
    std::vsnprintf(StatusMsg, sizeof StatusMsg, formato, argumentos);
    va_end(argumentos);
}

void StatusExecutado(const char* nome) {
    if (std::strncmp(nome, "Action_", 7) == 0)
        StatusMsg[0] = '\0';
    else
        DefinirStatus("Executado: %s", nome);
}
