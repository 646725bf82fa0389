#include "teacher/einst_allgemein.h"

#include "screens/formnamen.h"
#include "screens/zeichencodes.h"
#include "store/einstellungsdatei.h"
#include "store/klassen.h"
#include "teacher/einst0.h"

namespace klopfmeise {

namespace {

/// How long a picture that was pressed bears a border (ms).
constexpr int druckdauer = 50;

} // namespace

einstAllgemein::einstAllgemein(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::einstAllgemein,
           {.kind = FormKind::child,
            .caption = L"Allgemeine Einstellungen",
            .width = 5715,
            .height = 3210,
            .frame = formname::einst0})
    , umgebung_(umgebung)
    , Image2(
          Frame1, L"Image2", 1, Übungszahl,
          [](int i) {
              return Rect{210 + 1050 * (i - 1), 315, 900, 900};
          },
          [this](int i) {
              return PictureLook{.picture = übungMit(i).bild,
                                 .pointer = Pointer::hand,
                                 .toolTip = übungMit(i).titel,
                                 .mouseDown = [this, i](MouseButton) { Image2_MouseDown(i); }};
          })
    , chkÜbung(
          Frame1, L"chkÜbung", 1, Übungszahl,
          [](int i) {
              return Rect{210 + 1050 * (i - 1), 1260, 225, 225};
          },
          [this](int i) {
              return CheckLook{.spoken = übungMit(i).titel, .click = [this, i] { chkÜbung_Click(i); }};
          }) {}

void einstAllgemein::Form_Load() {
    moveTo(100, 100);
    klasse_ = umgebung_.global.AktuelleKlasse;
    EinstellungenLaden();
    txtUmbenennen.setText(L"");
}

void einstAllgemein::EinstellungenLaden() {
    const auto schalter = schalterLesen(umgebung_.dateien(), umgebung_.global, klasse_);
    bekannt_ = schalter.has_value();
    for (int i = 1; bekannt_ && i <= Übungszahl; ++i)
        chkÜbung(i).setValue((*schalter)[static_cast<std::size_t>(i) - 1] ? 1 : 0);
}

void einstAllgemein::EinstellungenSpeichern() {
    if (!bekannt_)
        return;
    std::array<bool, Übungszahl> schalter{};
    for (int i = 1; i <= Übungszahl; ++i)
        schalter[static_cast<std::size_t>(i) - 1] = chkÜbung(i).value() == 1;
    if (!schalterSchreiben(umgebung_.dateien(), umgebung_.global, klasse_, schalter))
        runtime().message({.text = L"Die Schalter der Übungen konnten nicht gespeichert werden.",
                           .title = L"Hinweis",
                           .icon = MessageIcon::stop});
}

void einstAllgemein::rahmenZeigen(int i) {
    Image2(i).setBorder(true);
    Image2(i).repaint();
    runtime().wait(druckdauer);
    Image2(i).setBorder(false);
    Image2(i).repaint();
}

void einstAllgemein::Image2_MouseDown(int i) {
    rahmenZeigen(i);
    chkÜbung(i).setValue(chkÜbung(i).value() == 1 ? 0 : 1);
    bekannt_ = true;
}

void einstAllgemein::chkÜbung_Click(int i) {
    bekannt_ = true;
    rahmenZeigen(i);
}

void einstAllgemein::txtUmbenennen_KeyPress(KeyPress& taste) {
    if (taste.code != CodeEingabe)
        return;
    taste.swallowed = true;
    cmdUmbenennenOK_Click();
}

void einstAllgemein::cmdUmbenennenOK_Click() {
    const std::wstring neu = txtUmbenennen.text();
    if (neu.empty())
        return;
    const std::wstring alt = klasse_.substr(0, klasse_.find(L'\\'));
    if (klasseUmbenennen(umgebung_.dateien(), umgebung_.global, alt, neu))
        klasse_ = neu + L"\\";
    umgebung_.global.AktuelleKlasse.clear();
    klassenzeileSetzen(runtime(), klassenzeile::keineKlasse);
    txtUmbenennen.setText(L"");
    Unloaden(runtime());
    runtime().show(formname::einstKlassen);
}

} // namespace klopfmeise
