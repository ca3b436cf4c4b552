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

// What there is to tell of the thing behind a handle; 0, false or null, with a violation, where there is none.
template <class Handle, class Tell>
auto Of(Handle* handle, Tell tell) {
    auto* thing = Host::Know(handle);
    return thing ? tell(*thing) : decltype(tell(*thing))();
}

// The handle of a thing, if there is one.
template <class Thing>
auto* HandleOf(Thing* thing) {
    return thing ? Host::Handle(*thing) : nullptr;
}

// An element of a list of boxes or pointers; null outside.
template <class List>
auto* At(List& list, int index) {
    return index >= 0 && static_cast<size_t>(index) < list.size() ? &*list[index] : nullptr;
}

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
