#include "teacher/einst_code.h"

#include "screens/formnamen.h"
#include "screens/meldungen.h"
#include "screens/zeichencodes.h"
#include "store/mdl_registry.h"

namespace klopfmeise {

einstCode::einstCode(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::einstCode,
           {.kind = FormKind::child,
            .caption = L"Code für den Einstellungsmodus",
            .width = 3735,
            .height = 4875,
            .frame = formname::einst0})
    , umgebung_(umgebung) {}

void einstCode::Form_Load() {
    moveTo(100, 100);
    LblPin.setCaption(RegistryText(umgebung_.dienste().registry, L"Pin").substr(0, Codelänge));
}

void einstCode::textPin_KeyPress(KeyPress& taste) {
    if (taste.code != CodeEingabe)
        return;
    taste.swallowed = true;
    cmdPinOk_Click();
}

void einstCode::cmdPinOk_Click() {
    const std::wstring code = textPin.text();
    if (code.size() != Codelänge)
        return;
    const RegistryStatus status = RegistrySchreiben(umgebung_.dienste().registry, Maschine, Programmschlüssel,
                                                    L"Pin", code, true, true);
    if (status == RegistryStatus::success) {
        LblPin.setCaption(code);
        return;
    }
    administratorVerlangen(umgebung_, L"Klopfmeise");
    runtime().end();
}

} // namespace klopfmeise
