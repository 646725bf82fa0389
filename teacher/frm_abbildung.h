#pragma once

#include "platform/controls/control_array.h"
#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "platform/forms/form.h"
#include "screens/umgebung.h"

namespace klopfmeise {

/// The keyboard picture of a lesson in a window of its own. The opener loads the picture, sets the caption
/// and prepares or hides the strip of lesson numbers; all state is in the controls.
class frmAbbildung final : public Form {
public:
    explicit frmAbbildung(const Umgebung& umgebung);

    void Form_Load() override { centre(); }
    void Form_Deactivate() override { runtime().unload(*this); }

private:
    void lblArchiv_Click(int index);

    Umgebung umgebung_;

    Picture imgAbbildung{*this,
                         L"imgAbbildung",
                         {0, 0, 10770, 5520},
                         {.stretch = false, .spoken = L"Tastatur mit den Tasten der Lektion"}};
    Frame frmArchiv{*this, L"frmArchiv", {105, 5250, 10605, 870}, {.back = colors::white}};
    Label lblArchivKopf{
        frmArchiv,
        L"lblArchiv",
        {630, 105, 9360, 330},
        {.caption = L"Lektionsbilder-Archiv", .font = {courier, 14.25, true}, .align = Align::center},
        0};
    ControlArray<Label> lblArchiv;
};

} // namespace klopfmeise
