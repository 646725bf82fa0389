#include "platform/values/text.h"
#include "store/dateinamen.h"
#include "store/einstellungsdatei.h"
#include "store/klassen.h"
#include "store/konten.h"
#include "store/pfade.h"
#include "store/texte.h"
#include "verwaltung/pruefung.h"

#include <algorithm>
#include <map>

namespace klopfmeise {

namespace {

constexpr const wchar_t* einstellungsdatei = L"KME.ein";
constexpr std::wstring_view ersterText = L"Text_001.txt";
constexpr std::size_t größteDatei = std::size_t{1} << 20;

/// Names that are the same but for their case, on a share that tells them apart.
void doppeltePrüfen(Prüfung& prüfung, const std::wstring& ordner, const std::vector<std::wstring>& namen,
                    std::wstring_view endung) {
    std::map<std::wstring, std::wstring> gesehen;
    for (const std::wstring& name : namen)
        if (const auto [frühere, neu] = gesehen.emplace(upper(name), name); !neu)
            prüfung.melden({.pfad = ordner + name + std::wstring(endung),
                            .was = L"Es gibt auch \"" + frühere->second +
                                   L"\"; auf einem anderen Rechner wären beide dasselbe.",
                            .abhilfe = L"Eines von beiden umbenennen."});
}

void namePrüfen(Prüfung& prüfung, const std::wstring& pfad, const std::wstring& name, bool zulässig,
                int längster) {
    if (!zulässig)
        prüfung.melden({.pfad = pfad,
                        .was = L"Der Name ist nicht auf jedem Rechner möglich.",
                        .abhilfe = L"Umbenennen."});
    else if (name.size() > static_cast<std::size_t>(längster))
        prüfung.melden({.pfad = pfad,
                        .was = L"Der Name hat mehr als " + std::to_wstring(längster) + L" Zeichen.",
                        .abhilfe = L"Umbenennen, wenn er in den Listen abgeschnitten ist.",
                        .hinweis = true});
}

/// The switches of a class, or of the template for new ones.
void schalterPrüfen(Prüfung& prüfung, const std::wstring& pfad, const Kontobild& bild) {
    std::vector<std::pair<int, Wert>> fehlend;
    for (int nummer = 1; nummer <= Kontobild::satzzahl; ++nummer)
        if (bild.stand(nummer) != Kontobild::Stand::gut)
            // Behind the switches stands the last one, as the settings screen writes it.
            fehlend.emplace_back(nummer, std::int16_t{gleich(bild.wert(std::min(nummer, Übungszahl)), 1)});
    if (!fehlend.empty())
        prüfung.melden({.pfad = pfad,
                        .was = std::to_wstring(fehlend.size()) +
                               L" von 100 Sätzen fehlen oder sind unlesbar; ihre Übungen sind aus.",
                        .tat = L"die Sätze ergänzen, mit ihren Übungen ausgeschaltet",
                        .beheben = [&prüfung, pfad, bild, fehlend] {
                            return prüfung.sätzeSetzen(pfad, bild, fehlend);
                        }});
    for (int nummer = 1; nummer <= Übungszahl; ++nummer)
        if (const Wert wert = bild.wert(nummer);
            bild.stand(nummer) == Kontobild::Stand::gut && !gleich(wert, 0) && !gleich(wert, 1))
            prüfung.melden({.pfad = pfad,
                            .was = L"Der Schalter der Übung " + std::to_wstring(nummer) + L" ist \"" +
                                   textAus(wert, L',') + L"\" statt 0 oder 1; die Übung ist aus.",
                            .tat = L"die Übung als ausgeschaltet eintragen",
                            .beheben = [&prüfung, pfad, bild, nummer] {
                                return prüfung.sätzeSetzen(pfad, bild, {{nummer, std::int16_t{0}}});
                            }});
}

/// The class's text, or that of new classes; `global` has the class, or none.
void textwahlPrüfen(Prüfung& prüfung, const Globale& global, const std::wstring& pfad) {
    Files& dateien = prüfung.dateien();
    const std::wstring name = textnameLesen(dateien, global);
    if (!name.empty() && !dateien.search(textpfad(global, name)).empty())
        return;
    Befund befund{.pfad = pfad,
                  .was = name.empty() ? std::wstring(L"Für \"Text tippen\" ist kein Text gewählt.")
                                      : L"Den gewählten Text \"" + name + L"\" gibt es nicht.",
                  .abhilfe = L"Unter \"Eigene Texte\" einen Text wählen."};
    if (!dateien.search(textpfad(global, std::wstring(ersterText))).empty()) {
        befund.tat = L"den Text \"" + std::wstring(ersterText) + L"\" wählen";
        befund.beheben = [&dateien, global] { return textnameSchreiben(dateien, global, ersterText); };
    }
    prüfung.melden(std::move(befund));
}

bool hatSchalter(const Kontobild& bild) {
    for (int nummer = 1; nummer <= Übungszahl; ++nummer)
        if (bild.stand(nummer) == Kontobild::Stand::gut)
            return true;
    return false;
}

void einstellungenPrüfen(Prüfung& prüfung, const Globale& global) {
    Files& dateien = prüfung.dateien();
    const std::wstring pfad = klassenordner(global) + einstellungsdatei;
    const std::wstring vorlage = gruppenordner(prüfung.global()) + einstellungsdatei;
    const bool da = !dateien.search(pfad).empty();
    const auto bytes = dateien.readAll(pfad, größteDatei);
    if (da && !bytes) {
        prüfung.melden({.pfad = pfad,
                        .was = L"Die Datei ist nicht lesbar.",
                        .abhilfe = L"Die Rechte der Datei prüfen."});
        return;
    }
    if (bytes && hatSchalter(Kontobild(*bytes))) {
        schalterPrüfen(prüfung, pfad, Kontobild(*bytes));
        textwahlPrüfen(prüfung, global, pfad);
        return;
    }
    const wchar_t* was =
        da ? L"Die Datei ist leer oder keine Einstellungsdatei; keine Übung ist eingeschaltet."
           : L"Die Datei fehlt; keine Übung ist eingeschaltet.";
    if (global.AktuelleKlasse.empty())
        prüfung.mitVorlageMelden(std::wstring(L"Gruppen\\kme.ein"),
                                 da ? L"Die Datei ist leer oder keine Einstellungsdatei; in neuen Klassen "
                                      L"ist keine Übung eingeschaltet."
                                    : L"Die Datei fehlt; ohne sie gilt der Ordner nicht als Datenablage.",
                                 [](const std::string& inhalt) { return inhalt.size() >= Kontobild::länge; });
    else if (dateien.search(vorlage).empty())
        prüfung.melden(
            {.pfad = pfad, .was = was, .abhilfe = L"Erst Gruppen/kme.ein beheben, dann noch einmal prüfen."});
    else
        prüfung.melden({.pfad = pfad,
                        .was = was,
                        .tat = L"die Einstellungen für neue Klassen nehmen",
                        .beheben = [&prüfung, pfad, vorlage] { return prüfung.ersetzen(pfad, vorlage); }});
}

/// What lies in the folder of a class beside accounts and settings.
void fremdesPrüfen(Prüfung& prüfung, const Globale& global, const std::vector<std::wstring>& konten,
                   const std::vector<std::wstring>& unterordner) {
    const std::wstring ordner = klassenordner(global);
    Files& dateien = prüfung.dateien();
    bool einstellungenDa = false;
    const auto namen = dateien.listFiles(ordner, L"*.*");
    for (const std::wstring& name : namen.value_or(std::vector<std::wstring>())) {
        if (matches(name, Kontomuster))
            continue;
        if (!sameName(name, einstellungsdatei))
            prüfung.melden({.pfad = ordner + name,
                            .was = L"Diese Datei gehört nicht in eine Klasse.",
                            .abhilfe = L"Die Datei woandershin legen; mit der Klasse würde sie gelöscht.",
                            .hinweis = true});
        else if (std::exchange(einstellungenDa, true))
            prüfung.melden(
                {.pfad = ordner + name,
                 .was = L"Die Einstellungen der Klasse gibt es zweimal, in verschiedener Schreibweise.",
                 .abhilfe = L"Die falsche Datei löschen."});
    }
    for (const std::wstring& name : unterordner) {
        if (std::ranges::any_of(konten, [&](const std::wstring& konto) { return sameName(konto, name); }))
            continue;
        Befund befund{.pfad = ordner + name,
                      .was = L"Zu diesem Ordner gibt es kein Konto; die Klasse lässt sich seinetwegen nicht "
                             L"löschen.",
                      .abhilfe = L"Den Ordner woandershin legen."};
        const std::wstring pfad = ordner + name;
        const auto innen = dateien.listFolders(pfad);
        const auto darin = dateien.listFiles(pfad, L"*.*");
        if (innen && innen->empty() && darin && darin->empty() && !dateien.isLink(pfad)) {
            befund.tat = L"den leeren Ordner entfernen";
            befund.beheben = [&dateien, pfad] { return dateien.removeFolder(pfad); };
        }
        prüfung.melden(std::move(befund));
    }
}

void klassePrüfen(Prüfung& prüfung, const std::wstring& klasse) {
    Globale global = prüfung.global();
    global.AktuelleKlasse = klasse + L"\\";
    Files& dateien = prüfung.dateien();
    const std::wstring ordner = klassenordner(global);
    if (!klasseZugänglich(dateien, global, global.AktuelleKlasse)) {
        prüfung.melden({.pfad = ordner,
                        .was = L"Die Klasse ist eine Verknüpfung; die Lehrkraft kann darin nichts anlegen.",
                        .abhilfe = L"Die Verknüpfung durch den Ordner ersetzen."});
        return;
    }
    namePrüfen(prüfung, ordner, klasse, zulässigerName(klasse), längsterKlassenname);
    const auto unterordner = dateien.listFolders(ordner);
    if (!unterordner) {
        prüfung.melden({.pfad = ordner,
                        .was = L"Der Ordner ist nicht lesbar.",
                        .abhilfe = L"Die Rechte des Ordners prüfen."});
        return;
    }
    einstellungenPrüfen(prüfung, global);
    const auto konten = kontenAuflisten(dateien, global);
    doppeltePrüfen(prüfung, ordner, konten, Kontoendung);
    for (const std::wstring& name : konten) {
        // The ending saves a blank at the end of a name.
        namePrüfen(prüfung, kontopfad(global, name), name, zulässigerName(name + std::wstring(Kontoendung)),
                   längsterKontoname);
        kontoPrüfen(prüfung, global, name);
    }
    fremdesPrüfen(prüfung, global, konten, *unterordner);
}

} // namespace

void klassenPrüfen(Prüfung& prüfung) {
    einstellungenPrüfen(prüfung, prüfung.global());
    const auto klassen = klassenAuflisten(prüfung.dateien(), prüfung.global());
    doppeltePrüfen(prüfung, gruppenordner(prüfung.global()), klassen, {});
    for (const std::wstring& klasse : klassen)
        klassePrüfen(prüfung, klasse);
}

} // namespace klopfmeise
