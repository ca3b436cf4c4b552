#include "slicer/preview.h"

bool ModoFatiadorAtivo = false;
bool PainelEmFrente = false;
bool SalvarPresetAberto = false;

void RestaurarOriginal() {}
