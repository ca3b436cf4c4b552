// simhost/calls.h
// The 76 functions as the stand-in has them, one declaration for each row of the host's list: a definition whose
// signature differs does not compile. Callers reach them only through the table, which counts, traces and disturbs.
#pragma once
#include "simhost/host.h"

namespace simhost {

namespace api {
#define DECLARE(result, name, parameters) result name parameters;
FUNCOES_DO_HOST(DECLARE)
#undef DECLARE
}  // namespace api

struct Function {
    const char* name;
    void* address;
    bool changes;  // it may change what there is to see
};
constexpr int FunctionCount = 0
#define COUNT(result, name, parameters) +1
    FUNCOES_DO_HOST(COUNT)
#undef COUNT
    ;
extern const Function Functions[FunctionCount];
int FunctionIndex(const std::string& name);  // -1: none of the 76

}  // namespace simhost
