#include "panel/observer.h"

void (*Observador)(const WidgetVisto&) = nullptr;
const char* PaginaEmCurso = "";
