#include "verwaltung/befehle.h"
#include "verwaltung/pruefung.h"
#include "verwaltung/rechte.h"

#include "platform/values/text.h"
#include "store/mdl_dir.h"

#include <algorithm>

namespace klopfmeise {

std::wstring anzahl(std::size_t zahl, const wchar_t* eine, const wchar_t* mehrere) {
    return zahl == 1 ? eine : std::to_wstring(zahl) + L" " + mehrere;
}

void Prüfung::mitVorlageMelden(const std::wstring& unterpfad, const std::wstring& was,
                               const std::function<bool(const std::string& bytes)>& heil) {
    constexpr std::size_t größte = std::size_t{16} << 20;
    const std::wstring aus = vorlage_ + unterpfad;
    const auto bytes = dateien().readAll(aus, größte);
    if (!bytes || !heil(*bytes)) {
        melden(
            {.pfad = ordner() + unterpfad,
             .was = was,
             .abhilfe = L"Die Datei aus einer Sicherung oder einer heilen Datenablage nehmen (--vorlage)."});
        return;
    }
    melden({.pfad = ordner() + unterpfad,
            .was = was,
            .tat = L"die Datei aus der Vorlage nehmen",
            .beheben = [this, unterpfad, aus] { return ersetzen(ordner() + unterpfad, aus); }});
}

bool Prüfung::ersetzen(const std::wstring& pfad, const std::wstring& aus) const {
    // Asked twice: a share that blinks must not make a file look missing that is about to be replaced.
    const bool da = !dateien().search(pfad).empty() || dateien().readAll(pfad, 1);
    if (da && !beiseite_.legen(pfad))
        return false;
    const std::wstring darüber = pfad.substr(0, pfad.rfind(L'\\'));
    if (!dateien().folderExists(darüber) && dateien().makeFolder(darüber))
        demOrdnerÜbereignen(dateien(), ordner(), darüber);
    if (!dateien().copyFile(aus, pfad))
        return false;
    demOrdnerÜbereignen(dateien(), darüber, pfad);
    return true;
}

bool Prüfung::sätzeSetzen(const std::wstring& pfad, const Kontobild& bild,
                          const std::vector<std::pair<int, Wert>>& sätze) const {
    const auto bytes = dateien().readAll(pfad, bild.bytes().size() + Kontobild::länge);
    if (!bytes)
        return false;
    const Kontobild jetzt(*bytes);
    for (const auto& [nummer, wert] : sätze)
        if (jetzt.satz(nummer) != bild.satz(nummer))
            return false;
    if (!beiseite_.legen(pfad))
        return false;
    Kontodatei datei(dateien(), pfad);
    for (const auto& [nummer, wert] : sätze)
        datei.schreiben(nummer, wert);
    return datei.schließen();
}

namespace {

std::wstring alsSatz(std::wstring tat) {
    tat.front() = upper(tat.front());
    return tat;
}

std::wstring zeile(const Ablage& ablage, const Befund& befund) {
    const std::wstring abhilfe = befund.tat.empty() ? L" Abhilfe: " + befund.abhilfe
                                                    : L" Abhilfe (--beheben): " + alsSatz(befund.tat) + L".";
    return (befund.hinweis ? L"Hinweis: " : L"Mangel: ") + ablage.gezeigt(befund.pfad) + L": " + befund.was +
           abhilfe;
}

void allesPrüfen(Prüfung& prüfung) {
    // First, as what is mended later takes the rights of its folder.
    rechtePrüfen(prüfung);
    kursPrüfen(prüfung);
    textePrüfen(prüfung);
    klassenPrüfen(prüfung);
    restePrüfen(prüfung);
}

std::size_t mängel(const Prüfung& prüfung) {
    return static_cast<std::size_t>(
        std::ranges::count_if(prüfung.befunde(), [](const Befund& b) { return !b.hinweis; }));
}

/// How many were mended.
std::size_t beheben(const Ablage& ablage, const std::vector<Befund>& befunde) {
    Konsole& konsole = ablage.umfeld.konsole;
    std::size_t behoben = 0;
    for (const Befund& befund : befunde) {
        if (!befund.beheben ||
            !konsole.frage(ablage.gezeigt(befund.pfad) + L": " + alsSatz(befund.tat) + L"?"))
            continue;
        if (befund.beheben())
            ++behoben;
        else
            konsole.fehler(
                ablage.gezeigt(befund.pfad) +
                L": Das ist misslungen. Vielleicht fehlt das Recht, oder die Datei hat sich geändert.");
    }
    return behoben;
}

} // namespace

Ausgang pruefen(Umfeld& umfeld, const Aufruf& aufruf) {
    const auto ablage = ablageÖffnen(umfeld, aufruf.orte[0]);
    if (!ablage)
        return Ausgang::unzugänglich;
    Konsole& konsole = umfeld.konsole;
    Beiseite beiseite(*ablage);
    const std::wstring vorlage =
        mitBackslash(pfadAus(umfeld.dateien, aufruf.wert("vorlage", umfeld.vorlage)));
    Prüfung prüfung(*ablage, beiseite, vorlage);
    allesPrüfen(prüfung);
    for (const Befund& befund : prüfung.befunde())
        konsole.zeile(zeile(*ablage, befund));
    const std::size_t gefunden = mängel(prüfung);
    const auto heilbar = static_cast<std::size_t>(
        std::ranges::count_if(prüfung.befunde(), [](const Befund& b) { return bool(b.beheben); }));
    konsole.zeile(gefunden == 0 ? std::wstring(L"Keine Mängel.")
                                : anzahl(gefunden, L"Ein Mangel", L"Mängel") + L".");
    if (!aufruf.hat("beheben") || heilbar == 0)
        return gefunden == 0 ? Ausgang::gut : Ausgang::beanstandet;

    const std::size_t behoben = beheben(*ablage, prüfung.befunde());
    Prüfung danach(*ablage, beiseite, vorlage);
    allesPrüfen(danach);
    const std::size_t übrig = mängel(danach);
    konsole.zeile(L"Behoben: " + std::to_wstring(behoben) + L". Es bleiben: " + std::to_wstring(übrig) +
                  L".");
    if (!beiseite.ordner().empty())
        konsole.zeile(L"Der bisherige Stand liegt in " + ablage->gezeigt(beiseite.ordner()));
    return übrig == 0 ? Ausgang::gut : Ausgang::beanstandet;
}

} // namespace klopfmeise
