#include "platform/machine/whole_file.h"
#include "platform/values/text.h"
#include "store/konten.h"
#include "store/pfade.h"
#include "verwaltung/befehle.h"
#include "verwaltung/klassenbericht.h"
#include "verwaltung/rechte.h"

#include <algorithm>
#include <filesystem>

namespace klopfmeise {

namespace {

/// "23.11.2026"
std::wstring datum(const std::tm& zeit) {
    const std::wstring jahrMonatTag = tag(zeit);
    return jahrMonatTag.substr(8, 2) + L"." + jahrMonatTag.substr(5, 2) + L"." + jahrMonatTag.substr(0, 4);
}

Klassenbericht berichtLesen(const Ablage& ablage) {
    Klassenbericht bericht{klassenname(ablage.global), datum(ablage.umfeld.jetzt), {}};
    Globale global = ablage.global;
    for (const std::wstring& name : kontenAuflisten(ablage.dateien(), global)) {
        const std::wstring pfad = kontopfad(global, name);
        // Opening an account that was deleted meanwhile would make it anew.
        if (ablage.dateien().search(pfad).empty())
            continue;
        global.AktuellesKonto = name;
        bericht.kinder.push_back(
            {name, ablage.dateien().isLink(pfad) ? std::nullopt : kontostandLesen(ablage.dateien(), global)});
    }
    return bericht;
}

/// True for a place in the folders of classes, lessons and texts: a report must not land on an account.
bool inDerAblage(const Ablage& ablage, const std::string& ort) {
    namespace fs = std::filesystem;
    std::error_code fehler;
    const fs::path ziel = fs::weakly_canonical(ort, fehler);
    const fs::path wurzel =
        fs::weakly_canonical(maschinenpfad(ablage.dateien(), ablage.global.Datenpfad), fehler);
    for (const char* teil : {"Gruppen", "Data"}) {
        const std::string anfang = (wurzel / teil / "").string();
        if (ziel.string().starts_with(anfang))
            return true;
    }
    return false;
}

} // namespace

Ausgang bericht(Umfeld& umfeld, const Aufruf& aufruf) {
    Konsole& konsole = umfeld.konsole;
    const std::string art = aufruf.wert("als", "tabelle");
    const auto schreiber = art == "tabelle" ? alsTabelle
                           : art == "csv"   ? alsCsv
                           : art == "html"  ? alsHtml
                                            : nullptr;
    if (!schreiber) {
        konsole.fehler(L"Für --als gibt es tabelle, csv und html.");
        return Ausgang::falscherAufruf;
    }
    auto ablage = ablageÖffnen(umfeld, aufruf.orte[0]);
    if (!ablage)
        return Ausgang::unzugänglich;
    if (!klasseWählen(*ablage, aufruf.orte[1]))
        return Ausgang::beanstandet;
    const std::string ort = aufruf.wert("ausgabe");
    if (!ort.empty() && inDerAblage(*ablage, ort)) {
        konsole.fehler(L"Zwischen Konten und Lektionen wird kein Bericht geschrieben: " + fromUtf8(ort));
        return Ausgang::beanstandet;
    }
    const Klassenbericht bericht = berichtLesen(*ablage);
    Rights rechte;
    rechte.mode = vertraulich;
    const std::string text = schreiber(bericht);
    Ausgang ausgang = Ausgang::gut;
    for (const Berichtszeile& kind : bericht.kinder)
        if (!kind.stand) {
            konsole.fehler(L"Das Konto von " + kind.name + L" kann nicht gelesen werden.");
            ausgang = Ausgang::unzugänglich;
        }
    if (ort.empty()) {
        konsole.roh(text);
    } else if (!replaceFile(ort, text, rechte)) {
        konsole.fehler(L"Der Bericht kann nicht nach " + fromUtf8(ort) + L" geschrieben werden.");
        ausgang = Ausgang::unzugänglich;
    }
    return ausgang;
}

} // namespace klopfmeise
