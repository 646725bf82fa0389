#include "store/genauigkeit.h"

#include "store/kontodatei.h"
#include "store/pfade.h"

#include <cmath>

namespace klopfmeise {

double genauigkeitAus(const Wert& wert) {
    const double zahl = zahlAus(wert).value_or(0);
    return zahl == 0 || !std::isfinite(zahl) ? 100 : zahl;
}

double genauigkeitWeiter(double bisher, const Tippstand& stand) {
    const double lektion = stand.Lektionsnummer;
    const double lauf = 100.0 * (stand.Pos - stand.Fehlerzahl) / stand.Pos;
    const double neu = (lektion * bisher + lauf) / (lektion + 1);
    if (!std::isfinite(neu))
        return bisher;
    return neu < 0 ? 0.01 : neu;
}

std::optional<double> genauigkeitFortschreiben(Files& dateien, const Globale& global,
                                               const Tippstand& stand) {
    Kontodatei datei(dateien, kontopfad(global));
    const double bisher = genauigkeitAus(datei.lesen(Kontosatz::Genauigkeit));
    if (!datei.gut())
        return std::nullopt;
    const double neu = genauigkeitWeiter(bisher, stand);
    datei.schreiben(Kontosatz::Genauigkeit, neu);
    return neu;
}

} // namespace klopfmeise
