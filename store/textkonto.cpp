#include "store/textkonto.h"

#include "platform/values/text.h"
#include "store/kontodatei.h"
#include "store/pfade.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace klopfmeise {

Textstand textstandAus(Kontodatei& datei) {
    Textstand stand;
    stand.TexteGesamt = oderNull(datei.lesen(Kontosatz::TexteGesamt));
    stand.AnschlaegeSchnitt = oderNull(datei.lesen(Kontosatz::AnschlaegeSchnitt));
    return stand;
}

std::optional<Textstand> textstandLesen(Files& dateien, const Globale& global) {
    Kontodatei datei(dateien, kontopfad(global));
    const Textstand stand = textstandAus(datei);
    return datei.gut() ? std::optional(stand) : std::nullopt;
}

std::optional<Wert> textZählen(Files& dateien, const Globale& global) {
    Kontodatei datei(dateien, kontopfad(global));
    const double bisher = zahlAus(datei.lesen(Kontosatz::TexteGesamt)).value_or(0);
    if (!datei.gut())
        return std::nullopt;
    // What is no count (below 0, infinite, not a number) begins anew; the largest Long stays what it is.
    constexpr double höchste = std::numeric_limits<std::int32_t>::max();
    const double neu = std::isfinite(bisher) ? std::clamp(bisher + 1, 1.0, höchste) : 1;
    const Wert wert = ganzzahl(static_cast<int>(neu));
    datei.schreiben(Kontosatz::TexteGesamt, wert);
    return wert;
}

std::optional<Wert> schnittFortschreiben(Files& dateien, const Globale& global,
                                         const std::wstring& anschläge) {
    Kontodatei datei(dateien, kontopfad(global));
    const double bisher = zahlAus(datei.lesen(Kontosatz::AnschlaegeSchnitt)).value_or(0);
    if (!datei.gut())
        return std::nullopt;
    Wert neu = anschläge;
    if (bisher > 0 && std::isfinite(bisher))
        neu = Int((spelledNumber(anschläge).value_or(0) + bisher) / 2);
    datei.schreiben(Kontosatz::AnschlaegeSchnitt, neu);
    return neu;
}

} // namespace klopfmeise
