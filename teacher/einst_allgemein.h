#pragma once

#include "platform/controls/button.h"
#include "platform/controls/checks.h"
#include "platform/controls/control_array.h"
#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "platform/controls/text_box.h"
#include "platform/forms/form.h"
#include "screens/uebungen.h"
#include "screens/umgebung.h"
#include "store/dateinamen.h"

#include <string>

namespace klopfmeise {

/// "Allgemeine Einstellungen": switches the exercises of a class on and off, and renames the class. The
/// switches are saved when the screen goes.
class einstAllgemein final : public Form {
public:
    explicit einstAllgemein(const Umgebung& umgebung);

    void Form_Load() override;
    void Form_Unload() override { EinstellungenSpeichern(); }

private:
    void EinstellungenLaden();
    void EinstellungenSpeichern();
    void Image2_MouseDown(int i);
    void chkÜbung_Click(int i);
    void rahmenZeigen(int i);
    void cmdUmbenennenOK_Click();
    void txtUmbenennen_KeyPress(KeyPress& taste);

    Umgebung umgebung_;
    /// The class whose switches these are, with its backslash; a rename takes them along.
    std::wstring klasse_;
    /// What is not known is not saved, unless the teacher has set it.
    bool bekannt_ = false;

    Frame Frame1{*this, L"Frame1", {105, 105, 5475, 1695}, {.caption = L"Übungen aktivieren / deaktivieren"}};
    ControlArray<Picture> Image2;
    ControlArray<CheckBox> chkÜbung;
    Frame Frame4{*this, L"Frame4", {105, 1995, 5475, 1065}, {.caption = L"Gruppe umbenennen"}, 1};
    TextBox txtUmbenennen{Frame4,
                          L"txtUmbenennen",
                          {210, 420, 4215, 330},
                          {.maxLength = längsterKlassenname,
                           .spoken = L"Neuer Name der Gruppe",
                           .keys = {.press = [this](KeyPress& taste) { txtUmbenennen_KeyPress(taste); }}}};
    Button cmdUmbenennenOK{Frame4,
                           L"cmdUmbenennenOK",
                           {4410, 420, 750, 330},
                           {.caption = L"OK", .click = [this] { cmdUmbenennenOK_Click(); }}};
};

} // namespace klopfmeise
