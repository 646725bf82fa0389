#include "store/kursplatz.h"

#include "store/genauigkeit.h"
#include "store/kontodatei.h"
#include "store/pfade.h"

#include <optional>
#include <utility>

namespace klopfmeise {

namespace {

/// Records 29 to 36; none if they could not be read.
std::optional<Kurskonto> kurskontoLesen(Files& dateien, const std::wstring& pfad) {
    Kontodatei datei(dateien, pfad);
    Kurskonto konto{kursparameterAus(datei)};
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
