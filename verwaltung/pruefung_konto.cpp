#include "platform/values/text.h"
#include "store/konten.h"
#include "store/lektionsdatei.h"
#include "store/pfade.h"
#include "verwaltung/pruefung.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace klopfmeise {

namespace {

constexpr double unbegrenzt = std::numeric_limits<double>::max();

/// What a record may say; 0 stands for never set in each.
struct Feld {
    Kontosatz satz;
    const wchar_t* name;
    double höchster;
    bool ganz = true;
};

constexpr std::array felder{
    Feld{Kontosatz::Vorlagemodus, L"Üben mit gedruckter Vorlage", 1},
    Feld{Kontosatz::Fehlerstopp, L"Neubeginn bei Fehler", 1},
    Feld{Kontosatz::Zeitmodus, L"Üben mit Zeit", 1},
    // One more than there are: the course is done.
    Feld{Kontosatz::Lektionsnummer, L"Lektion", Lektionenzahl + 1},
    Feld{Kontosatz::Stufennummer, L"Stufe", Lektion::höchsteStufenzahl},
    Feld{Kontosatz::Durchgangszahl, L"Durchgänge pro Stufe", 5},
    Feld{Kontosatz::Tempowert, L"Zeit pro Buchstabe in Zehntelsekunden", 30},
    Feld{Kontosatz::Genauigkeit, L"Genauigkeit in Prozent", 100, false},
    Feld{Kontosatz::HighWolken, L"Rekord \"Wolken treffen\"", unbegrenzt, false},
    Feld{Kontosatz::HighSteine, L"Rekord \"Fallende Steine\"", unbegrenzt, false},
    Feld{Kontosatz::HighBand, L"Rekord \"Fließband\"", unbegrenzt, false},
    Feld{Kontosatz::TexteGesamt, L"Getippte Texte", unbegrenzt},
    Feld{Kontosatz::AnschlaegeSchnitt, L"Anschläge pro Minute", unbegrenzt, false},
};

std::wstring satzname(int nummer) {
    const auto feld = std::ranges::find(felder, static_cast<Kontosatz>(nummer), &Feld::satz);
    return L"Satz " + std::to_wstring(nummer) +
           (feld == felder.end() ? std::wstring() : L" (" + std::wstring(feld->name) + L")");
}

/// What the record says when it is made.
Wert anfangswert(int nummer) {
    constexpr std::int16_t üblicheDurchgänge = 3;
    return nummer == static_cast<int>(Kontosatz::Durchgangszahl) ? Wert(üblicheDurchgänge)
                                                                 : Wert(std::int16_t{0});
}

struct Konto {
    Prüfung& prüfung;
    std::wstring pfad;
    Kontobild bild;

    void melden(const std::wstring& was, const std::wstring& tat,
                const std::vector<std::pair<int, Wert>>& sätze) const {
        prüfung.melden({.pfad = pfad,
                        .was = was,
                        .tat = tat,
                        .beheben = [&p = prüfung, pfad_ = pfad, bild_ = bild, sätze] {
                            return p.sätzeSetzen(pfad_, bild_, sätze);
                        }});
    }
};

void sätzePrüfen(const Konto& konto) {
    std::vector<std::pair<int, Wert>> fehlend;
    for (int nummer = 1; nummer <= Kontobild::satzzahl; ++nummer) {
        const Kontobild::Stand stand = konto.bild.stand(nummer);
        if (stand == Kontobild::Stand::fehlt)
            fehlend.emplace_back(nummer, anfangswert(nummer));
        if (stand == Kontobild::Stand::unlesbar)
            konto.melden(satzname(nummer) + L" ist unlesbar und gilt als nie gesetzt.",
                         L"den Satz auf seinen Anfangswert setzen", {{nummer, anfangswert(nummer)}});
    }
    if (!fehlend.empty())
        konto.melden(
            std::to_wstring(fehlend.size()) +
                L" von 100 Sätzen fehlen; vielleicht ist das der Rest eines Kontos, das gelöscht oder "
                L"umgezogen wurde.",
            L"die fehlenden Sätze mit ihren Anfangswerten anlegen", fehlend);
    if (konto.bild.bytes().size() > Kontobild::länge)
        konto.prüfung.melden({.pfad = konto.pfad,
                              .was = L"Die Datei ist länger als 100 Sätze.",
                              .abhilfe = L"Keine nötig; was dahinter steht, liest niemand.",
                              .hinweis = true});
}

/// The nearest value that the record may hold.
Wert berichtigt(const Feld& feld, double zahl) {
    const double nächste = std::isnan(zahl) ? 0 : std::clamp(zahl, 0.0, feld.höchster);
    if (feld.satz == Kontosatz::Lektionsnummer)
        return ganzzahl(static_cast<int>(std::min(std::trunc(nächste), double{Lektionenzahl})));
    if (!feld.ganz)
        return nächste == unbegrenzt ? Wert(std::int16_t{0}) : Wert(nächste);
    constexpr double größteGanze = std::numeric_limits<std::int32_t>::max();
    return ganzzahl(static_cast<int>(std::min(std::trunc(nächste), größteGanze)));
}

void werteFelderPrüfen(const Konto& konto) {
    for (const Feld& feld : felder) {
        const int nummer = static_cast<int>(feld.satz);
        const Wert wert = konto.bild.wert(nummer);
        // The empty string reads as never set too.
        if (gleich(wert, L""))
            continue;
        const auto zahl = zahlAus(wert);
        if (zahl && *zahl >= 0 && *zahl <= feld.höchster && (!feld.ganz || *zahl == std::trunc(*zahl)))
            continue;
        const Wert neu = berichtigt(feld, zahl.value_or(0));
        konto.melden(satzname(nummer) + L" hat den unmöglichen Wert \"" + textAus(wert, L',') + L"\".",
                     L"den Wert auf " + textAus(neu, L',') + L" setzen", {{nummer, neu}});
    }
}

/// The stage has to be one of its lesson. A lesson whose file is broken was told of elsewhere.
void platzPrüfen(const Konto& konto) {
    const auto zahl = [&](Kontosatz satz) {
        const double wert = zahlAus(konto.bild.wert(satz)).value_or(0);
        return wert >= 1 && wert <= Lektion::höchsteStufenzahl ? static_cast<int>(wert) : 1;
    };
    const int nummer = zahl(Kontosatz::Lektionsnummer);
    const int stufe = zahl(Kontosatz::Stufennummer);
    if (nummer > Lektionenzahl)
        return;
    const Lektion lektion =
        lektionLesen(konto.prüfung.dateien(), lektionspfad(konto.prüfung.global(), nummer), stufe);
    if (!lektion.Stufenzahl || stufe <= *lektion.Stufenzahl)
        return;
    const std::wstring letzte = std::to_wstring(*lektion.Stufenzahl);
    konto.melden(L"Stufe " + std::to_wstring(stufe) + L" gibt es in Lektion " + std::to_wstring(nummer) +
                     L" nicht; sie hat " + letzte + L" Stufen.",
                 L"die Stufe auf " + letzte + L" setzen",
                 {{static_cast<int>(Kontosatz::Stufennummer), ganzzahl(*lektion.Stufenzahl)}});
}

} // namespace

void kontoPrüfen(Prüfung& prüfung, const Globale& global, const std::wstring& name) {
    Files& dateien = prüfung.dateien();
    const std::wstring pfad = kontopfad(global, name);
    if (dateien.isLink(pfad)) {
        prüfung.melden({.pfad = pfad,
                        .was = L"Das Konto ist eine Verknüpfung; die Lehrkraft kann es nicht ändern.",
                        .abhilfe = L"Die Verknüpfung durch die Datei ersetzen."});
        return;
    }
    const auto bytes = dateien.readAll(pfad, 2 * Kontobild::länge);
    if (!bytes) {
        prüfung.melden({.pfad = pfad,
                        .was = L"Das Konto ist nicht lesbar.",
                        .abhilfe = L"Die Rechte der Datei prüfen."});
        return;
    }
    if (bytes->empty()) {
        prüfung.melden({.pfad = pfad,
                        .was = L"Die Datei ist leer und noch kein Konto.",
                        .tat = L"ein neues Konto daraus machen",
                        .beheben = [&dateien, global, name] {
                            return kontoAnlegen(dateien, global, name) == Kontoanlage::angelegt;
                        }});
        return;
    }
    const Konto konto{prüfung, pfad, Kontobild(*bytes)};
    sätzePrüfen(konto);
    werteFelderPrüfen(konto);
    platzPrüfen(konto);
}

} // namespace klopfmeise
