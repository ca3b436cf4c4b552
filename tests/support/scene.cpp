#include "tests/support/scene.h"

#include <random>
#include <stdexcept>

#include "host/actions.h"
#include "module/entry.h"
#include "panel/state.h"
#include "slicer/preview.h"

using simhost::Host;

std::filesystem::path DeUtf8(const std::string& caminho) { return std::u8string(caminho.begin(), caminho.end()); }

// A folder of the process's own, for a user whose name has an accent.
static std::filesystem::path PastaDeRecursos() {
    static const std::filesystem::path pasta =
        std::filesystem::temp_directory_path() / DeUtf8("quilmo João " + std::to_string(std::random_device{}()));
    return pasta;
}

Cena::Cena() {
    std::filesystem::create_directories(PastaDeRecursos());
    host.resourcePath = reinterpret_cast<const char*>(PastaDeRecursos().u8string().c_str());
}

Cena::~Cena() {
    std::error_code semErro;
    std::filesystem::remove_all(PastaDeRecursos(), semErro);
}

void Cena::SetUp() {
    RestaurarEstadoFatiador();
    RestaurarEstadoPainel();
    ASSERT_EQ(ReaperPluginEntry(nullptr, host.Record()), 1);
}

void Cena::TearDown() {
    if (JanelaPainel) DestroyWindow(JanelaPainel);
    ReaperPluginEntry(nullptr, nullptr);
    EXPECT_TRUE(host.Check()) << host.FirstViolation() << " (" << host.ViolationCount() << " in all)";
}

void ProjetoVazio() {
    Host& host = Host::Current();
    simhost::Project vazio;
    vazio.numbers = host.project.numbers;
    vazio.texts = host.project.texts;
    host.project = std::move(vazio);
    host.dialogs.messages.clear();
    host.dialogs.inputs.clear();
    host.actions.run.clear();
    host.scripts.run.clear();
    host.transport.state = 0;
    host.undo.Start();
}

MediaTrack* Faixa(const std::string& nome, const std::vector<ItemDeCena>& itens) {
    MediaTrack* faixa = Host::Handle(AddTrack(Host::Current().project, nome));
    for (const ItemDeCena& item : itens) NovoItem(faixa, item);
    return faixa;
}

MediaItem* NovoItem(MediaTrack* faixa, const ItemDeCena& item) {
    simhost::SourceRef fonte = item.fonte;
    if (!fonte) fonte = simhost::Sine(48000, 2, std::llround((item.fim - item.inicio) * 48000), 440, 0.5);
    return Host::Handle(
        Host::Current().project.tracks.Add(Dados(faixa), simhost::MakeItem(item.nome, item.inicio, item.fim, fonte)));
}

MediaTrack* FaixaChamada(const std::string& nome) {
    simhost::Track* faixa = FindTrack(Host::Current().project, nome);
    return faixa ? Host::Handle(*faixa) : nullptr;
}

MediaItem* ItemChamado(const std::string& nome) {
    simhost::Item* item = FindItem(Host::Current().project, nome);
    return item ? Host::Handle(*item) : nullptr;
}

template <class Coisa>
static Coisa& Conhecida(Coisa* coisa) {
    if (!coisa) throw std::runtime_error("the scene has no such thing");
    return *coisa;
}

simhost::Item& Dados(MediaItem* item) { return Conhecida(Host::Current().Know(item)); }

simhost::Track& Dados(MediaTrack* faixa) { return Conhecida(Host::Current().Know(faixa)); }

void Selecionar(std::initializer_list<std::string> nomes) {
    simhost::TrackList& faixas = Host::Current().project.tracks;
    for (simhost::Item* item : faixas.Items())
        faixas.Select(*item, std::find(nomes.begin(), nomes.end(), item->Name()) != nomes.end());
}

// What `dizer` says of each, parted by `entre`.
template <class Lista, class Dizer>
static std::string Juntar(const Lista& lista, const char* entre, Dizer dizer) {
    std::string texto;
    for (const auto& um : lista) texto += (texto.empty() ? "" : entre) + dizer(um);
    return texto;
}

std::string Selecionados() {
    return Juntar(Host::Current().project.tracks.Selected(), ", ", [](const auto* item) { return item->Name(); });
}

std::string Historico() {
    return Juntar(Host::Current().undo.Titles(), " | ", [](const std::string& titulo) { return titulo; });
}

std::string Mensagens() {
    return Juntar(Host::Current().dialogs.messages, " | ", [](const auto& m) { return m.title + ": " + m.text; });
}

static std::string NomeDaAcao(int numero) {
#define NOME(nome, valor) \
    if (numero == valor) return #nome;
    ACOES_DO_HOST(NOME)
#undef NOME
    return std::to_string(numero);
}

std::string Acoes() { return Juntar(Host::Current().actions.run, " ", NomeDaAcao); }

void EsperarViolacao(const std::string& parte) {
    Host& host = Host::Current();
    EXPECT_NE(host.FirstViolation().find(parte), std::string::npos)
        << (host.ViolationCount() ? host.FirstViolation() : "there was no violation");
    host.ForgetViolations();
}
