// slicer/preview.h
// The slicer's preview mode: the cuts are really in the project, and stay or go when the user leaves the mode.
#pragma once

extern bool ModoFatiadorAtivo;   // the panel shows the slicer page
extern bool PainelEmFrente;      // the panel was seen in front since the mode began
extern bool SalvarPresetAberto;  // the page asks which preset to save in

void RestaurarOriginal();  // takes the cuts back; the project is as before the mode
