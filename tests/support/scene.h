// tests/support/scene.h
// A scene on the stand-in host, with the module loaded through its entry. Any violation fails the test.
#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "host/api.h"
#include "simhost/host.h"
#include "tests/support/folders.h"
#include "tests/support/portrait.h"
#include "tests/support/sources.h"

struct ItemDeCena {
    std::string nome;
    double inicio, fim;
    simhost::SourceRef fonte = nullptr;  // null: a stereo tone at 48000 Hz, as long as the item
};

class Cena : public testing::Test {
  protected:
    Cena();
    ~Cena() override;
    void SetUp() override;     // puts the module's state back and loads it
    void TearDown() override;  // closes the panel and unloads; fails the test on a violation or on what was left open

    // To the next message box without an answer yet, 6 yes or 7 no; and to the next dialog, nothing where it is left.
    void ResponderMensagem(int resposta) { host.dialogs.messageAnswers.push_back(resposta); }
    void ResponderTexto(std::optional<std::string> texto) { host.dialogs.inputAnswers.push_back(std::move(texto)); }

    simhost::Host host;
};

std::filesystem::path DeUtf8(const std::string& caminho);  // as the module's paths are, on either system

// An empty project on the living host, with the settings of the one before and no record of what was.
void ProjetoVazio();
// Names need not be unique: a name means the first of that name, and to Selecionar all.
MediaTrack* Faixa(const std::string& nome, const std::vector<ItemDeCena>& itens = {});  // behind the last
MediaItem* NovoItem(MediaTrack* faixa, const ItemDeCena& item);
MediaTrack* FaixaChamada(const std::string& nome);  // null when there is none, like the next
MediaItem* ItemChamado(const std::string& nome);
simhost::Item& Dados(MediaItem* item);  // for setting up what callers cannot set
simhost::Track& Dados(MediaTrack* faixa);
void Selecionar(std::initializer_list<std::string> nomes);  // these items and no others

std::string Selecionados();  // "A, B", in the host's order
std::string Historico();     // all of them, oldest first: "um | dois"
std::string Mensagens();     // message boxes shown: "Erro: texto | Aviso: texto"
std::string Acoes();         // names of the actions run: "Tocar Parar"

// The expected violation, by a part of its sentence, has happened; it no longer fails the test.
void EsperarViolacao(const std::string& parte);
