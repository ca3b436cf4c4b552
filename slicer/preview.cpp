#include "slicer/preview.h"

#include <cmath>
#include <cstring>

#include "host/editing.h"
#include "render/render.h"
#include "slicer/autosplit.h"
#include "slicer/bounce.h"
#include "slicer/presets.h"
#include "slicer/titles.h"

bool ModoFatiadorAtivo = false;
bool PainelEmFrente = false;
bool SalvarPresetAberto = false;
bool PreviewAtivo = false;
bool PreviewEmObra = false;
const char* SliderArrastado = nullptr;
double thresholdDb = -37.0;
int blocoMs = 55;
bool fecharLacunas = true;

namespace {

// The slicer is at work as long as one of these lives.
struct Obra {
    Obra() { PreviewEmObra = true; }
    ~Obra() { PreviewEmObra = false; }
    Obra(const Obra&) = delete;
    Obra& operator=(const Obra&) = delete;
};

// A selected item by value: handles do not outlive an undo.
struct FotoItem {
    MediaTrack* faixa;
    double posicao, comprimento;
};
std::vector<FotoItem> FotosFatiador;  // what to select again after an undo

// Undoes while the topmost point's title holds that text; another one on top is left alone, with all below it.
void DesfazerEnquanto(const char* titulo, int maximo) {
    for (int i = 0; i < maximo; ++i) {
        const char* topo = host::Undo_CanUndo2(0);
        if (!topo || !std::strstr(topo, titulo)) return;
        host::Undo_DoUndo2(0);
    }
}

void DesfazerPreview() {
    DesfazerEnquanto(TituloDoPreview, 64);
    PreviewAtivo = false;
}

void DesfazerBounceEntrada() {
    if (!BounceEntradaAtivo) return;
    DesfazerEnquanto(TituloDoBounce, 8);
    BounceEntradaAtivo = false;
}

void FotografarSelecao() {
    FotosFatiador.clear();
    ParaCadaSelecionado(host::CountSelectedMediaItems(0), [](MediaItem* item) {
        FotosFatiador.push_back({host::GetMediaItem_Track(item), InicioDoItem(item), ComprimentoDoItem(item)});
    });
}

bool Reconhecer(MediaItem* item, const FotoItem& foto) {
    constexpr double tolerancia = 0.001;
    return std::fabs(InicioDoItem(item) - foto.posicao) < tolerancia &&
           std::fabs(ComprimentoDoItem(item) - foto.comprimento) < tolerancia;
}

void Reselecionar(const FotoItem& foto) {
    if (!host::ValidatePtr(foto.faixa, "MediaTrack*")) return;
    const int itens = host::CountTrackMediaItems(foto.faixa);
    for (int i = 0; i < itens; ++i) {
        MediaItem* item = host::GetTrackMediaItem(foto.faixa, i);
        if (item && Reconhecer(item, foto)) return host::SetMediaItemSelected(item, true);
    }
}

void ReselecionarFotos() {
    host::SelectAllMediaItems(0, false);
    for (const FotoItem& foto : FotosFatiador) Reselecionar(foto);
}

// The mode works on one item: several are offered to be joined first.
bool FicarComUmItem() {
    constexpr char titulo[] = "Auto Fatiador";
    const int selecionados = host::CountSelectedMediaItems(0);
    if (selecionados == 0) {
        Mensagem("Selecione itens de audio.", "A.SPLIT");
        return false;
    }
    if (selecionados == 1) return true;
    if (!Confirmar("O Auto Fatiador so trabalha com UM item por vez.\n\nDeseja fazer um BOUNCE (juntar os itens "
                   "selecionados num so) antes de continuar?",
                   titulo))
        return false;
    BounceInteligente();
    if (host::CountSelectedMediaItems(0) == 1) return true;
    Mensagem("Ainda ha mais de um item (itens em faixas diferentes?).\nSelecione apenas um item e tente de novo.",
             titulo);
    return false;
}

// True: the item was made ready and cut.
bool FazerPrimeiroCorte(const std::string& pastaDosPresets) {
    constexpr double alcaSegundos = 10.0;
    if (!FicarComUmItem()) return false;
    if (!PresetsCarregados) {
        CarregarPresets(PresetsFatiador, thresholdDb, blocoMs, fecharLacunas, pastaDosPresets);
        PresetsCarregados = true;
    }
    if (PreviewAtivo) DesfazerPreview();
    BounceEntrada(alcaSegundos);
    FotografarSelecao();
    return Quilmo_AutoSplit(fecharLacunas, blocoMs, thresholdDb);
}

}  // namespace

bool EntrarModoFatiador(const std::string& pastaDosPresets) {
    if (PreviewEmObra) return false;
    {
        const Obra obra;
        if (!FazerPrimeiroCorte(pastaDosPresets)) return false;
    }
    PreviewAtivo = ModoFatiadorAtivo = true;
    SalvarPresetAberto = PainelEmFrente = false;
    SliderArrastado = nullptr;  // a drag that the end of the last run cut short is over
    return true;
}

void RecalcularPreview(bool fechar, int bloco, double threshold) {
    const Obra obra;
    DesfazerPreview();
    ReselecionarFotos();
    if (host::CountSelectedMediaItems(0) != 0) PreviewAtivo = Quilmo_AutoSplit(fechar, bloco, threshold);
    host::UpdateArrange();
}

void RestaurarOriginal() {
    const Obra obra;
    DesfazerPreview();
    DesfazerBounceEntrada();
    ReselecionarFotos();
    host::UpdateArrange();
}

void AplicarFatias() { PreviewAtivo = BounceEntradaAtivo = false; }

void RestaurarEstadoFatiador() {
    ModoFatiadorAtivo = PainelEmFrente = SalvarPresetAberto = PreviewAtivo = PreviewEmObra = BounceEntradaAtivo = false;
    PresetsCarregados = false;
    SliderArrastado = nullptr;
    thresholdDb = -37.0;
    blocoMs = 55;
    fecharLacunas = true;
    FotosFatiador.clear();
}
