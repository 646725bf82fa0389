#include "screens/klassenliste.h"

#include "screens/meldungen.h"
#include "store/klassen.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

namespace {

constexpr int Zeilen = 9;

} // namespace

Klassenliste::Klassenliste(Container& form, Container& rahmen, const Umgebung& umgebung,
                           KlassenlisteLook look)
    : umgebung_(umgebung)
    , Dir1(form, L"Dir1", {0, 0, 1200, 600}, {.visible = false})
    , LblGruppe(
          rahmen, L"LblGruppe", 0, Zeilen - 1,
          [&](int i) {
              const auto& [left, top, width, height] = look.ersteZeile;
              return Rect{left, top + look.abstand * i, width, height};
          },
          [&](int i) {
              return LabelLook{.font = look.schrift,
                               .wrap = false,
                               .pointer = Pointer::hand,
                               .mouseDown =
                                   [this, i, gedrückt = look.gedrückt](MouseButton knopf) {
                                       gedrückt(LblGruppe(i).caption(), knopf);
                                   },
                               .mouseMove = [this, i] { LblGruppe_MouseMove(i); }};
          })
    , ScrGruppe(rahmen, L"ScrGruppe", look.bildlauf,
                {.largeStep = look.großerSchritt,
                 .vertical = true,
                 .spoken = L"Gruppen blättern",
                 .change = [this] { füllen(); }})
    , lblUnlesbar(
          rahmen, L"lblUnlesbar",
          {look.ersteZeile.left, look.ersteZeile.top, look.ersteZeile.width, 4 * look.abstand},
          {.caption = ablageUnlesbar, .font = look.schrift, .align = Align::center, .visible = false}) {}

void Klassenliste::lesen() {
    Dir1.setPath(gruppenordner(umgebung_.global));
    ScrGruppe.setMax(std::max(0, Dir1.itemCount() - 1));
    lblUnlesbar.setVisible(!Dir1.listed());
    füllen();
}

void Klassenliste::füllen() {
    for (int i = 0; i < Zeilen; ++i)
        LblGruppe(i).setCaption(L"");
    for (int i = 0; i < Zeilen; ++i) {
        const int k = ScrGruppe.value() + i;
        if (k >= Dir1.itemCount())
            break;
        LblGruppe(i).setCaption(Dir1.item(k));
    }
    for (int i = 0; i < Zeilen; ++i)
        LblGruppe(i).setVisible(!LblGruppe(i).caption().empty());
}

void Klassenliste::keineHervorheben() {
    for (int i = 0; i < Zeilen; ++i)
        LblGruppe(i).setBack(std::nullopt);
}

void Klassenliste::LblGruppe_MouseMove(int index) {
    // The mouse moves many times within one row; only the first move changes anything.
    if (LblGruppe(index).back())
        return;
    keineHervorheben();
    LblGruppe(index).setBack(colors::blush);
}

} // namespace klopfmeise
