// tests/support/story.h
// Stories: a project told as a picture (see portrait.h), one command, and the whole picture afterwards.
#pragma once
#include "tests/support/scene.h"

// Makes the host's project what the picture says, with a fresh history. Of an item's marks it knows mute, no take and
// the star; of a track's, armed and selected.
void Projeto(const std::string& retrato);

struct Historia {
    const char* antes;
    const char* depois = nullptr;  // null: as before
    const char* mensagens = "";    // "Erro: texto"
};

// Tells each story of the command on a project of its own. Each leaves the undo points "um | dois".
void Contar(void (*comando)(), const char* historico, const std::vector<Historia>& historias);
