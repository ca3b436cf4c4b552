// tests/support/story.h
// Stories: a project told as a picture, one command, and the picture afterwards. Pictures are those of
// tests/support/portrait.h, with everything in them, so that what changed by mistake shows too.
#pragma once
#include "tests/support/scene.h"

// Makes the host's project what the picture says, with a fresh history. Of an item's marks it knows mute, no take and
// the star of the selected; of a track's, armed and selected; regions, markers, cursor, time selection and play state.
void Projeto(const std::string& retrato);

struct Historia {
    const char* antes;
    const char* depois = nullptr;  // null: as before
    const char* mensagens = "";    // "Erro: texto"
};

// Tells each story of the command on a project of its own. In each it leaves the undo points of those titles, oldest
// first, parted by " | ".
void Contar(void (*comando)(), const char* historico, const std::vector<Historia>& historias);
