#include "formen.h"

#include "course/tastatur0.h"
#include "course/tastatur1.h"
#include "course/tastatur2.h"
#include "course/textuebung0.h"
#include "front/hilfe.h"
#include "front/konto.h"
#include "front/lern1.h"
#include "front/start.h"
#include "games/fliessband.h"
#include "games/tastatur3.h"
#include "games/tetris.h"
#include "screens/formnamen.h"
#include "teacher/einst0.h"
#include "teacher/einst_allgemein.h"
#include "teacher/einst_code.h"
#include "teacher/einst_haupt.h"
#include "teacher/einst_klassen.h"
#include "teacher/einst_tastatur.h"
#include "teacher/einst_texte.h"
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
    eintragen<frmStart>(umgebung, formname::frmStart);
    eintragen<frmTemp>(umgebung, formname::frmTemp);
    eintragen<Lern1>(umgebung, formname::Lern1);
    eintragen<Tastatur0>(umgebung, formname::Tastatur0);
    eintragen<Tastatur1>(umgebung, formname::Tastatur1);
    eintragen<Tastatur2>(umgebung, formname::Tastatur2);
    eintragen<Textübung0>(umgebung, formname::Textübung0);
    eintragen<Tastatur3>(umgebung, formname::Tastatur3);
    eintragen<Tetris>(umgebung, formname::Tetris);
    eintragen<Fließband>(umgebung, formname::Fließband);
    eintragen<Hilfe>(umgebung, formname::Hilfe);
    eintragen<HilfeFehlerbericht>(umgebung, formname::HilfeFehlerbericht);
    eintragen<Konto>(umgebung, formname::Konto);
    eintragen<frmAbbildung>(umgebung, formname::frmAbbildung);
    eintragen<frmPfad>(umgebung, formname::frmPfad);
    eintragen<einst0>(umgebung, formname::einst0);
    eintragen<einstKlassen>(umgebung, formname::einstKlassen);
    eintragen<einstHaupt>(umgebung, formname::einstHaupt);
    eintragen<einstTastatur>(umgebung, formname::einstTastatur);
    eintragen<einstTexte>(umgebung, formname::einstTexte);
    eintragen<einstAllgemein>(umgebung, formname::einstAllgemein);
    eintragen<einstCode>(umgebung, formname::einstCode);
}

} // namespace klopfmeise
