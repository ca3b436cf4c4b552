// panel/slicer_watch.h
// Work outside the panel ends the slicer mode: it puts the project back as it was.
#pragma once
#include "platform/win32.h"

// Ends the mode; nothing outside it. While the slicer is at work it waits until CancelarOQueEsperou.
void CancelarFatiador();
// After each work of the slicer: cancels what waited, unless the panel is in front again.
void CancelarOQueEsperou();
// At each tick of the panel's clock. Deactivation tells of most work elsewhere; this is for a mode that began while the
// panel was in front without being active.
void VigiarFatiador(HWND janela);
