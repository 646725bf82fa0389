#include "teacher/einst_tastatur.h"

#include "platform/values/text.h"
#include "screens/formnamen.h"
#include "screens/lektionsarchiv.h"
#include "screens/zeichencodes.h"
#include "store/dateinamen.h"
#include "store/konten.h"
#include "store/lektionsdatei.h"

#include <algorithm>

namespace klopfmeise {

namespace {

/// What the keyboard can put into the name of an account: nothing that a file name cannot hold.
bool namenszeichen(int code) {
    constexpr std::wstring_view weitere = L"ÄÖÜäöü_-";
    return code == CodeRück || code == CodeLeer || (code > 64 && code < 91) || (code >= 96 && code < 123) ||
           (code >= L'0' && code <= L'9') || weitere.find(static_cast<wchar_t>(code)) != weitere.npos;
}

std::wstring ohneEndung(std::wstring datei) {
    datei.resize(datei.size() - std::min(datei.size(), Kontoendung.size()));
    return datei;
}

} // namespace

einstTastatur::einstTastatur(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::einstTastatur,
           {.kind = FormKind::child,
            .caption = L"Kurs-Konten",
            .width = 10380,
            .height = 6795,
            .frame = formname::einst0})
    , umgebung_(umgebung) {}

void einstTastatur::Form_Activate() {
    const std::wstring ordner = klassenordner(umgebung_.global);
    if (File1.path() == ordner) {
        listeAuffrischen();
        return;
    }
    File1.setPath(ordner);
    File1.setFocus();
    EinstellungenLaden();
}

void einstTastatur::listeAuffrischen() {
    File1.refresh();
    // Another machine may have deleted the account that was selected.
    if (File1.selected() < 0)
        EinstellungenLaden();
}

void einstTastatur::stopp(const wchar_t* titel, const std::wstring& text) {
    runtime().message({.text = text, .title = titel, .icon = MessageIcon::stop});
}

void einstTastatur::namenseingabeZeigen(bool zeigen) {
    // The keys must not stay with a box that nobody sees.
    if (frmNeuesKind.visible() && !zeigen)
        File1.setFocus();
    frmNeuesKind.setVisible(zeigen);
    // Beneath the frame, only the Tab key would find them.
    cmdNeu.setVisible(!zeigen);
    cmdLöschen.setVisible(!zeigen);
}

void einstTastatur::cmdNeu_Click() {
    namenseingabeZeigen(true);
    Text1.setFocus();
    Text1.setText(L"");
    listeAuffrischen();
}

void einstTastatur::Text1_KeyPress(KeyPress& taste) {
    if (taste.code == CodeEingabe) {
        taste.swallowed = true;
        Namenseingabe();
        return;
    }
    taste.swallowed = !namenszeichen(taste.code);
}

void einstTastatur::cmdText1Ok_Click() {
    if (Namenseingabe())
        namenseingabeZeigen(false);
    else
        Text1.setFocus();
}

bool einstTastatur::Namenseingabe() {
    const std::wstring name = Text1.text();
    if (name.empty()) {
        namenseingabeZeigen(false);
        return true;
    }
    umgebung_.global.AktuellesKonto = name;
    switch (kontoAnlegen(umgebung_.dateien(), umgebung_.global, name)) {
    case Kontoanlage::vorhanden:
        // The next name of a list that is typed takes its place.
        Text1.selectAll();
        return true;
    case Kontoanlage::unzulässigerName:
        stopp(L"Konto kann nicht angelegt werden!", namensregeln);
        return false;
    case Kontoanlage::misslungen:
        listeAuffrischen();
        stopp(L"Konto kann nicht angelegt werden!",
              L"Das Konto von '" + name + L"' kann in der Datenablage nicht angelegt werden.");
        return false;
    case Kontoanlage::angelegt:
        break;
    }
    listeAuffrischen();
    const std::wstring datei = name + std::wstring(Kontoendung);
    for (int i = 0; i < File1.itemCount(); ++i)
        if (File1.item(i) == datei)
            File1.select(i);
    Text1.setText(L"");
    return true;
}

void einstTastatur::cmdLöschen_Click() {
    namenseingabeZeigen(false);
    if (File1.selectedName().empty())
        return;
    const std::wstring name = ohneEndung(File1.selectedName());
    const Answer antwort =
        runtime().message({.text = L"Soll das Konto von '" + name + L"' wirklich gelöscht werden?",
                           .title = L"Kinderkonto löschen?",
                           .icon = MessageIcon::question,
                           .buttons = MessageButtons::yesNoCancel});
    if (antwort != Answer::yes)
        return;
    const Kontorest rest = kontoLöschen(umgebung_.dateien(), umgebung_.global, name);
    File1.refresh();
    File1.unselect();
    EinstellungenLaden();
    if (rest.konto)
        stopp(L"Hinweis", L"Das Konto von '" + name + L"' konnte nicht gelöscht werden. Es ist noch da.");
    else if (!rest.leer()) {
        std::wstring übrig;
        for (const std::wstring& datei : rest.dateien)
            übrig += (übrig.empty() ? L"" : L", ") + datei;
        stopp(L"Hinweis", L"Das Konto von '" + name +
                              L"' ist gelöscht, aber im Ordner des Kindes sind noch da: " + übrig + L".");
    }
}

bool einstTastatur::kontoGewählt() {
    if (File1.selectedName().empty())
        return false;
    umgebung_.global.AktuellesKonto = ohneEndung(File1.selectedName());
    return true;
}

void einstTastatur::EinstellungenLaden() {
    geladen_.reset();
    lblUngespeichert.hide();
    const bool gewählt = kontoGewählt();
    const auto werte = gewählt ? kursparameterLesen(umgebung_.dateien(), umgebung_.global) : std::nullopt;
    frmEinstellungen.setVisible(werte.has_value());
    lblUnlesbar.setCaption(File1.listed() ? kontoUnlesbar : klasseUnlesbar);
    lblUnlesbar.setVisible(!File1.listed() || (gewählt && !werte));
    if (!werte)
        return;
    geladen_ = File1.selectedName();
    kursZuEnde_ = werte->Lektionsnummer > Lektionenzahl;
    (werte->Zeitmodus == 1 ? optBalken_1 : optBalken_0).setValue(1);
    (werte->Fehlerstopp == 1 ? optDurchgang_1 : optDurchgang_0).setValue(1);
    (werte->Vorlagemodus == 1 ? optVorlage_1 : optVorlage_0).setValue(1);
    sldLektion.setValue(werte->Lektionsnummer);
    sldWdh.setValue(werte->Durchgangszahl);
    sldSpeed.setValue(werte->Tempowert);
    lektion_ = sldLektion.value();
    lektionZeigen(werte->Stufennummer);
    zahlenZeigen();
    Timer1_Timer();
}

void einstTastatur::lektionZeigen(int Stufennummer) {
    const std::wstring pfad = lektionspfad(umgebung_.global, lektion_);
    Lektion lektion = lektionLesen(umgebung_.dateien(), pfad, Stufennummer);
    // The number of stages of a lesson that cannot be read is no reason to move a child.
    sldStufe.setMax(
        lektion.Stufenzahl.value_or(std::clamp(Stufennummer, größteStufe, Lektion::höchsteStufenzahl)));
    sldStufe.setValue(Stufennummer);
    if (sldStufe.value() != Stufennummer)
        lektion = lektionLesen(umgebung_.dateien(), pfad, sldStufe.value());
    if (!lektion.Lektionstitel.empty())
        lblLektionTitel.setCaption(lektion.Lektionstitel);
    if (!lektion.stufe)
        return;
    lblStufeTitel.setCaption(lektion.stufe->Stufentitel);
    txtStufeText.setText(lektion.stufe->Stufentext);
}

void einstTastatur::zahlenZeigen() {
    LblLektion.setCaption(std::to_wstring(sldLektion.value()));
    lblStufe.setCaption(std::to_wstring(sldStufe.value()));
    lblSpeed.setCaption(numberText(sldSpeed.value() / 10.0, umgebung_.dezimalzeichen()));
    lblWdh.setCaption(std::to_wstring(sldWdh.value()));
}

void einstTastatur::sld_Change() {
    zahlenZeigen();
    EinstellungenSpeichern();
}

void einstTastatur::EinstellungenSpeichern() {
    if (geladen_ != File1.selectedName() || !kontoGewählt())
        return;
    lektion_ = sldLektion.value();
    const bool fertig = kursZuEnde_ && sldLektion.value() == sldLektion.max();
    const bool gespeichert = kursparameterSchreiben(umgebung_.dateien(), umgebung_.global,
                                                    {.Vorlagemodus = optVorlage_1.value(),
                                                     .Fehlerstopp = optDurchgang_1.value(),
                                                     .Zeitmodus = optBalken_1.value(),
                                                     .Lektionsnummer = sldLektion.value() + (fertig ? 1 : 0),
                                                     .Stufennummer = sldStufe.value(),
                                                     .Durchgangszahl = sldWdh.value(),
                                                     .Tempowert = sldSpeed.value()});
    EinstellungenLaden();
    lblUngespeichert.setVisible(!gespeichert);
}

void einstTastatur::Timer1_Timer() { frmZeit.setVisible(optBalken_0.value() == 0); }

void einstTastatur::imgAbbildung_Click() { lektionsbildZeigen(umgebung_, lektion_, false); }

void einstTastatur::cmdKonto_Click() {
    if (kontoGewählt())
        runtime().show(formname::Konto);
}

} // namespace klopfmeise
