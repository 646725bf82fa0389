#include "teacher/einst_haupt.h"

#include "screens/formnamen.h"
#include "teacher/einst0.h"

namespace klopfmeise {

einstHaupt::einstHaupt(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::einstHaupt,
           {.kind = FormKind::child,
            .caption = L"Hauptmenü",
            .width = 6870,
            .height = 2970,
            .frame = formname::einst0})
    , cmd_1(*this, L"cmd", {630, 1155, 900, 900},
            knopf(L"einst_konten", L"Kurs-Konten", formname::einstTastatur), 1)
    , cmd_3(*this, L"cmd", {3045, 1155, 900, 900},
            knopf(L"einst_allgemein", L"Allgemeine Einstellungen", formname::einstAllgemein), 3)
    , cmd_2(*this, L"cmd", {5460, 1155, 900, 900},
            knopf(L"einst_texte", L"Eigene Texte", formname::einstTexte), 2) {}

ButtonLook einstHaupt::knopf(const wchar_t* bild, const wchar_t* titel, std::wstring_view ziel) {
    return {.picture = bild, .toolTip = titel, .click = [this, ziel] { cmd_Click(ziel); }};
}

void einstHaupt::cmd_Click(std::wstring_view ziel) {
    Unloaden(runtime());
    runtime().show(ziel);
}

} // namespace klopfmeise
