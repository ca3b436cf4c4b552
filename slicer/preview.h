// slicer/preview.h
// The Auto Fatiador's mode. An item's silence is found (analysis), cut out and closed up (autosplit), so the cuts are
// really in the project; they stay or go when the user leaves the mode. Settings worth keeping are presets. The item is
// glued anew first (bounce), so that its pieces can be dragged open. The mode's store is the host's undo history: it
// knows its own points by their titles, and goes back by undoing while the topmost point is one of them.
#pragma once
#include <string>

// Process-wide; all start as written here.
extern bool ModoFatiadorAtivo;   // false; the panel shows the slicer page
extern bool PainelEmFrente;      // false; seen in front since the mode began, so that another in front cancels
extern bool SalvarPresetAberto;  // false; the page asks which preset to save in
extern bool PreviewAtivo;        // false; a slicing of this run is on the undo history
// false; the slicer is at work: entering with its questions, glue and first cut, cutting anew, taking back. A host that
// lets messages in meanwhile must not enter, change a setting or leave; a close is ignored, a cancelling waits.
extern bool PreviewEmObra;
extern const char* SliderArrastado;  // null; which slider of the page is being dragged
extern double thresholdDb;           // -37.0
extern int blocoMs;                  // 55
extern bool fecharLacunas;           // true

// Begins the mode on the one selected item, or says why not and returns false. The presets are read at the first entry.
// Whoever opens the mode brings its page to the front, where the watch on other windows begins.
bool EntrarModoFatiador(const std::string& pastaDosPresets);
void RecalcularPreview(bool fecharLacunas, int blocoMs, double thresholdDb);  // takes the cuts back, makes them anew
void RestaurarOriginal();        // takes the cuts and the entry bounce back; the mode's flag is the caller's
void AplicarFatias();            // keeps both; the mode's flag is the caller's
void RestaurarEstadoFatiador();  // as at load, for tests
