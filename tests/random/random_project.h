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
        switch (acaso.In(1, 16)) {
            case 1:
                return Midi(4);
            case 2:
                return Unreadable(Taxa, canais, Taxa);
            case 3:
                return Silence(Taxa, canais, acaso.In(0, Taxa));
            default:
                std::vector<Segment> trechos;
                for (int n = acaso.In(1, 6); n > 0; --n)
                    trechos.push_back({acaso.In(1, Taxa / 3), acaso.Chance(2) ? 0.0 : 0.5});
                return Bursts(Taxa, canais, trechos);
        }
    }
    simhost::TrackList& Faixas() { return host.project.tracks; }
    simhost::Item* UmItem() {
        return Faixas().ItemCount() ? Faixas().ItemAt(acaso.In(0, Faixas().ItemCount() - 1)) : nullptr;
    }
    double UmTempo() { return acaso.In(0, 100) * 0.05; }

    void MaisUmItem() {
        if (Faixas().Count() == 0 || acaso.Chance(8)) AddTrack(host.project, "T");
        const double inicio = UmTempo(), fim = inicio + acaso.In(1, 30) * 0.05;
        simhost::Item item = simhost::MakeItem("i", inicio, fim, UmaFonte());
        if (acaso.Chance(12)) item.takes.clear();
        if (acaso.Chance(20)) item.lock = 1;
        if (!item.takes.empty() && acaso.Chance(4)) item.takes[0]->startOffset = acaso.In(0, 10) * 0.05;
        if (!item.takes.empty() && acaso.Chance(8)) item.takes[0]->playRate = acaso.Of({0.5, 2.0, 0.0});
        Faixas().Add(*Faixas().At(acaso.In(0, Faixas().Count() - 1)), std::move(item));
    }
    void SelecionarAoAcaso() {
        const bool umSo = acaso.Chance(2);
        Faixas().SelectAll(false);
        for (int n = umSo ? 1 : acaso.In(0, 5); n > 0; --n)
            if (simhost::Item* item = UmItem()) Faixas().Select(*item, true);
        if (acaso.Chance(3) && Faixas().Count()) {
            simhost::Track& faixa = *Faixas().At(acaso.In(0, Faixas().Count() - 1));
            faixa.selected = !faixa.selected;
        }
    }
    void MexerNoProjeto() {
        switch (acaso.In(1, 9)) {
            case 1:
            case 2:
                return MaisUmItem();
            case 3:
                if (simhost::Item* item = UmItem(); item && acaso.Chance(2)) Faixas().Remove(*item);
                return;
            case 4:
                if (simhost::Item* item = UmItem()) Faixas().Reposition(*item, UmTempo());
                return;
            case 5:
                if (acaso.Chance(8) && Faixas().Count())
                    Faixas().Remove(*Faixas().At(acaso.In(0, Faixas().Count() - 1)));
                return;
            case 6:
                AddMarker(host.project, {acaso.Chance(2), UmTempo(), UmTempo() + 5, "r"}, -1);
                return;
            case 7:
                host.project.timeSelection = {UmTempo(), UmTempo() + 2};
                return;
            default:
                host.project.cursor = UmTempo();
        }
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
