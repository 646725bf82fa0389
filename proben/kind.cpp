#include "proben/kind.h"

#include "platform/controls/button.h"
#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/ranges.h"
#include "platform/values/text.h"
#include "screens/uebungen.h"
#include "store/kontodatei.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

namespace {

constexpr int lektion = static_cast<int>(Kontosatz::Lektionsnummer);
constexpr int stufe = static_cast<int>(Kontosatz::Stufennummer);
constexpr int texte = static_cast<int>(Kontosatz::TexteGesamt);

/// The number behind the words in front of it; 0 if there is none.
int zahlNach(const std::wstring& text, std::wstring_view davor) {
    const auto ort = text.find(davor);
    return ort == text.npos ? 0
                            : static_cast<int>(std::wcstol(text.c_str() + ort + davor.size(), nullptr, 10));
}

} // namespace

bool Spielplatz::zurTitelseite() {
    for (int versuch = 0; versuch < 8 && !m.runtime.ended(); ++versuch) {
        if (Form* rahmen = m.runtime.loaded(formname::einst0))
            m.user.close(*rahmen);
        else if (m.aktiv() != formname::Lern1 && !m.klicken(L"imgEnde"))
            m.user.close(*m.runtime.active());
        if (m.aktiv() != formname::Lern1)
            continue;
        for (const wchar_t* zurück : {L"cmdAllesZurück", L"cmdNein", L"cmdInfoOk", L"command1"})
            m.klicken(zurück);
        return true;
    }
    return false;
}

bool Spielplatz::klasseWählen(const std::wstring& klasse, MouseButton knopf) {
    auto* leiste = m.finden<ScrollBar>(L"ScrGruppe");
    for (int oben = 0; leiste && oben <= leiste->max(); oben += 9) {
        m.user.move(*leiste, oben);
        for (int i = 0; i < 9; ++i)
            if (auto* zeile = m.finden<Label>(L"LblGruppe", i); zeile->caption() == klasse) {
                m.user.click(*zeile, knopf);
                return true;
            }
    }
    return false;
}

Schulkind::Schulkind(Spielplatz& platz, std::wstring klasse, std::wstring name)
    : platz_(platz)
    , m(platz.m)
    , klasse_(std::move(klasse))
    , name_(std::move(name))
    , datei_("Gruppen/" + toUtf8(klasse_) + "/" + toUtf8(name_) + "._") {}

bool Schulkind::anmelden() {
    if (!platz_.zurTitelseite() || !platz_.klasseWählen(klasse_))
        return false;
    auto* liste = m.finden<FileList>(L"File1");
    for (int i = 0; i < liste->itemCount(); ++i)
        if (liste->item(i) == name_ + L"._") {
            m.user.pressRow(*liste, i);
            return true;
        }
    return false;
}

bool Schulkind::öffnen(int übung) {
    if (!anmelden() || !m.klicken(L"cmdÜbung", übung))
        return false;
    m.vergehen(500);
    return m.aktiv() == übungMit(übung).form;
}

void Schulkind::erwarten(int satz, double wert) {
    erwartet_[satz] = wert;
    m.tagebuch.erwarten(datei_, satz, wert);
}

void Schulkind::platzMerken() {
    const std::wstring stand = m.aufschrift<Label>(L"lblStufe");
    stufenzahl_ = zahlNach(stand, L" von ");
    // Who comes for the first time believes the screen.
    if (!erwartet_.contains(stufe)) {
        erwartet_[lektion] = zahlNach(m.aufschrift<Label>(L"LblLektion"), L"Lektion ");
        erwartet_[stufe] = zahlNach(stand, L"Stufe ");
    }
}

void Schulkind::tippen(int tasten, int fehler) {
    const std::wstring seite(m.aktiv());
    for (int i = 0; i < tasten && m.aktiv() == seite && platz_.weiter(); ++i) {
        const std::wstring ziel = m.runtime.active()->spokenTarget();
        if (ziel.empty())
            return;
        wchar_t taste = ziel == L"Leertaste" ? L' ' : ziel == L"Eingabetaste" ? L'\r' : ziel.front();
        if (ziel == L"Rücktaste")
            taste = L'\b';
        else if (platz_.würfel.mit(fehler))
            taste = platz_.würfel.eineVon(L"aeinrst ");
        m.user.type(taste);
        m.vergehen(50 + platz_.würfel.bis(250));
        m.klicken(L"cmdNeu");
    }
}

void Schulkind::kurs(int tasten, int fehler) {
    if (!öffnen(ÜbungKurs))
        return;
    platzMerken();
    for (int rest = tasten; rest > 0 && platz_.weiter() && m.aktiv() == formname::Tastatur0; rest -= 200) {
        m.user.type(L' ');
        if (m.aktiv() == formname::Tastatur0)
            break;
        tippen(std::min(rest, 200), fehler);
        if (m.aktiv() == formname::Tastatur0) {
            const bool letzte = erwartet_[stufe] >= stufenzahl_;
            erwarten(lektion, erwartet_[lektion] + (letzte ? 1 : 0));
            erwarten(stufe, letzte ? 1 : erwartet_[stufe] + 1);
            platzMerken();
        } else if (platz_.würfel.mit(30)) {
            m.klicken(L"imgNeu");
        }
    }
}

void Schulkind::text(int tasten, int fehler) {
    if (!öffnen(ÜbungText))
        return;
    if (!erwartet_.contains(texte))
        erwartet_[texte] = zahlNach(m.aufschrift<Label>(L"lblRichtig"), L"");
    tippen(tasten, fehler);
    if (m.aktiv() == formname::HilfeFehlerbericht) {
        erwarten(texte, erwartet_[texte] + 1);
        m.vergehen(300);
        m.user.close(*m.runtime.active());
    }
}

void Schulkind::spiel(int nummer, int züge, int fehler) {
    if (!öffnen(nummer))
        return;
    const int satz = static_cast<int>(Kontosatz::HighWolken) + nummer - ÜbungWolken;
    if (!erwartet_.contains(satz))
        erwartet_[satz] = zahlNach(m.aufschrift<Label>(L"lblHigh"), L"");
    if (!m.klicken(L"cmdNeuesSpiel"))
        return;
    // The score is read in the last wait of a game, behind which the page is ready for another.
    int punkte = 0;
    m.gewartet = [&] {
        punkte = zahlNach(m.aufschrift<Label>(nummer == ÜbungSteine ? L"lblScore" : L"lblPunkte"), L"");
    };
    const auto* start = m.finden<Button>(L"cmdNeuesSpiel");
    for (int zug = 0; zug < züge && !start->visible() && platz_.weiter(); ++zug) {
        const std::wstring ziel = m.runtime.active()->spokenTarget();
        const std::wstring tasten = nummer == ÜbungBand || ziel.size() < 3
                                        ? ziel.substr(0, 1)
                                        : std::wstring{ziel[0], ziel[2], L' ', L'\r'};
        m.user.type(tasten.empty() || platz_.würfel.mit(fehler) ? L'x' : platz_.würfel.eineVon(tasten));
        m.vergehen(50 + platz_.würfel.bis(500));
    }
    m.gewartet = nullptr;
    if (start->visible() && punkte > erwartet_[satz])
        erwarten(satz, punkte);
}

void Schulkind::nachsehen() {
    if (!anmelden())
        return;
    m.klicken(L"cmdKonto");
    m.vergehen(500);
    if (!öffnen(ÜbungKurs))
        return;
    for (const wchar_t* knopf : {L"imgHilfe", L"imgAbbildung"}) {
        m.klicken(knopf);
        m.klicken(knopf, 0);
        m.vergehen(500);
        if (m.aktiv() != formname::Tastatur0)
            m.user.close(*m.runtime.active());
    }
}

void Schulkind::irgendwas() {
    const int fehler = platz_.würfel.mit(50) ? 0 : 8;
    switch (platz_.würfel.bis(8)) {
    case 0:
        return text(1500, fehler);
    case 1:
        return spiel(ÜbungWolken, 250, 20);
    case 2:
        return spiel(ÜbungSteine, 400, 5);
    case 3:
        return spiel(ÜbungBand, 300, 20);
    case 4:
        return nachsehen();
    default:
        return kurs(400, fehler);
    }
}

} // namespace klopfmeise
