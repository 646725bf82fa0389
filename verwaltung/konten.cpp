#include "store/konten.h"

#include "platform/values/text.h"
#include "store/dateinamen.h"
#include "store/pfade.h"
#include "verwaltung/befehle.h"
#include "verwaltung/namensliste.h"
#include "verwaltung/rechte.h"

#include <fstream>
#include <istream>
#include <vector>

namespace klopfmeise {

namespace {

/// More than any school has children.
constexpr std::size_t größteListe = std::size_t{8} << 20;

/// None if it cannot be read, or is too long to be a list.
std::optional<std::string> inhalt(std::istream& strom) {
    std::string bytes(größteListe + 1, '\0');
    strom.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(strom.gcount()));
    return strom.bad() || !strom.eof() ? std::nullopt : std::optional(bytes);
}

std::optional<std::string> listeLesen(Konsole& konsole, const std::string& ort) {
    if (ort == "-")
        return inhalt(konsole.eingabe());
    std::ifstream datei(ort, std::ios::binary);
    return datei ? inhalt(datei) : std::nullopt;
}

struct Summe {
    std::size_t angelegt = 0;
    std::size_t schonDa = 0;
    std::size_t abgelehnt = 0;
    std::size_t misslungen = 0;
};

/// What became of a line, as a person reads it.
std::wstring eintragen(const Ablage& ablage, const Listenzeile& zeile, Summe& summe) {
    if (!zeile.fehler.empty()) {
        ++summe.abgelehnt;
        return L"abgelehnt. " + zeile.fehler;
    }
    if (zeile.name.size() > längsterKontoname) {
        ++summe.abgelehnt;
        return L"abgelehnt. Ein Name hat höchstens " + std::to_wstring(längsterKontoname) +
               L" Zeichen. Listen mit Vorname und Name kürzt --namen=kurz.";
    }
    const std::wstring pfad = kontopfad(ablage.global, zeile.name);
    switch (kontoAnlegen(ablage.dateien(), ablage.global, zeile.name)) {
    case Kontoanlage::angelegt:
        demOrdnerÜbereignen(ablage.dateien(), klassenordner(ablage.global), pfad);
        ++summe.angelegt;
        return L"angelegt";
    case Kontoanlage::vorhanden: {
        ++summe.schonDa;
        const std::wstring datei = zeile.name + std::wstring(Kontoendung);
        const std::wstring da = ablage.dateien().search(pfad);
        return da == datei || da.size() <= Kontoendung.size()
                   ? L"war schon da"
                   : L"war schon da, als " + da.substr(0, da.size() - Kontoendung.size());
    }
    case Kontoanlage::unzulässigerName:
        ++summe.abgelehnt;
        return std::wstring(L"abgelehnt. ") + namensregeln;
    case Kontoanlage::misslungen:
        break;
    }
    ++summe.misslungen;
    return L"misslungen. Das Konto kann nicht geschrieben werden.";
}

std::optional<Namensart> namensartAus(const std::string& wort) {
    if (wort == "voll")
        return Namensart::voll;
    if (wort == "kurz")
        return Namensart::kurz;
    if (wort == "vorname")
        return Namensart::vorname;
    return std::nullopt;
}

} // namespace

Ausgang konten(Umfeld& umfeld, const Aufruf& aufruf) {
    Konsole& konsole = umfeld.konsole;
    const auto art = namensartAus(aufruf.wert("namen", "voll"));
    if (!art) {
        konsole.fehler(L"Für --namen gibt es voll, kurz und vorname.");
        return Ausgang::falscherAufruf;
    }
    auto ablage = ablageÖffnen(umfeld, aufruf.orte[0]);
    if (!ablage)
        return Ausgang::unzugänglich;
    if (!klasseWählen(*ablage, aufruf.orte[1])) {
        konsole.fehler(L"Eine Klasse legt an: klopfmeise-verwaltung klasse ORDNER KLASSE");
        return Ausgang::beanstandet;
    }
    const auto bytes = listeLesen(konsole, aufruf.orte[2]);
    if (!bytes) {
        konsole.fehler(L"Die Liste " + fromUtf8(aufruf.orte[2]) + L" kann nicht gelesen werden.");
        return Ausgang::unzugänglich;
    }
    const Namensliste liste = namenslisteAus(*bytes, klassenname(ablage->global), *art);
    if (!liste.fehler.empty()) {
        konsole.fehler(liste.fehler);
        return Ausgang::beanstandet;
    }
    Summe summe;
    for (const Listenzeile& zeile : liste.zeilen)
        konsole.zeile(L"Zeile " + std::to_wstring(zeile.nummer) + L", " + zeile.name + L": " +
                      eintragen(*ablage, zeile, summe));
    std::wstring schluss = L"Klasse " + klassenname(ablage->global) + L": " +
                           std::to_wstring(summe.angelegt) + L" angelegt, " + std::to_wstring(summe.schonDa) +
                           L" schon da, " + std::to_wstring(summe.abgelehnt) + L" abgelehnt";
    if (summe.misslungen > 0)
        schluss += L", " + std::to_wstring(summe.misslungen) + L" misslungen";
    konsole.zeile(schluss + L".");
    if (liste.übergangen > 0) {
        std::wstring andere;
        for (const std::wstring& name : liste.andereKlassen)
            andere += (andere.empty() ? L"" : L", ") + name;
        konsole.zeile(L"Übergangene Zeilen anderer Klassen: " + std::to_wstring(liste.übergangen) + L" (" +
                      andere + L").");
    }
    if (liste.zeilen.empty()) {
        konsole.fehler(L"In der Liste steht kein Kind dieser Klasse.");
        return Ausgang::beanstandet;
    }
    return summe.misslungen > 0  ? Ausgang::unzugänglich
           : summe.abgelehnt > 0 ? Ausgang::beanstandet
                                 : Ausgang::gut;
}

} // namespace klopfmeise
