#include "screens/fusszeile.h"

#include "screens/bildknopf.h"
#include "screens/bildwechsel.h"
#include "screens/formnamen.h"
#include "screens/uebungen.h"
#include "store/pfade.h"

#include <utility>

namespace klopfmeise {

namespace {

LabelLook feld(std::wstring text, Color grund) {
    return {.caption = std::move(text), .back = grund, .align = Align::center, .wrap = false};
}

} // namespace

Fußzeile::Fußzeile(Container& form, std::wstring Übung, Color grund)
    : Label3_1(form, L"Label3", {105, 7980, 600, 240}, {.caption = L"Name:"}, 1)
    , Label3_0(form, L"Label3", {105, 8295, 840, 240}, {.caption = L"Klasse:"}, 0)
    , Label3_13(form, L"Label3", {105, 8610, 720, 240}, {.caption = L"Übung:"}, 13)
    , LblName(form, L"LblName", {945, 7980, 2640, 225}, feld(L"", colors::white))
    , LblKlasse(form, L"LblKlasse", {945, 8295, 2640, 225}, feld(L"", colors::white))
    , LblÜb(form, L"LblÜb", {945, 8610, 2640, 225}, feld(std::move(Übung), grund)) {}

void Fußzeile::kindZeigen(const Globale& global) {
    LblName.setCaption(kontoname(global));
    LblKlasse.setCaption(global.AktuelleKlasse);
}

Übungsfuß::Übungsfuß(Form& form, const Umgebung& umgebung, ÜbungsfußLook look)
    : form_(form)
    , umgebung_(umgebung)
    , gegangen_(std::move(look.gegangen))
    , angaben_(form, übungMit(look.übung).titel, look.grund)
    , imgNeu(look.neu.picture.empty()
                 ? std::nullopt
                 : std::optional<Picture>(std::in_place, form, L"imgNeu", Rect{8820, 7980, 900, 900},
                                          std::move(look.neu)))
    , imgHilfe(form, L"imgHilfe", {9870, 7980, 900, 900},
               bildknopf(umgebung, L"knopf_hilfe", L"Hilfe", [this] { imgHilfe_Click(); }), look.hilfeIndex)
    , imgEnde(form, L"imgEnde", {10920, 7980, 900, 900},
              bildknopf(umgebung, L"knopf_ende", L"Zurück zur Titelseite", [this] { imgEnde_Click(); })) {}

void Übungsfuß::imgHilfe_Click() { umgebung_.runtime.show(formname::Hilfe); }

void Übungsfuß::imgEnde_Click() {
    if (Bildwechsel(umgebung_, form_, formname::Lern1) && gegangen_)
        gegangen_();
}

} // namespace klopfmeise
