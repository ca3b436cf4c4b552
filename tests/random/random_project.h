// tests/random/random_project.h
// A project that is anything, as the host's own windows and other scripts change it.
#pragma once
#include "tests/lice/support.h"
#include "tests/support/panel_scene.h"

class ProjetoAleatorio : public Painel {
  protected:
    Random acaso;

    simhost::SourceRef UmaFonte() {
        const int canais = acaso.In(1, 2);
        const int qual = acaso.In(1, 16);
        if (qual == 1) return Midi(4);
        if (qual == 2) return Unreadable(Taxa, canais, Taxa);
        if (qual == 3) return Silence(Taxa, canais, acaso.In(0, Taxa));
        std::vector<Segment> trechos;
        for (int n = acaso.In(1, 6); n > 0; --n)
            trechos.push_back({acaso.In(1, Taxa / 3), acaso.Chance(2) ? 0.0 : 0.5});
        return Bursts(Taxa, canais, trechos);
    }
    simhost::TrackList& Faixas() { return host.project.tracks; }
    simhost::Item* UmItem() {
        return Faixas().ItemCount() ? Faixas().ItemAt(acaso.In(0, Faixas().ItemCount() - 1)) : nullptr;
    }
    simhost::Track* UmaFaixa() { return Faixas().Count() ? Faixas().At(acaso.In(0, Faixas().Count() - 1)) : nullptr; }
    double UmTempo() { return acaso.In(0, 100) * 0.05; }

    void MaisUmItem() {
        if (Faixas().Count() == 0 || acaso.Chance(8)) AddTrack(host.project, "T");
        const double inicio = UmTempo(), fim = inicio + acaso.In(1, 30) * 0.05;
        simhost::Item item = simhost::MakeItem("i", inicio, fim, UmaFonte());
        if (acaso.Chance(12)) item.takes.clear();
        if (acaso.Chance(20)) item.lock = 1;
        if (!item.takes.empty() && acaso.Chance(4)) item.takes[0]->startOffset = acaso.In(0, 10) * 0.05;
        if (!item.takes.empty() && acaso.Chance(8)) item.takes[0]->playRate = acaso.Of({0.5, 2.0, 0.0});
        Faixas().Add(*UmaFaixa(), std::move(item));
    }
    void SelecionarAoAcaso() {
        const bool umSo = acaso.Chance(2);
        Faixas().SelectAll(false);
        for (int n = umSo ? 1 : acaso.In(0, 5); n > 0; --n)
            if (simhost::Item* item = UmItem()) Faixas().Select(*item, true);
        if (simhost::Track* faixa = acaso.Chance(3) ? UmaFaixa() : nullptr) faixa->selected = !faixa->selected;
    }
    void MexerNoProjeto() {
        const int qual = acaso.In(1, 9);
        simhost::Item* const item = qual == 3 || qual == 4 ? UmItem() : nullptr;
        if (qual <= 2) MaisUmItem();
        if (qual == 3 && item && acaso.Chance(2)) Faixas().Remove(*item);
        if (qual == 4 && item) Faixas().Reposition(*item, UmTempo());
        if (qual == 5 && acaso.Chance(8) && Faixas().Count()) Faixas().Remove(*UmaFaixa());
        if (qual == 6) AddMarker(host.project, {acaso.Chance(2), UmTempo(), UmTempo() + 5, "r"}, -1);
        if (qual == 7) host.project.timeSelection = {UmTempo(), UmTempo() + 2};
        if (qual > 7) host.project.cursor = UmTempo();
    }
    void ProjetoNovo() {
        ProjetoVazio();
        host.preferences = {.undoRestoresSelection = !acaso.Chance(3),
                            .undoPoints = acaso.Of({200, 30, 3}),
                            .splitCrossfade = acaso.Of({0.0, 0.0, 0.01}),
                            .sortsAtOnce = !acaso.Chance(3)};
    }

  private:
    static constexpr int Taxa = 4000;
};
