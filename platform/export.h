// platform/export.h
// Marks what a loadable module shows to the program that loads it; everything else stays hidden.
#pragma once

#ifdef _WIN32
#define MODULE_EXPORT extern "C" __declspec(dllexport)
#else
#define MODULE_EXPORT extern "C" __attribute__((visibility("default")))
#endif
