// What the sanitizers ask the program that they watch. In a library they would not find these names.
#include "platform/export.h"

MODULE_EXPORT const char* __asan_default_options();
MODULE_EXPORT const char* __lsan_default_suppressions();

// Memory that is asked for in vain gives null, as it does without them.
const char* __asan_default_options() { return "allocator_may_return_null=1"; }

// The library that finds fonts keeps a little for itself at the end.
const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
