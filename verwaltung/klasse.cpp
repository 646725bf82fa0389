#include "platform/values/text.h"
#include "store/dateinamen.h"
#include "store/klassen.h"
#include "verwaltung/befehle.h"
#include "verwaltung/rechte.h"

namespace klopfmeise {

Ausgang klasse(Umfeld& umfeld, const Aufruf& aufruf) {
    auto ablage = ablageÖffnen(umfeld, aufruf.orte[0]);
    if (!ablage)
        return Ausgang::unzugänglich;
    Konsole& konsole = umfeld.konsole;
    const std::wstring name = fromUtf8(aufruf.orte[1]);
    if (name.size() > längsterKlassenname) {
        konsole.fehler(L"Der Name der Klasse ist zu lang: höchstens " + std::to_wstring(längsterKlassenname) +
                       L" Zeichen.");
        return Ausgang::beanstandet;
    }
    const Klassenanlage anlage = klasseAnlegen(umfeld.dateien, ablage->global, name);
    if (anlage == Klassenanlage::angelegt || anlage == Klassenanlage::ohneEinstellungen) {
        const std::wstring gruppen = gruppenordner(ablage->global);
        for (const std::wstring& neu : {name, name + L"\\KME.ein"})
            demOrdnerÜbereignen(umfeld.dateien, gruppen, gruppen + neu);
    }
    switch (anlage) {
    case Klassenanlage::angelegt:
        konsole.zeile(L"Klasse \"" + name + L"\": angelegt.");
        return Ausgang::gut;
    case Klassenanlage::vorhanden:
        // It may be spelled in another case.
        if (!klasseWählen(*ablage, aufruf.orte[1]))
            return Ausgang::beanstandet;
        konsole.zeile(L"Klasse \"" + klassenname(ablage->global) + L"\": war schon da.");
        return Ausgang::gut;
    case Klassenanlage::ohneEinstellungen:
        konsole.fehler(L"Die Klasse \"" + name +
                       L"\" ist angelegt, aber ohne Einstellungen: Noch ist keine Übung eingeschaltet. "
                       L"Abhilfe: klopfmeise-verwaltung pruefen … --beheben");
        return Ausgang::beanstandet;
    case Klassenanlage::unzulässigerName:
        konsole.fehler(L"Die Klasse \"" + name + L"\" kann nicht angelegt werden. " + namensregeln);
        return Ausgang::beanstandet;
    case Klassenanlage::misslungen:
        break;
    }
    konsole.fehler(L"Der Ordner der Klasse \"" + name + L"\" kann nicht angelegt werden.");
    return Ausgang::unzugänglich;
}

} // namespace klopfmeise
