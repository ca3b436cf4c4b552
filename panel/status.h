// panel/status.h
// The message of the panel's status strip: the last thing done.
#pragma once

extern char StatusMsg[160];  // empty at load, kept while the panel is closed

void DefinirStatus(const char* formato, ...);  // cut to 159 bytes
// "Executado: <nome>". A bare host action, "Action_<number>", clears the message instead.
void StatusExecutado(const char* nome);
