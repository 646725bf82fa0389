#include "proben/lehrkraft.h"

#include "platform/controls/checks.h"
#include "platform/controls/lists.h"
#include "platform/controls/ranges.h"
#include "platform/controls/rich_text_box.h"
#include "platform/controls/text_box.h"
#include "platform/values/text.h"
#include "screens/uebungen.h"

namespace klopfmeise {

bool Lehrkraft::betreten() {
    if (!platz_.zurTitelseite() || !m.klicken(L"cmdLehrkraft"))
        return false;
    m.user.type(L"7294\r");
    return m.runtime.loaded(formname::einst0) != nullptr;
}

bool Lehrkraft::öffnen(const std::wstring& klasse, int knopf) {
    return betreten() && platz_.klasseWählen(klasse) && m.klicken(L"cmd", knopf);
}

void Lehrkraft::konten(const std::wstring& klasse) {
    if (!öffnen(klasse, 1))
        return;
    for (int runde = 0; runde < 4 && platz_.weiter(); ++runde) {
        auto* liste = m.finden<FileList>(L"File1");
        if (!liste || liste->itemCount() == 0)
            return;
        const int reihe = platz_.würfel.bis(liste->itemCount());
        if (liste->item(reihe).starts_with(L"Eigen"))
            continue;
        m.user.pressRow(*liste, reihe);
        for (int i = 0; i < 5 && platz_.weiter(); ++i) {
            const wchar_t* schieber[] = {L"sldLektion", L"sldStufe", L"sldWdh", L"sldSpeed"};
            if (auto* was = m.finden<Slider>(schieber[platz_.würfel.bis(4)]))
                m.user.move(*was, was->min() + platz_.würfel.bis(was->max() - was->min() + 1));
            const wchar_t* option[] = {L"optDurchgang", L"optVorlage", L"optBalken"};
            if (platz_.würfel.mit(30))
                m.klicken(option[platz_.würfel.bis(3)], platz_.würfel.bis(2));
            m.vergehen(300);
        }
    }
}

void Lehrkraft::texte(const std::wstring& klasse, int tasten) {
    if (!öffnen(klasse, 2))
        return;
    auto* liste = m.finden<FileList>(L"fileText");
    if (liste->itemCount() < 3 || platz_.würfel.mit(20)) {
        m.klicken(L"cmdNeuerText");
        m.user.type(L"Ausflug " + std::to_wstring(platz_.würfel.bis(5)) + L"\r");
    } else {
        m.user.pressRow(*liste, platz_.würfel.bis(liste->itemCount()));
    }
    auto* kasten = m.finden<RichTextBox>(L"Text1");
    m.user.click(*kasten);
    for (int i = 0; i < tasten && platz_.weiter(); ++i) {
        if (kasten->text().size() > 60)
            m.user.type(L'\b');
        else if (platz_.würfel.mit(5))
            m.user.paste(L"Der Igel schläft.\r\nNoch eine Zeile");
        else
            m.user.type(platz_.würfel.eineVon(L"aeinrst ÄöüßM.,\r"));
        m.vergehen(150);
    }
    if (liste->itemCount() > 4 && platz_.würfel.mit(30) && liste->selectedName() != L"Text_001.txt")
        m.klicken(L"cmdTextLöschen");
}

void Lehrkraft::schalter(const std::wstring& klasse) {
    if (!öffnen(klasse, 3))
        return;
    for (int i = 1; i <= Übungszahl; ++i)
        if (auto* an = m.finden<CheckBox>(L"chkÜbung", i); an && (an->value() == 0 || platz_.würfel.mit(15)))
            m.klicken(L"chkÜbung", i);
    m.vergehen(500);
    m.user.choose(*m.runtime.loaded(formname::einst0), L"Klassen");
}

void Lehrkraft::umbenennen(const std::wstring& neu) {
    if (!m.klicken(L"txtUmbenennen"))
        return;
    m.user.type(neu + L"\r");
    m.vergehen(300);
}

void Lehrkraft::eigeneKlasse() {
    if (!betreten() || !m.klicken(L"cmdNeueGruppe"))
        return;
    std::wstring name = eigene_ + std::to_wstring(++zähler_);
    m.user.type(name + L"\r");
    m.vergehen(300);
    if (!öffnen(name, 1))
        return;
    m.klicken(L"cmdNeu");
    for (int i = 1; i <= 3; ++i)
        m.user.type(L"Kind " + std::to_wstring(i) + L"\r");
    m.user.type(L'\r');
    konten(name);
    schalter(name);
    for (int i = 0; i < 5 && platz_.weiter(); ++i) {
        const std::wstring neu = eigene_ + std::to_wstring(++zähler_);
        if (öffnen(name, 3)) {
            umbenennen(neu);
            name = neu;
        }
    }
    if (platz_.würfel.mit(80) && betreten()) {
        m.backend.answers = {Answer::yes};
        platz_.klasseWählen(name, MouseButton::right);
        m.backend.answers.clear();
    }
}

void Lehrkraft::ablage(const std::string& ordner) {
    if (!betreten())
        return;
    m.user.choose(*m.runtime.loaded(formname::einst0), L"Datenablage");
    if (!m.klicken(L"txtPfadNeu"))
        return;
    m.user.type(fromUtf8(ordner));
    m.klicken(L"cmdNeuerPfad");
}

void Lehrkraft::irgendwas() {
    const std::wstring& klasse =
        klassen_[static_cast<std::size_t>(platz_.würfel.bis(static_cast<int>(klassen_.size())))];
    switch (platz_.würfel.bis(5)) {
    case 0:
        return texte(klasse, 30);
    case 1:
        return schalter(klasse);
    case 2:
        return eigeneKlasse();
    default:
        return konten(klasse);
    }
}

} // namespace klopfmeise
