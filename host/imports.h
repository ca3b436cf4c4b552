// host/imports.h
// The look-up of the host's functions by name, once, at load.
#pragma once
#include "host/api.h"

struct LinhaImportacao {
    void** slot;       // null in the closing row
    const char* nome;  // null in the closing row
};

extern const LinhaImportacao TabelaImportacao[];  // 76 rows and the closing row

// Writes every slot, also after a look-up that failed. Returns how many look-ups gave null.
int ImportarFuncoes(void* (*GetFunc)(const char* nome));

// Whether every slot is filled. The exported functions ask, since anyone may call them before the entry has run or
// after it has refused.
bool HostImportado();
