#include "teacher/einst_texte.h"

#include "screens/formnamen.h"
#include "screens/meldungen.h"
#include "screens/tastenplan.h"
#include "screens/zeichencodes.h"
#include "store/einstellungsdatei.h"

#include <algorithm>
#include <set>

namespace klopfmeise {

namespace {

constexpr Color warnrot = RGB(128, 0, 0);

/// The first character of a text that no key types; 0 if there is none.
wchar_t untippbaresZeichen(const std::wstring& text) {
    static const std::set<wchar_t> tippbar = [] {
        std::set<wchar_t> alle{L'\r', L'\n'};
        for (const Taste& taste : tasten())
            alle.insert(taste.zeichen.begin(), taste.zeichen.end());
        return alle;
    }();
    const auto gefunden = std::ranges::find_if(text, [](wchar_t c) { return !tippbar.contains(c); });
    return gefunden == text.end() ? L'\0' : *gefunden;
}

} // namespace

einstTexte::einstTexte(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::einstTexte,
           {.kind = FormKind::child,
            .caption = L"Eigene Texte",
            .width = 11475,
            .height = 5010,
            .frame = formname::einst0})
    , umgebung_(umgebung) {}

void einstTexte::Form_Activate() {
    fileText.setPath(texteordner(umgebung_.global));
    auswählen(textnameLesen(umgebung_.dateien(), umgebung_.global));
    anzeigen();
}

void einstTexte::Form_Unload() {
    while (!sichern())
        if (runtime().message(
                {.text = L"Der Text '" + geladener() +
                         L"' kann gerade nicht gespeichert werden. Soll es noch einmal versucht "
                         L"werden? Sonst gehen die letzten Änderungen verloren.",
                 .title = L"Hinweis",
                 .icon = MessageIcon::question,
                 .buttons = MessageButtons::yesNoCancel}) == Answer::no)
            return;
}

bool einstTexte::auswählen(const std::wstring& name) {
    for (int i = 0; i < fileText.itemCount(); ++i)
        if (fileText.item(i) == name) {
            fileText.select(i);
            return true;
        }
    return false;
}

void einstTexte::fileText_Click() {
    // What is in the box already and could not be written must not be loaded over.
    const bool derselbe = fileText.selectedName() == geladener();
    if (derselbe ? sichern() : freigeben())
        laden();
    anzeigen();
}

void einstTexte::laden() {
    const std::wstring name = fileText.selectedName();
    LblEinstellung.setCaption(name);
    geladen_ = textZugänglich(umgebung_.dateien(), umgebung_.global, name)
                   ? Text1.loadFile(textpfad(umgebung_.global, name))
                   : RtfOutcome::failed;
    if (geladen_ == RtfOutcome::failed)
        return;
    const int länge = static_cast<int>(Text1.text().size());
    Text1.select(0, länge);
    Text1.formatSelection(Text1.ownFormat(), RtfAlignment::left);
    Text1.select(länge, 0);
    untippbar_ = untippbaresZeichen(Text1.text());
    übergelaufen_ = false;
    // Where that fails the file still holds the text, only in another look.
    speichern();
    gewählt_ = textWählen(umgebung_.dateien(), umgebung_.global, name);
}

bool einstTexte::speichern() {
    return textZugänglich(umgebung_.dateien(), umgebung_.global, geladener()) &&
           Text1.saveFile(textpfad(umgebung_.global, geladener()));
}

bool einstTexte::sichern() {
    ungesichert_ = ungesichert_ && !speichern();
    tmrSichern.setEnabled(ungesichert_);
    return !ungesichert_;
}

bool einstTexte::freigeben() {
    if (sichern())
        return true;
    runtime().message({.text = L"Der Text '" + geladener() +
                               L"' kann gerade nicht gespeichert werden. Er bleibt geöffnet, damit nichts "
                               L"verloren geht.",
                       .title = L"Hinweis",
                       .icon = MessageIcon::stop});
    if (!auswählen(geladener()))
        fileText.unselect();
    return false;
}

void einstTexte::Text1_Change() {
    ungesichert_ = true;
    übergelaufen_ = false;
    untippbar_ = untippbaresZeichen(Text1.text());
    sichern();
    anzeigen();
}

void einstTexte::anzeigen() {
    const bool lesbar = geladen_ != RtfOutcome::failed;
    const bool gewählt = !fileText.selectedName().empty();
    LblLänge.setCaption(L"Textlänge: " + std::to_wstring(Text1.text().size()) + L" Zeichen");
    frmText.setVisible((gewählt && lesbar) || ungesichert_);
    lblUnlesbar.setCaption(fileText.listed() ? L"Dieser Text kann nicht gelesen und nicht gewählt werden."
                                             : ablageUnlesbar);
    lblUnlesbar.setVisible(!fileText.listed() || (gewählt && !lesbar));
    lblHinweis.setFore(ungesichert_ || !gewählt_ || übergelaufen_ ? warnrot : colors::black);
    lblHinweis.setCaption(hinweis());
}

std::wstring einstTexte::hinweis() const {
    if (ungesichert_)
        return L"Der Text kann gerade nicht gespeichert werden. Er bleibt hier stehen.";
    if (!gewählt_)
        return L"Die Auswahl wurde nicht gespeichert: Die Klasse behält ihren Text.";
    if (geladen_ == RtfOutcome::cut)
        return L"Der Text ist zu lang. Er ist hier gekürzt und lässt sich nicht ändern.";
    if (übergelaufen_)
        return L"Ein Text fasst höchstens 100.000 Zeichen. Was nicht hineinpasste, fehlt.";
    if (untippbar_ == 0)
        return {};
    return L"Nicht alle Zeichen lassen sich tippen: " +
           (untippbar_ == L'\t' ? L"Tabulator" : std::wstring(1, untippbar_));
}

void einstTexte::cmdNeuerText_Click() {
    frmNeuerText.show();
    txtNeuerText.setText(L"");
    txtNeuerText.setFocus();
}

void einstTexte::txtNeuerText_KeyPress(KeyPress& taste) {
    if (taste.code != CodeEingabe)
        return;
    taste.swallowed = true;
    cmdAufgabeOk_Click();
}

void einstTexte::cmdAufgabeOk_Click() {
    const std::wstring name = txtNeuerText.text();
    frmNeuerText.hide();
    if (!name.empty() && freigeben()) {
        const auto datei = textAnlegen(umgebung_.dateien(), umgebung_.global, name);
        fileText.refresh();
        if (datei)
            auswählen(*datei);
        anzeigen();
    }
    if (frmText.visible())
        Text1.setFocus();
}

void einstTexte::cmdTextLöschen_Click() {
    const std::wstring name = fileText.selectedName();
    switch (textLöschen(umgebung_.dateien(), umgebung_.global, name)) {
    case Textlöschung::letzter:
        runtime().message({.text = L"Es muss mindestens ein Text in der Liste der eigenen Texte enthalten "
                                   L"sein. Der aktuelle Text kann daher nicht gelöscht werden.",
                           .title = L"Klopfmeise"});
        return;
    case Textlöschung::geblieben:
        runtime().message({.text = L"Der Text '" + name + L"' konnte nicht gelöscht werden.",
                           .title = L"Hinweis",
                           .icon = MessageIcon::stop});
        break;
    case Textlöschung::gelöscht:
        ungesichert_ = ungesichert_ && name != geladener();
        break;
    }
    fileText.refresh();
    // What is not saved either stays open; that needs no second message.
    if (!ungesichert_ || !auswählen(geladener()))
        fileText.select(0);
    anzeigen();
}

} // namespace klopfmeise
