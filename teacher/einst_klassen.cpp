#include "teacher/einst_klassen.h"

#include "screens/formnamen.h"
#include "screens/zeichencodes.h"
#include "store/dateinamen.h"
#include "store/klassen.h"
#include "teacher/einst0.h"

namespace klopfmeise {

einstKlassen::einstKlassen(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::einstKlassen,
           {.kind = FormKind::child,
            .caption = L"Gruppenliste",
            .width = 5700,
            .height = 6135,
            .frame = formname::einst0})
    , umgebung_(umgebung) {}

void einstKlassen::Form_Load() {
    moveTo(100, 100);
    klassenzeileSetzen(runtime(), klassenzeile::keineKlasse);
    umgebung_.global.AktuelleKlasse.clear();
}

void einstKlassen::Form_Activate() {
    klassen_.lesen();
    if (frmHaupt.visible())
        cmdNeueGruppe.setFocus();
}

void einstKlassen::LblGruppe_MouseDown(const std::wstring& klasse, MouseButton knopf) {
    umgebung_.klang(L"knopf.wav");
    if (knopf == MouseButton::right)
        entfernen(klasse);
    else
        wählen(klasse);
}

void einstKlassen::wählen(const std::wstring& klasse) {
    umgebung_.global.AktuelleKlasse = klasse + L"\\";
    klassenzeileSetzen(runtime(), L" " + umgebung_.global.AktuelleKlasse + L" ");
    runtime().unload(*this);
    runtime().show(formname::einstHaupt);
}

void einstKlassen::stopp(const wchar_t* titel, const std::wstring& text) {
    runtime().message({.text = text, .title = titel, .icon = MessageIcon::stop});
}

void einstKlassen::entfernen(const std::wstring& klasse) {
    const Answer antwort = runtime().message({.text = L"Soll die klasse '" + klasse +
                                                      L"' inkl. aller darin befindlichen Kinderkonten "
                                                      L"wirklich entfernt werden?",
                                              .title = L"klasse entfernen?",
                                              .icon = MessageIcon::question,
                                              .buttons = MessageButtons::yesNoCancel});
    if (antwort == Answer::yes) {
        const Klassenlöschung löschung = klasseLöschen(umgebung_.dateien(), umgebung_.global, klasse);
        if (löschung.hatUnterordner)
            stopp(L"Hinweis",
                  L"In der Gruppe '" + klasse +
                      L"' befinden sich noch Kinderkonten. Eine klasse kann erst gelöscht werden, wenn ALLE "
                      L"darin befidlichen Kinderkonten gelöscht worden sind. Klicken Sie dazu mit der linken "
                      L"Maustaste auf die klasse und im Folgemenü auf 'Konten der Kinder'. Aus der sodann "
                      L"erscheinenden Kontenliste entfernen sie alle Einträge (Kinder).");
        else if (löschung.misslungen) {
            std::wstring rest = löschung.übrig.empty()
                                    ? L"der Ordner, vielleicht mit versteckten Dateien darin"
                                    : L"der Ordner";
            for (const std::wstring& datei : löschung.übrig)
                rest += L", " + datei;
            stopp(L"Hinweis",
                  L"Die klasse '" + klasse + L"' konnte nicht ganz entfernt werden. Übrig: " + rest + L".");
        }
    }
    klassen_.lesen();
}

void einstKlassen::listeZeigen(bool liste) {
    frmHaupt.setVisible(liste);
    frmNeueGruppe.setVisible(!liste);
    if (liste)
        cmdNeueGruppe.setFocus();
}

void einstKlassen::cmdNeueGruppe_Click() {
    txtNeueGruppe.setText(L"");
    listeZeigen(false);
    txtNeueGruppe.setFocus();
}

void einstKlassen::txtNeueGruppe_KeyPress(KeyPress& taste) {
    if (taste.code != CodeEingabe)
        return;
    taste.swallowed = true;
    cmdNeueGruppeOk_Click();
}

void einstKlassen::cmdNeueGruppeOk_Click() {
    const std::wstring name = txtNeueGruppe.text();
    if (name.empty()) {
        listeZeigen(true);
        return;
    }
    const Klassenanlage anlage = klasseAnlegen(umgebung_.dateien(), umgebung_.global, name);
    switch (anlage) {
    case Klassenanlage::vorhanden:
        stopp(
            L"klasse existiert bereits!",
            L"Die von Ihnen eingegebene klasse '" + name +
                L"' existiert bereits. Bitte wählen Sie einen anderen Namen für die neu anzulegende klasse!");
        return;
    case Klassenanlage::unzulässigerName:
        stopp(L"klasse kann nicht angelegt werden!", namensregeln);
        return;
    case Klassenanlage::misslungen:
        stopp(L"klasse kann nicht angelegt werden!",
              L"Der Ordner der klasse '" + name + L"' kann in der Datenablage nicht angelegt werden.");
        return;
    case Klassenanlage::ohneEinstellungen:
        klassen_.lesen();
        stopp(
            L"Hinweis",
            L"Die klasse '" + name +
                L"' ist angelegt, aber noch keine Übung ist für sie eingeschaltet. Schalten Sie die Übungen "
                L"unter 'Allgemeine Einstellungen' ein.");
        break;
    case Klassenanlage::angelegt:
        klassen_.lesen();
        break;
    }
    listeZeigen(true);
}

} // namespace klopfmeise
