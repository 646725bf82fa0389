#include "front/konto.h"

#include "platform/values/text.h"
#include "screens/bildwechsel.h"
#include "screens/uebungen.h"
#include "store/kurskonto.h"
#include "store/pfade.h"

namespace klopfmeise {

Konto::Konto(const Umgebung& umgebung)
    : Form(umgebung.runtime, L"Konto",
           {.kind = FormKind::window, .width = 8415, .height = 7245, .back = colors::white})
    , umgebung_(umgebung)
    , Line1(
          *this, L"Line1", 0, 5,
          [](int i) {
              return LinePlace{210, 735 + 1260 * i, 8190, 735 + 1260 * i};
          },
          LineLook{.color = colors::panel})
    , cmdÜbung(
          *this, L"cmdÜbung", 1, Übungszahl,
          [](int i) {
              return Rect{420, zeile(i), 900, 900};
          },
          [](int i) {
              const Übung& übung = Übungen[static_cast<std::size_t>(i) - 1];
              return PictureLook{.picture = übung.bild, .toolTip = übung.titel};
          }) {}

void Konto::Form_Load() {
    Vordergrund(*this, true);
    centre();
}

std::wstring Konto::zahl(const Wert& wert) const {
    return gleich(wert, L"") ? L"0" : textAus(wert, umgebung_.dezimalzeichen());
}

void Konto::Form_Activate() {
    Kontodatei datei(umgebung_.dateien(), kontopfad(umgebung_.global));
    const auto platz = [this](const Wert& wert) {
        return gleich(wert, 0) || gleich(wert, L"") ? std::wstring(L"1") : zahl(wert);
    };
    LblLektion.setCaption(platz(datei.lesen(Kontosatz::Lektionsnummer)));
    lblStufe.setCaption(platz(datei.lesen(Kontosatz::Stufennummer)));
    lblGenau.setCaption(
        formatted(genauigkeitAus(datei.lesen(Kontosatz::Genauigkeit)), 2, umgebung_.dezimalzeichen()) +
        L" %");
    lblHighWolken.setCaption(zahl(datei.lesen(Kontosatz::HighWolken)));
    lblHighTetris.setCaption(zahl(datei.lesen(Kontosatz::HighSteine)));
    lblHighFließband.setCaption(zahl(datei.lesen(Kontosatz::HighBand)));
    lblRichtig.setCaption(zahl(datei.lesen(Kontosatz::TexteGesamt)));
    lblAnschlägeDurchschnitt.setCaption(zahl(datei.lesen(Kontosatz::AnschlaegeSchnitt)));
}

} // namespace klopfmeise
