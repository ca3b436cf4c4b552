// host/door.h
// Every function that the host or the system calls is a door: what is thrown behind it ends there, as a line in the
// log. What was begun behind the door has been ended by its guards by then.
#pragma once
#include <exception>

#include "host/log.h"

// What f returns, or `seFalhar` when it throws; `nome` is the door's, for the log.
template <class Resultado, class F>
Resultado Porta(const char* nome, Resultado seFalhar, F f) noexcept {
    try {
        return f();
    } catch (const std::exception& excecao) {
        RegistrarFalha(nome, excecao.what());
    } catch (...) {
        RegistrarFalha(nome, "excecao desconhecida");
    }
    return seFalhar;
}
