#include "store/rekord.h"

#include "store/pfade.h"

#include <cmath>
#include <limits>

namespace klopfmeise {

namespace {

Wert ganzePunkte(double punkte) {
    using Lang = std::numeric_limits<std::int32_t>;
    const bool passt = punkte == std::trunc(punkte) && punkte >= Lang::min() && punkte <= Lang::max();
    return passt ? ganzzahl(static_cast<int>(punkte)) : Wert(punkte);
}

Wert einfachePunkte(double punkte) {
    return std::abs(punkte) <= std::numeric_limits<float>::max() ? Wert(static_cast<float>(punkte))
                                                                 : Wert(punkte);
}

Wert punktwert(Kontosatz spiel, double punkte) {
    switch (spiel) {
    case Kontosatz::HighSteine:
        return ganzePunkte(punkte);
    case Kontosatz::HighBand:
        return einfachePunkte(punkte);
    default:
        return punkte;
    }
}

double zahl(const Wert& rekord) { return zahlAus(rekord).value_or(0); }

/// The record of an open account; one that is no number counts as never set.
Wert rekordAus(Kontodatei& datei, Kontosatz spiel) {
    const Wert rekord = datei.lesen(spiel);
    const auto wert = zahlAus(rekord);
    return wert && std::isfinite(*wert) ? rekord : Wert(std::int16_t{0});
}

} // namespace

std::optional<Wert> rekordLesen(Files& dateien, const Globale& global, Kontosatz spiel) {
    Kontodatei datei(dateien, kontopfad(global));
    const Wert rekord = rekordAus(datei, spiel);
    return datei.gut() ? std::optional(rekord) : std::nullopt;
}

Spielausgang rekordFortschreiben(Files& dateien, const Globale& global, Kontosatz spiel, double punkte,
                                 const std::optional<Wert>& rekord) {
    Kontodatei datei(dateien, kontopfad(global));
    const Wert alt = rekordAus(datei, spiel);
    if (!datei.gut())
        return {rekord, false, !rekord || punkte > zahl(*rekord)};
    Wert Rekord = rekord.value_or(alt);
    const bool höher = std::isfinite(punkte) && punkte > zahl(Rekord);
    if (höher) {
        const Wert neu = punktwert(spiel, punkte);
        if (!datei.schreiben(spiel, neu) || !datei.schließen())
            return {Rekord, false, true};
        Rekord = neu;
    }
    return {Rekord, zahl(Rekord) > zahl(alt), false};
}

} // namespace klopfmeise
