#include "front/konto.h"

#include "screens/anzeigen.h"
#include "screens/bildwechsel.h"
#include "screens/formnamen.h"
#include "screens/uebungen.h"
#include "store/kontostand.h"

namespace klopfmeise {

Konto::Konto(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::Konto,
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
              const Übung& übung = übungMit(i);
              return PictureLook{.picture = übung.bild, .toolTip = übung.titel};
          }) {}

void Konto::Form_Load() {
    Vordergrund(*this, true);
    centre();
}

void Konto::Form_Activate() {
    const auto stand = kontostandLesen(umgebung_.dateien(), umgebung_.global);
    lblUnlesbar.setVisible(!stand);
    if (!stand) {
        for (Label* feld : {&LblLektion, &lblStufe, &lblGenau, &lblRichtig, &lblAnschlägeDurchschnitt,
                            &lblHighWolken, &lblHighTetris, &lblHighFließband})
            feld->setCaption(unbekannt);
        return;
    }
    const wchar_t dezimal = umgebung_.dezimalzeichen();
    LblLektion.setCaption(textAus(stand->Lektionsnummer, dezimal));
    lblStufe.setCaption(textAus(stand->Stufennummer, dezimal));
    lblGenau.setCaption(genauigkeitText(stand->Genauigkeit, dezimal));
    lblHighWolken.setCaption(textAus(stand->HighWolken, dezimal));
    lblHighTetris.setCaption(textAus(stand->HighSteine, dezimal));
    lblHighFließband.setCaption(textAus(stand->HighBand, dezimal));
    lblRichtig.setCaption(textAus(stand->texte.TexteGesamt, dezimal));
    lblAnschlägeDurchschnitt.setCaption(textAus(stand->texte.AnschlaegeSchnitt, dezimal));
}

} // namespace klopfmeise
