// tests/support/story.h
// Stories: a project told as a picture, one command, and the picture afterwards. Pictures are those of
// simhost/picture.h, with everything in them, so that what changed by mistake shows too.
#pragma once
#include "tests/support/scene.h"

// Makes the host's project what the picture says, with a fresh history. Of an item's marks it knows mute, no take and
// the star of the selected; of a track's, armed and selected; regions, markers, cursor and time selection.
void Projeto(const std::string& retrato);

struct Historia {
    const char* antes;
    void (*comando)();
    const char* depois;
    const char* historico = "";  // titles of the undo points, oldest first, parted by " | "
    const char* mensagens = "";  // "Erro: texto"
};

// Tells each story on a project of its own.
void Contar(const std::vector<Historia>& historias);
