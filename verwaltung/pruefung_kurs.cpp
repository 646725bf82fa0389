#include "platform/richtext/rtf.h"
#include "platform/values/text.h"
#include "store/dateinamen.h"
#include "store/kontodatei.h"
#include "store/lektionsdatei.h"
#include "store/mdl_dir.h"
#include "store/pfade.h"
#include "store/texte.h"
#include "verwaltung/pruefung.h"

#include <cstdint>

namespace klopfmeise {

namespace {

constexpr std::size_t größteDatei = std::size_t{16} << 20;
/// What the line of a one-line stage shows.
constexpr std::size_t längsteZeile = 55;

/// The first fault of a lesson's file; empty if there is none.
std::wstring lektionsfehler(const std::string& bytes) {
    const Lektion kopf = lektionAus(bytes, 1);
    if (!kopf.Stufenzahl)
        return L"Die Zahl der Stufen in der ersten Zeile fehlt oder ist falsch.";
    if (!kopf.einzeiler() && sameName(kopf.Lektionsart.substr(0, 9), L"Einzeiler"))
        return L"Die Art der Lektion ist nicht genau \"Einzeiler\"; sie gälte als Fließtext.";
    if (kopf.Lektionstitel.empty())
        return L"Der Titel der Lektion fehlt.";
    for (int nummer = 1; nummer <= *kopf.Stufenzahl; ++nummer) {
        const std::wstring stufe = L"Stufe " + std::to_wstring(nummer);
        const Lektion lektion = lektionAus(bytes, nummer);
        if (!lektion.stufe)
            return stufe + L" fehlt oder ist unvollständig (Zeile \"Unterstufe" + std::to_wstring(nummer) +
                   L"\", darunter Titel, Text und Hinweis).";
        if (lektion.einzeiler() && lektion.stufe->Stufentext.size() > längsteZeile)
            return L"Der Text von " + stufe + L" hat mehr als 55 Zeichen; der Rest wäre nicht zu sehen.";
    }
    return {};
}

std::wstring bildfehler(const std::string& bytes) {
    constexpr std::size_t kopf = 54;
    if (bytes.size() < kopf || !bytes.starts_with("BM"))
        return L"Das ist kein Bild im BMP-Format.";
    std::uint32_t länge = 0;
    for (std::size_t i = 0; i < 4; ++i)
        länge |= std::uint32_t{static_cast<unsigned char>(bytes[2 + i])} << (8 * i);
    return länge > bytes.size() ? L"Das Bild ist unvollständig." : std::wstring();
}

/// `fehler` says what is wrong with the bytes of such a file.
void dateiPrüfen(Prüfung& prüfung, const std::wstring& unterpfad,
                 std::wstring (*fehler)(const std::string& bytes)) {
    const auto heil = [fehler](const std::string& bytes) { return fehler(bytes).empty(); };
    const auto bytes = prüfung.dateien().readAll(prüfung.ordner() + unterpfad, größteDatei);
    if (!bytes)
        prüfung.mitVorlageMelden(unterpfad, L"Die Datei fehlt oder ist nicht lesbar.", heil);
    else if (const std::wstring was = fehler(*bytes); !was.empty())
        prüfung.mitVorlageMelden(unterpfad, was, heil);
}

std::wstring textfehler(const std::string& bytes) {
    const std::size_t ende = bytes.find_last_not_of(std::string_view(" \r\n\t\0", 5));
    if (bytes.starts_with("{\\rtf") && bytes[ende] != '}')
        return L"Der Text bricht mitten im Dokument ab.";
    switch (readRtf(bytes).outcome) {
    case RtfOutcome::failed:
        return L"Der Text ist nicht lesbar.";
    case RtfOutcome::cut:
        return L"Der Text ist länger als " + std::to_wstring(rtfMaxCharacters) +
               L" Zeichen; zu sehen ist nur der Anfang, und er lässt sich nicht ändern.";
    case RtfOutcome::whole:
        break;
    }
    return {};
}

bool textHeil(const std::string& bytes) { return textfehler(bytes).empty(); }

void textPrüfen(Prüfung& prüfung, const std::wstring& name) {
    const std::wstring pfad = textpfad(prüfung.global(), name);
    if (!textZugänglich(prüfung.dateien(), prüfung.global(), name)) {
        prüfung.melden({.pfad = pfad,
                        .was = L"Der Text ist eine Verknüpfung und wird weder gelesen noch geschrieben.",
                        .abhilfe = L"Die Verknüpfung durch die Datei ersetzen."});
        return;
    }
    if (!zulässigerName(name))
        prüfung.melden({.pfad = pfad,
                        .was = L"Der Name ist nicht auf jedem Rechner möglich.",
                        .abhilfe = L"Die Datei umbenennen und den Text in den Klassen neu wählen."});
    const auto bytes = prüfung.dateien().readAll(pfad, rtfMaxLength);
    const std::wstring was = bytes ? textfehler(*bytes) : L"Der Text ist nicht lesbar.";
    if (!was.empty())
        prüfung.mitVorlageMelden(pfad.substr(prüfung.ordner().size()), was, textHeil);
    else if (!bytes->starts_with("{\\rtf"))
        prüfung.melden({.pfad = pfad,
                        .was = L"Der Text ist kein RTF; er wird als einfacher Text gelesen.",
                        .abhilfe = L"Keine nötig.",
                        .hinweis = true});
}

} // namespace

void kursPrüfen(Prüfung& prüfung) {
    for (int nummer = 1; nummer <= Lektionenzahl; ++nummer) {
        Globale ohneOrdner;
        dateiPrüfen(prüfung, lektionspfad(ohneOrdner, nummer), lektionsfehler);
        dateiPrüfen(prüfung, lektionsbild(ohneOrdner, std::to_wstring(nummer)), bildfehler);
    }
}

void textePrüfen(Prüfung& prüfung) {
    // The first text marks the folder: without it no machine takes it.
    for (const std::wstring& marke : fehlendeMarken(prüfung.dateien(), prüfung.ordner()))
        if (marke.starts_with(L"Data\\Texte\\"))
            prüfung.mitVorlageMelden(
                marke, L"Die Datei fehlt; ohne sie gilt der Ordner nicht als Datenablage.", textHeil);
    for (const std::wstring& name : texteAuflisten(prüfung.dateien(), prüfung.global()))
        textPrüfen(prüfung, name);
}

} // namespace klopfmeise
