// The system's multimedia calls. Their header still uses a word of 16-bit memory that platform/win32.h takes away.
#pragma once
#include "platform/win32.h"
#define far
#include <mmsystem.h>
#undef far
