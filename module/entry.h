// module/entry.h
// The door of the module: what it exports, and what it registers with the host.
#pragma once
#include <string>

#include "host/api.h"
#include "platform/export.h"

// Called once by the host with its record, and with null at unload, which does nothing. 1: loaded; 0: refused, with
// nothing registered and nothing logged.
MODULE_EXPORT int ReaperPluginEntry(HINSTANCE instancia, reaper_plugin_info_t* registro);

// The functions that the host also offers to scripts; the third is Quilmo_AutoSplit (slicer/autosplit.h).
MODULE_EXPORT double Quilmo_Teste(double a, double b);
MODULE_EXPORT void Quilmo_AbrirPainel();

extern int AcaoPainelId;                   // the action's command number; 0 until load
extern gaccel_register_t AcaoPainelAccel;  // key A; cmd is the low half of AcaoPainelId
extern std::string CaminhoRecursos;        // the host's resource path as read at load

// Given to the host for its dispatch and its toggle marks.
bool HookCommand2Proc(KbdSectionInfo* secao, int comando, int valor, int valorAlto, int modoRelativo, HWND janela);
int ToggleActionProc(int comando);  // 1 panel open, 0 closed, -1 not our action
