// host/log.h
// The extension's log: one text file in the host's resource folder, one time-stamped line a call.
#pragma once

// Appends "[YYYY-MM-DD HH:MM:SS] mensagem" to quilmo_extension_log.txt in the folder that the host reports at this
// moment ("." while the host is not imported). The line is on disk when the call returns; one that cannot be written
// is lost in silence.
void RegistrarLog(const char* mensagem);
