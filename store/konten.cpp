#include "store/konten.h"

#include "platform/machine/services.h"
#include "store/dateinamen.h"
#include "store/klassen.h"
#include "store/kontodatei.h"
#include "store/pfade.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace klopfmeise {

namespace {

using Namen = std::vector<std::wstring>;

/// A record as a whole number; `sonst` where it is Empty, 0, an empty string or no number at all.
int zahlOder(const Wert& wert, int sonst) {
    const double zahl = std::trunc(zahlAus(wert).value_or(0));
    // Not a number fails both comparisons and lands on the default too.
    constexpr double grenze = std::numeric_limits<int>::max() / 2;
    return zahl != 0 && zahl >= -grenze && zahl <= grenze ? static_cast<int>(zahl) : sonst;
}

/// As above for what is counted: below 1 it has no meaning and reads as never set.
int anzahlOder(const Wert& wert, int sonst) {
    const int zahl = zahlOder(wert, sonst);
    return zahl < 1 ? sonst : zahl;
}

/// A link may lead out of the class.
bool zugänglich(Files& dateien, const Globale& global, const std::wstring& konto) {
    return klasseZugänglich(dateien, global, global.AktuelleKlasse) && !dateien.isLink(konto);
}

} // namespace

std::vector<std::wstring> kontenAuflisten(Files& dateien, const Globale& global) {
    auto namen = dateien.listFiles(klassenordner(global), Kontomuster).value_or(Namen());
    for (std::wstring& name : namen)
        name.resize(name.size() - Kontoendung.size());
    return namen;
}

Kontoanlage kontoAnlegen(Files& dateien, const Globale& global, const std::wstring& name) {
    // The ending saves a blank at the end of a name.
    if (name.find_first_not_of(L' ') == std::wstring::npos ||
        !zulässigerName(name + std::wstring(Kontoendung)))
        return Kontoanlage::unzulässigerName;
    const std::wstring pfad = kontopfad(global, name);
    if (!zugänglich(dateien, global, pfad))
        return Kontoanlage::misslungen;
    const bool neu = dateien.search(pfad).empty();
    Kontodatei datei(dateien, pfad);
    const Wert marke = datei.lesen(Kontosatz::Kontomarke);
    if (datei.gut() && !gleich(marke, L""))
        return Kontoanlage::vorhanden;
    if (datei.gut())
        datei.WerteSchreiben();
    if (datei.schließen())
        return Kontoanlage::angelegt;
    // An empty file would be listed as a child. What is not empty goes by no means: a share that fails may
    // have hidden an account before.
    if (const auto inhalt = dateien.readAll(pfad, 1); neu && inhalt && inhalt->empty())
        dateien.removeFile(pfad);
    return Kontoanlage::misslungen;
}

Kontorest kontoLöschen(Files& dateien, const Globale& global, const std::wstring& name) {
    // Older names may be odd, but none leads out of the class.
    if (name.find_first_of(L"\\/") != std::wstring::npos)
        return {.konto = true};
    const std::wstring konto = kontopfad(global, name);
    if (!dateien.removeFile(konto) && !dateien.search(konto).empty())
        return {.konto = true};
    // Nor do files go of "..", or of a folder that a share knows by a shorter name.
    if (!zulässigerName(name))
        return {};
    const std::wstring ordner = klassenordner(global) + name + L"\\";
    if (dateien.isLink(ordner)) {
        dateien.removeFile(ordner);
        return {};
    }
    for (const std::wstring& datei : dateien.listFiles(ordner, L"*.*").value_or(Namen()))
        dateien.removeFile(ordner + datei);
    return {.dateien = dateien.listFiles(ordner, L"*.*").value_or(Namen())};
}

Kursparameter kursparameterAus(Kontodatei& datei) {
    Kursparameter werte;
    werte.Vorlagemodus = zahlOder(datei.lesen(Kontosatz::Vorlagemodus), 0);
    werte.Fehlerstopp = zahlOder(datei.lesen(Kontosatz::Fehlerstopp), 0);
    werte.Zeitmodus = zahlOder(datei.lesen(Kontosatz::Zeitmodus), 0);
    werte.Lektionsnummer = zahlOder(datei.lesen(Kontosatz::Lektionsnummer), 1);
    werte.Stufennummer = zahlOder(datei.lesen(Kontosatz::Stufennummer), 1);
    werte.Durchgangszahl = anzahlOder(datei.lesen(Kontosatz::Durchgangszahl), 1);
    werte.Tempowert = anzahlOder(datei.lesen(Kontosatz::Tempowert), 10);
    return werte;
}

std::optional<Kursparameter> kursparameterLesen(Files& dateien, const Globale& global) {
    const std::wstring pfad = kontopfad(global);
    if (dateien.search(pfad).empty() || !zugänglich(dateien, global, pfad))
        return std::nullopt;
    Kontodatei datei(dateien, pfad);
    const Kursparameter werte = kursparameterAus(datei);
    return datei.gut() ? std::optional(werte) : std::nullopt;
}

bool kursparameterSchreiben(Files& dateien, const Globale& global, const Kursparameter& werte) {
    const std::wstring pfad = kontopfad(global);
    if (dateien.search(pfad).empty() || !zugänglich(dateien, global, pfad))
        return false;
    const auto kurz = [](int zahl) { return Wert(static_cast<std::int16_t>(zahl)); };
    const auto lang = [](int zahl) { return Wert(std::int32_t{zahl}); };
    Kontodatei datei(dateien, pfad);
    datei.schreiben(Kontosatz::Vorlagemodus,
                    std::array{kurz(werte.Vorlagemodus), kurz(werte.Fehlerstopp), kurz(werte.Zeitmodus),
                               lang(werte.Lektionsnummer), lang(werte.Stufennummer),
                               lang(werte.Durchgangszahl), lang(werte.Tempowert)});
    return datei.schließen();
}

} // namespace klopfmeise
