#include "front/lern1.h"

#include "screens/bildwechsel.h"
#include "screens/formnamen.h"
#include "screens/uebungen.h"
#include "screens/zeichencodes.h"
#include "store/klassen.h"
#include "store/mdl_registry.h"
#include "store/pfade.h"

namespace klopfmeise {

namespace {

constexpr const wchar_t* nichtImAngebot = L"uebung_0";

/// Digit keys in the order of a calculator.
Rect zifferntaste(int ziffer) {
    constexpr int breite = 855;
    constexpr int höhe = 435;
    if (ziffer == 0)
        return {945, 1995, breite, höhe};
    const int spalte = (ziffer - 1) % 3;
    const int zeile = (9 - ziffer) / 3;
    return {105 + 840 * spalte, 735 + 420 * zeile, breite, höhe};
}

} // namespace

Lern1::Lern1(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::Lern1, {.picture = L"hintergrund_titel"})
    , umgebung_(umgebung)
    , cmdÜbungVorlage(
          frmSprache, L"cmdÜbungVorlage", 0, Übungszahl,
          [](int) {
              return Rect{0, 0, 900, 900};
          },
          [](int i) {
              return PictureLook{.picture = i == 0 ? nichtImAngebot : übungMit(i).bild, .visible = false};
          })
    , cmdÜbung(
          frmSprache, L"cmdÜbung", 1, Übungszahl,
          [](int i) {
              return Rect{930 + 1155 * (i - 1), 1365, 900, 900};
          },
          [this](int i) {
              const Übung& übung = übungMit(i);
              return PictureLook{.picture = übung.bild,
                                 .pointer = Pointer::hand,
                                 .toolTip = übung.titel,
                                 .click = [this, i] { cmdÜbung_Click(i); },
                                 .mouseDown = [this](MouseButton) { knopfklang(); }};
          })
    , cmdPinZahl(Frame1, L"cmdPinZahl", 0, 9, zifferntaste, [this](int i) {
        return ButtonLook{.caption = std::to_wstring(i), .click = [this, i] { cmdPinZahl_Click(i); }};
    }) {
    cmdAllesZurück.hide();
}

LabelLook Lern1::überschrift(const wchar_t* text) {
    return {.caption = text, .font = {courier, 18, true}, .align = Align::center};
}

LabelLook Lern1::angabe(const wchar_t* text) { return {.caption = text}; }

void Lern1::Zurück() {
    // A server that was out of reach may have come back.
    if (klassen_.leer())
        klassen_.lesen();
    fuß_.LblÜb.setBack(colors::white);
    fuß_.LblÜb.setCaption(L"");
    frmKlasse.show();
    frmKlasse.repaint();
    frmPin.hide();
    cmdAllesZurück.hide();
    fuß_.LblKlasse.setCaption(L"");
    fuß_.LblName.setCaption(L"");
    File1.unselect();
    frmNamen.hide();
    frmSprache.hide();
}

void Lern1::kontenZeigen() {
    const Globale& global = umgebung_.global;
    const bool zugänglich = klasseZugänglich(umgebung_.dateien(), global, global.AktuelleKlasse);
    File1.setPath(zugänglich ? klassenordner(global) : std::wstring());
}

std::array<bool, Übungszahl> Lern1::angebotDerKlasse() {
    if (File1.path().empty())
        return {};
    return angebotLesen(umgebung_.dateien(), umgebung_.global);
}

void Lern1::Form_Activate() {
    Globale& global = umgebung_.global;
    klassen_.lesen();
    global.AktuelleUebungNr = 0;
    global.AktuelleUebung.clear();
    repaint();
    Zurück();
    for (Frame* rahmen : {&frmPin, &frmInfo, &frmEnde, &frmKlasse, &frmNamen})
        rahmen->hide();
    if (global.KlasseGewaehlt == 0) {
        cmdAllesZurück.hide();
        frmKlasse.show();
        return;
    }
    kontenZeigen();
    const auto angebot = angebotDerKlasse();
    for (int i = 1; i <= Übungszahl; ++i)
        cmdÜbung(i).setEnabled(angebot[static_cast<std::size_t>(i) - 1]);
    frmSprache.show();
    fuß_.kindZeigen(global);
    cmdAllesZurück.show();
}

void Lern1::LblGruppe_MouseDown(const std::wstring& klasse) {
    Globale& global = umgebung_.global;
    knopfklang();
    global.AktuelleKlasse = klasse + L"\\";
    fuß_.LblKlasse.setCaption(global.AktuelleKlasse);
    fuß_.LblKlasse.repaint();
    kontenZeigen();
    txtKeineKonten.setFontPoints(16);
    txtKeineKonten.setFore(colors::midGrey);
    txtKeineKonten.setText(L"");
    txtKeineKonten.show();
    txtKeineKonten.repaint();
    frmNamen.show();
    frmNamen.repaint();
    if (global.KlasseGewaehlt != 1) {
        global.KlasseGewaehlt = 1;
        const auto angebot = angebotDerKlasse();
        for (int i = 1; i <= Übungszahl; ++i) {
            const bool an = angebot[static_cast<std::size_t>(i) - 1];
            cmdÜbung(i).setPicture(cmdÜbungVorlage(an ? i : 0).picture());
            cmdÜbung(i).setEnabled(an);
        }
    }
    frmPin.hide();
    frmKlasse.hide();
    frmNamen.show();
    cmdAllesZurück.show();
    if (File1.itemCount() > 0) {
        txtKeineKonten.hide();
        return;
    }
    txtKeineKonten.setFontPoints(8);
    txtKeineKonten.setFore(colors::black);
    txtKeineKonten.show();
    txtKeineKonten.setText(
        L"In der Klasse '" + global.AktuelleKlasse +
        L"' befinden sich keine Kinder-Konten! Kinder-Konten müssen im Lehrkraft-Modus angelegt werden. "
        L"Klicken Sie dazu auf den Schalter 'Lehrkraft' am unteren Bildschirmrand dieser Titelseite und "
        L"geben dann in das sich öffnende Fenster den Zugangscode für den Lehrkraft-Modus ein. Dieser Code "
        L"ist bei Auslieferung '7294'. Im Lehrkraft-Modus angekommen, wählen Sie die Klasse, innerhalb derer "
        L"Sie Kinder-Konten anlegen möchten (z.B. '" +
        global.AktuelleKlasse +
        L"'). Klicken Sie dann auf den Schalter 'Konten der Kinder' und anschließend auf den Schalter 'Neues "
        L"Kind'. Geben Sie nun (einen oder mehrere) Kindernamen ein. Verlassen Sie danach den "
        L"Lehrkraft-Modus mit den Pfeil-Schaltern und kehren zurück auf diese Titelseite.");
}

void Lern1::File1_MouseDown() {
    const std::wstring name = File1.selectedName();
    if (name.empty())
        return;
    knopfklang();
    fuß_.LblName.setCaption(name.substr(0, name.size() - Kontoendung.size()));
    fuß_.LblName.repaint();
    frmKlasse.hide();
    frmNamen.hide();
    frmSprache.show();
}

void Lern1::cmdAllesZurück_Click() {
    Zurück();
    umgebung_.global.KlasseGewaehlt = 0;
}

void Lern1::cmdLehrkraft_Click() {
    if (frmPin.visible()) {
        frmPin.hide();
        return;
    }
    Zurück();
    umgebung_.global.KlasseGewaehlt = 0;
    frmPin.show();
    frmKlasse.hide();
    Text1.setText(L"");
    Text1.setFocus();
}

void Lern1::FußknöpfeZeigen(bool zeigen) {
    for (Picture* knopf : {&cmdInfo, &imgEnde, &cmdLehrkraft})
        knopf->setVisible(zeigen);
}

void Lern1::cmdInfo_Click() {
    Zurück();
    umgebung_.global.KlasseGewaehlt = 0;
    frmKlasse.hide();
    frmPin.hide();
    frmInfo.show();
    FußknöpfeZeigen(false);
    cmdAllesZurück.hide();
}

void Lern1::cmdInfoOk_Click() {
    frmInfo.hide();
    FußknöpfeZeigen(true);
    Zurück();
    umgebung_.global.KlasseGewaehlt = 0;
}

void Lern1::imgEnde_Click() {
    Zurück();
    umgebung_.global.KlasseGewaehlt = 0;
    frmKlasse.hide();
    frmPin.hide();
    fuß_.LblKlasse.setCaption(L"");
    fuß_.LblName.setCaption(L"");
    frmEnde.show();
    FußknöpfeZeigen(false);
    cmdAllesZurück.hide();
}

void Lern1::cmdJa_Click() {
    runtime().unload(*this);
    runtime().end();
}

void Lern1::cmdNein_Click() {
    FußknöpfeZeigen(true);
    frmEnde.hide();
    Zurück();
    umgebung_.global.KlasseGewaehlt = 0;
}

void Lern1::cmdPinZahl_Click(int index) {
    knopfklang();
    Text1.setText(Text1.text() + cmdPinZahl(index).caption());
    Text1.setFocus();
    Text1.setCaret(4);
}

void Lern1::cmdPiZurück_Click() {
    knopfklang();
    Text1.setText(L"");
    Text1.setFocus();
    Text1.setCaret(4);
}

void Lern1::command1_Click() {
    Zurück();
    frmPin.hide();
}

void Lern1::Text1_KeyPress(KeyPress& taste) {
    if ((taste.code >= L'0' && taste.code <= L'9') || taste.code == CodeRück)
        return;
    taste.swallowed = true;
    if (taste.code == CodeEingabe)
        ZugangsTest();
}

void Lern1::cmdPinOk_Click() {
    // With a wrong code one can go on typing.
    Text1.setFocus();
    ZugangsTest();
}

void Lern1::ZugangsTest() {
    constexpr std::size_t stellen = 4;
    const std::wstring code = RegistryText(umgebung_.dienste().registry, L"Pin").substr(0, stellen);
    if (code != Text1.text() && code.size() >= stellen)
        return;
    knopfklang();
    Bildwechsel(umgebung_, *this, formname::einst0);
}

void Lern1::cmdÜbung_Click(int index) {
    const Übung& übung = übungMit(index);
    if (!runtime().available(übung.form))
        return;
    Globale& global = umgebung_.global;
    frmKlasse.hide();
    frmNamen.hide();
    cmdAllesZurück.show();
    global.AktuelleUebungNr = index;
    global.AktuellesKonto = fuß_.LblName.caption() + std::wstring(Kontoendung);
    global.AktuelleUebung = übung.titel;
    frmSprache.hide();
    Bildwechsel(umgebung_, *this, übung.form);
}

void Lern1::cmdKonto_Click() {
    knopfklang();
    umgebung_.global.AktuellesKonto = fuß_.LblName.caption() + std::wstring(Kontoendung);
    runtime().show(formname::Konto);
}

void Lern1::Label4_Click() {
    knopfklang();
    DokumentOeffnen(umgebung_, *this, L"https://" + Label4_0.caption() + L"/");
}

} // namespace klopfmeise
