#include "host/imports.h"

namespace host {
#define SLOT(resultado, nome, parametros) resultado(*nome) parametros = nullptr;
FUNCOES_DO_HOST(SLOT)
#undef SLOT
}  // namespace host

const LinhaImportacao TabelaImportacao[] = {
#define LINHA(resultado, nome, parametros) {reinterpret_cast<void**>(&host::nome), #nome},
    FUNCOES_DO_HOST(LINHA)
#undef LINHA
        {nullptr, nullptr}};

int ImportarFuncoes(void* (*GetFunc)(const char* nome)) {
    int faltam = 0;
    for (const LinhaImportacao* linha = TabelaImportacao; linha->slot; ++linha) {
        *linha->slot = GetFunc(linha->nome);
        if (!*linha->slot) ++faltam;
    }
    return faltam;
}

bool HostImportado() {
    for (const LinhaImportacao* linha = TabelaImportacao; linha->slot; ++linha)
        if (!*linha->slot) return false;
    return true;
}
