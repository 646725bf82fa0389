#include "formen.h"

#include "course/tastatur0.h"
#include "course/tastatur1.h"
#include "course/tastatur2.h"
#include "course/textuebung0.h"
#include "front/hilfe.h"
#include "front/konto.h"
#include "front/lern1.h"
#include "front/start.h"
#include "teacher/frm_abbildung.h"
#include "teacher/frm_pfad.h"

namespace klopfmeise {

namespace {

template <class F>
void eintragen(const Umgebung& umgebung, std::wstring_view name) {
    umgebung.runtime.add(name, [umgebung] { return std::make_unique<F>(umgebung); });
}

} // namespace

void formenEintragen(const Umgebung& umgebung) {
    eintragen<frmStart>(umgebung, L"frmStart");
    eintragen<frmTemp>(umgebung, L"frmTemp");
    eintragen<Lern1>(umgebung, L"Lern1");
    eintragen<Tastatur0>(umgebung, L"Tastatur0");
    eintragen<Tastatur1>(umgebung, L"Tastatur1");
    eintragen<Tastatur2>(umgebung, L"Tastatur2");
    eintragen<Textübung0>(umgebung, L"Textübung0");
    eintragen<Hilfe>(umgebung, L"Hilfe");
    eintragen<HilfeFehlerbericht>(umgebung, L"HilfeFehlerbericht");
    eintragen<Konto>(umgebung, L"Konto");
    eintragen<frmAbbildung>(umgebung, L"frmAbbildung");
    eintragen<frmPfad>(umgebung, L"frmPfad");
}

} // namespace klopfmeise
