#include "store/kontostand.h"

#include "store/genauigkeit.h"
#include "store/kontodatei.h"
#include "store/pfade.h"

namespace klopfmeise {

namespace {

/// A number of lesson or stage; one that was never set reads as 1.
Wert oderEins(const Wert& wert) {
    return gleich(wert, 0) || gleich(wert, L"") ? Wert(std::int16_t{1}) : wert;
}

} // namespace

std::optional<Kontostand> kontostandLesen(Files& dateien, const Globale& global) {
    Kontodatei datei(dateien, kontopfad(global));
    Kontostand stand;
    stand.Lektionsnummer = oderEins(datei.lesen(Kontosatz::Lektionsnummer));
    stand.Stufennummer = oderEins(datei.lesen(Kontosatz::Stufennummer));
    stand.Genauigkeit = genauigkeitAus(datei.lesen(Kontosatz::Genauigkeit));
    stand.HighWolken = oderNull(datei.lesen(Kontosatz::HighWolken));
    stand.HighSteine = oderNull(datei.lesen(Kontosatz::HighSteine));
    stand.HighBand = oderNull(datei.lesen(Kontosatz::HighBand));
    stand.texte = textstandAus(datei);
    return datei.gut() ? std::optional(stand) : std::nullopt;
}

} // namespace klopfmeise
