#include "platform/values/text.h"
#include "store/konten.h"
#include "store/pfade.h"
#include "verwaltung/befehle.h"
#include "verwaltung/rechte.h"

#include <algorithm>

namespace klopfmeise {

namespace {

/// A running exercise writes at every key, into the old class too: there it would make the account anew.
constexpr double geradeEben = 60; // seconds

std::wstring kindesordner(const Globale& global, const std::wstring& name) {
    return klassenordner(global) + name;
}

/// The name as the account spells it; empty if there is none.
std::wstring vorhandenesKonto(const Ablage& ablage, const std::wstring& gesucht) {
    const auto namen = kontenAuflisten(ablage.dateien(), ablage.global);
    auto gefunden = std::ranges::find(namen, gesucht);
    if (gefunden == namen.end())
        gefunden = std::ranges::find_if(namen, [&](const auto& name) { return sameName(name, gesucht); });
    return gefunden == namen.end() ? std::wstring() : *gefunden;
}

} // namespace

Ausgang umziehen(Umfeld& umfeld, const Aufruf& aufruf) {
    Konsole& konsole = umfeld.konsole;
    Files& dateien = umfeld.dateien;
    auto alt = ablageÖffnen(umfeld, aufruf.orte[0]);
    if (!alt)
        return Ausgang::unzugänglich;
    Ablage neu = *alt;
    if (!klasseWählen(*alt, aufruf.orte[1]) || !klasseWählen(neu, aufruf.orte[3]))
        return Ausgang::beanstandet;
    const auto ablehnen = [&](const std::wstring& warum) {
        konsole.fehler(warum + L" Das Konto ist, wo es war.");
        return Ausgang::beanstandet;
    };
    const std::wstring von = klassenname(alt->global);
    const std::wstring nach = klassenname(neu.global);
    if (von == nach)
        return ablehnen(L"Das Kind ist schon in der Klasse \"" + nach + L"\".");
    const std::wstring name = vorhandenesKonto(*alt, fromUtf8(aufruf.orte[2]));
    if (name.empty()) {
        konsole.fehler(L"In der Klasse \"" + von + L"\" gibt es kein Konto \"" + fromUtf8(aufruf.orte[2]) +
                       L"\".");
        return Ausgang::beanstandet;
    }
    const std::wstring konto = kontopfad(alt->global, name);
    const std::wstring ziel = kontopfad(neu.global, name);
    if (dateien.isLink(konto))
        return ablehnen(L"Das Konto von \"" + name + L"\" ist eine Verknüpfung.");
    if (!dateien.search(ziel).empty() || dateien.isLink(ziel))
        return ablehnen(L"In der Klasse \"" + nach + L"\" gibt es schon ein Konto \"" + name + L"\".");
    if (dateien.folderExists(kindesordner(neu.global, name)))
        return ablehnen(L"In der Klasse \"" + nach + L"\" gibt es schon einen Ordner \"" + name + L"\".");
    const auto sekunden = alter(dateien, konto);
    if (sekunden && *sekunden < geradeEben &&
        !konsole.frage(
            L"Das Konto von " + name +
            L" wurde in der letzten Minute beschrieben. Ist das Kind abgemeldet und soll umziehen?"))
        return ablehnen(L"Das Kind darf nicht angemeldet sein, sonst entsteht sein Konto in der alten Klasse "
                        L"neu.");
    if (!dateien.rename(konto, ziel)) {
        konsole.fehler(L"Das Konto von \"" + name + L"\" kann nicht in die Klasse \"" + nach +
                       L"\" verschoben werden.");
        return Ausgang::unzugänglich;
    }
    const std::wstring ordner = kindesordner(alt->global, name);
    if (dateien.folderExists(ordner) && !dateien.rename(ordner, kindesordner(neu.global, name))) {
        const bool zurück = dateien.rename(ziel, konto);
        konsole.fehler(L"Der Ordner von \"" + name + L"\" kann nicht verschoben werden. Das Konto ist " +
                       (zurück ? L"wieder in der alten Klasse." : L"in der neuen Klasse."));
        return Ausgang::unzugänglich;
    }
    rechteAngleichen(dateien, klassenordner(neu.global), ziel);
    konsole.zeile(name + L": von \"" + von + L"\" nach \"" + nach + L"\" umgezogen.");
    return Ausgang::gut;
}

} // namespace klopfmeise
