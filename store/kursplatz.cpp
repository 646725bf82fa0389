#include "store/kursplatz.h"

#include "store/genauigkeit.h"
#include "store/kontodatei.h"
#include "store/pfade.h"

#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace klopfmeise {

namespace {

/// A record as a whole number; `sonst` where it is Empty, 0, an empty string or no number at all.
int zahlOder(const Wert& wert, int sonst) {
    const double zahl = std::trunc(zahlAus(wert).value_or(0));
    // Not a number fails both comparisons and lands on the default too.
    constexpr double grenze = std::numeric_limits<int>::max() / 2;
    return zahl != 0 && zahl >= -grenze && zahl <= grenze ? static_cast<int>(zahl) : sonst;
}

/// As above for what is counted: below 1 it has no meaning and reads as never set.
int anzahlOder(const Wert& wert, int sonst) {
    const int zahl = zahlOder(wert, sonst);
    return zahl < 1 ? sonst : zahl;
}

/// Records 29 to 36; none if they could not be read.
std::optional<Kurskonto> kurskontoLesen(Files& dateien, const std::wstring& pfad) {
    Kontodatei datei(dateien, pfad);
    Kurskonto konto;
    konto.Vorlagemodus = zahlOder(datei.lesen(Kontosatz::Vorlagemodus), 0);
    konto.Fehlerstopp = zahlOder(datei.lesen(Kontosatz::Fehlerstopp), 0);
    konto.Zeitmodus = zahlOder(datei.lesen(Kontosatz::Zeitmodus), 0);
    konto.Lektionsnummer = zahlOder(datei.lesen(Kontosatz::Lektionsnummer), 1);
    konto.Stufennummer = zahlOder(datei.lesen(Kontosatz::Stufennummer), 1);
    konto.Durchgangszahl = anzahlOder(datei.lesen(Kontosatz::Durchgangszahl), 1);
    konto.Tempowert = anzahlOder(datei.lesen(Kontosatz::Tempowert), 10);
    konto.Genauigkeit = genauigkeitAus(datei.lesen(Kontosatz::Genauigkeit));
    return datei.gut() ? std::optional(konto) : std::nullopt;
}

/// What keeps a child from the stage of an account that was read.
Hindernis hindernisBei(const Kurskonto& konto, const Lektion& lektion) {
    if (lektion.vollständig())
        return Hindernis::keines;
    return konto.Lektionsnummer > Lektionenzahl ? Hindernis::kursZuEnde : Hindernis::keinText;
}

} // namespace

Kursplatz kursplatzLesen(Files& dateien, const Globale& global) {
    const auto konto = kurskontoLesen(dateien, kontopfad(global));
    if (!konto)
        return {};
    Lektion lektion = lektionLesen(dateien, lektionspfad(global, konto->Lektionsnummer), konto->Stufennummer);
    const Hindernis hindernis = hindernisBei(*konto, lektion);
    return {hindernis, *konto, std::move(lektion)};
}

void stufeWeiter(Kurskonto& konto, int Stufenzahl) {
    ++konto.Stufennummer;
    if (konto.Stufennummer == Stufenzahl + 1) {
        konto.Stufennummer = 1;
        ++konto.Lektionsnummer;
    }
}

void stufeBestanden(Files& dateien, const Globale& global, Kurskonto& konto, int Stufenzahl) {
    const int bisher = konto.Lektionsnummer;
    stufeWeiter(konto, Stufenzahl);
    Kontodatei datei(dateien, kontopfad(global));
    if (datei.schreiben(Kontosatz::Lektionsnummer, ganzzahl(konto.Lektionsnummer)) &&
        !datei.schreiben(Kontosatz::Stufennummer, ganzzahl(konto.Stufennummer)))
        datei.schreiben(Kontosatz::Lektionsnummer, ganzzahl(bisher));
}

} // namespace klopfmeise
