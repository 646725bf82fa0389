#include "teacher/einst0.h"

#include "screens/formnamen.h"

namespace klopfmeise {

einst0::einst0(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::einst0,
           {.kind = FormKind::frame,
            .caption = L"Einstellungsmodus",
            .back = olive,
            .menu = {{L"Klassen", L"Gruppen", [this] { Klassen_Click(); }},
                     {L"Hauptmenü", L"Hauptmenü", [this] { Hauptmenü_Click(); }},
                     {L"Daten",
                      L"Daten",
                      {},
                      {{L"Code", L"Code für Einstellungsmodus", [this] { Code_Click(); }},
                       {L"Datenablage", L"Datenablage", [this] { Datenablage_Click(); }}}}},
            .state = WindowState::maximised})
    , umgebung_(umgebung) {}

void einst0::Form_Load() {
    umgebung_.global.AktuelleKlasse.clear();
    centre();
    runtime().show(formname::einstKlassen);
}

void einst0::Form_Resize() {
    if (windowState() != WindowState::maximised)
        setWindowState(WindowState::maximised);
    zeileAnpassen();
}

void einst0::zeileAnpassen() {
    Picture1.setWidth(width());
    LblKlasse.setWidth(width());
}

void einst0::Form_Unload() { runtime().show(formname::Lern1); }

void einst0::Klassen_Click() {
    Unloaden(runtime());
    runtime().show(formname::einstKlassen);
}

void einst0::Hauptmenü_Click() {
    if (!umgebung_.global.AktuelleKlasse.empty()) {
        Unloaden(runtime());
        runtime().show(formname::einstHaupt);
        return;
    }
    LblKlasse.setCaption(klassenzeile::keineGruppe);
    LblKlasse.repaint();
    runtime().message({.text = L"Das Hauptmenü kann nur geöffnet werden, wenn Sie zuvor eine Gruppe in der "
                               L"Gruppenliste ausgewählt haben.",
                       .title = L"Keine Gruppe ausgewählt...",
                       .icon = MessageIcon::stop});
}

void einst0::Code_Click() {
    Unloaden(runtime());
    runtime().show(formname::einstCode);
}

void einst0::Datenablage_Click() {
    LblKlasse.setCaption(klassenzeile::keineGruppe);
    umgebung_.global.AktuelleKlasse.clear();
    Unloaden(runtime());
    runtime().show(formname::frmPfad);
}

void einst0::Timer1_Timer() {
    const bool alarm = LblKlasse.caption() == klassenzeile::keineGruppe;
    const Color grund = alarm ? colors::red : colors::white;
    LblKlasse.setBack(grund);
    LblKlasse.setFore(LblKlasse.fore() == colors::black ? grund : colors::black);
    if (alarm)
        runtime().unload(formname::einstTastatur);
}

void Unloaden(FormRuntime& runtime) {
    for (const std::wstring_view fenster :
         {formname::einstKlassen, formname::einstCode, formname::einstTastatur, formname::einstHaupt,
          formname::einstAllgemein, formname::einstTexte, formname::frmPfad})
        runtime.unload(fenster);
}

void klassenzeileSetzen(FormRuntime& runtime, const std::wstring& text) {
    Form* rahmen = runtime.loaded(formname::einst0);
    if (auto* zeile = rahmen ? rahmen->find<Label>(L"LblKlasse") : nullptr)
        zeile->setCaption(text);
}

} // namespace klopfmeise
