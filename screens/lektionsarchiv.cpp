#include "screens/lektionsarchiv.h"

#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "screens/formnamen.h"
#include "screens/umgebung.h"
#include "store/lektionsdatei.h"
#include "store/pfade.h"

namespace klopfmeise {

namespace {

void archivVorbereiten(Form& abbildung, int lektion) {
    for (int i = 1; i <= Lektionenzahl; ++i) {
        Label& zahl = *abbildung.find<Label>(L"lblArchiv", i);
        const bool erreicht = i <= lektion;
        zahl.setFore(erreicht ? archivfarben::erreicht : archivfarben::nichtErreicht);
        zahl.setBack(i == lektion ? archivfarben::gezeigt : archivfarben::grund);
        zahl.setPointer(erreicht ? Pointer::hand : Pointer::normal);
        Font schrift = zahl.font();
        schrift.bold = erreicht;
        zahl.setFont(schrift);
    }
}

} // namespace

void lektionsbildZeigen(const Umgebung& umgebung, int lektion, bool mitArchiv) {
    Form* abbildung = umgebung.runtime.load(formname::frmAbbildung);
    if (!abbildung)
        return;
    const std::wstring nummer = std::to_wstring(lektion);
    abbildung->find<Picture>(L"imgAbbildung")->loadFile(lektionsbild(umgebung.global, nummer));
    abbildung->setCaption(L"Lektion " + nummer);
    if (mitArchiv)
        archivVorbereiten(*abbildung, lektion);
    abbildung->find<Frame>(L"frmArchiv")->setVisible(mitArchiv);
    umgebung.runtime.show(formname::frmAbbildung);
}

} // namespace klopfmeise
