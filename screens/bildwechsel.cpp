#include "screens/bildwechsel.h"

#include "screens/formnamen.h"

namespace klopfmeise {

bool Bildwechsel(const Umgebung& umgebung, Form& aktuell, std::wstring_view ziel) {
    FormRuntime& runtime = umgebung.runtime;
    // Asked before anything is unloaded: nobody shall be left in front of an empty backdrop.
    if (!runtime.available(ziel))
        return false;
    Form* frmTemp = runtime.load(formname::frmTemp);
    if (frmTemp) {
        frmTemp->setEnabled(true);
        runtime.show(formname::frmTemp);
        frmTemp->repaint();
    }
    runtime.unload(aktuell);
    runtime.show(ziel);
    if (frmTemp)
        frmTemp->setEnabled(false);
    return true;
}

void Vordergrund(Form& form, bool an) { form.setTopMost(an); }

void DokumentOeffnen(const Umgebung& umgebung, Form& /*besitzer*/, const std::wstring& ziel) {
    umgebung.dienste().shell.openDocument(ziel);
}

} // namespace klopfmeise
