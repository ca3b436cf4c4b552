// host/log.h
// The extension's log: one text file in the host's resource folder, one time-stamped line a call.
#pragma once

// Appends "[YYYY-MM-DD HH:MM:SS] mensagem" to quilmo_extension_log.txt. The host is asked for the folder each time; it
// is "." while the host is not imported. The line is on disk when the call returns; one that cannot be written
// is lost in silence.
void RegistrarLog(const char* mensagem) noexcept;

// "Falha em nome: motivo", cut to 500 bytes; lost where even that cannot be had.
void RegistrarFalha(const char* nome, const char* motivo) noexcept;
