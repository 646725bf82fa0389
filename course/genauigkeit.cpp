#include "course/genauigkeit.h"

#include "platform/values/text.h"
#include "store/kurskonto.h"

#include <cmath>

namespace klopfmeise {

double genauigkeitWeiter(double bisher, const Tippstand& stand) {
    const double lektion = stand.Lektionsnummer;
    const double lauf = 100.0 * (stand.Pos - stand.Fehlerzahl) / stand.Pos;
    const double neu = (lektion * bisher + lauf) / (lektion + 1);
    if (!std::isfinite(neu))
        return bisher;
    return neu < 0 ? 0.01 : neu;
}

std::optional<double> genauigkeitFortschreiben(Files& dateien, const std::wstring& konto,
                                               const Tippstand& stand) {
    Kontodatei datei(dateien, konto);
    const double bisher = genauigkeitAus(datei.lesen(Kontosatz::Genauigkeit));
    if (!datei.gut())
        return std::nullopt;
    const double neu = genauigkeitWeiter(bisher, stand);
    datei.schreiben(Kontosatz::Genauigkeit, neu);
    return neu;
}

std::wstring genauigkeitText(double prozent, wchar_t dezimalzeichen) {
    return formatted(prozent, 2, dezimalzeichen) + L" %";
}

} // namespace klopfmeise
