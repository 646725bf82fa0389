#include "screens/anzeigen.h"

#include "platform/values/text.h"
#include "store/kursplatz.h"

namespace klopfmeise {

void fehlerZeigen(Label& label, int fehler) {
    label.setCaption(std::to_wstring(fehler));
    label.setBack(fehler == 0 ? colors::right : colors::wrong);
}

std::wstring genauigkeitText(double prozent, wchar_t dezimalzeichen) {
    return formatted(prozent, 2, dezimalzeichen) + L" %";
}

std::wstring lektionUndStufe(const Kurskonto& konto) {
    return L"Lektion " + std::to_wstring(konto.Lektionsnummer) + L" (Stufe " +
           std::to_wstring(konto.Stufennummer) + L")";
}

} // namespace klopfmeise
