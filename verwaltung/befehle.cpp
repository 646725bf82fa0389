#include "verwaltung/befehle.h"

#include "platform/values/text.h"

#include <algorithm>
#include <array>

namespace klopfmeise {

namespace {

constexpr Option optionJa{"ja", "", "beantwortet alle Fragen mit ja"};
constexpr Option optionVorlage{"vorlage", "ORDNER", "eine heile Datenablage statt der mitgelieferten"};

constexpr std::array pruefenOptionen{Option{"beheben", "", "behebt nach einer Frage, was sich beheben lässt"},
                                     optionJa, optionVorlage};
constexpr std::array anlegenOptionen{
    optionVorlage, Option{"gruppe", "GRUPPE", "diese Benutzergruppe teilt sich den Ordner"}};
constexpr std::array kontenOptionen{
    Option{"namen", "ART", "voll: Vorname Name (üblich), kurz: Vorname N, vorname: nur Vorname"}};
constexpr std::array umziehenOptionen{optionJa};
constexpr std::array berichtOptionen{Option{"als", "ART", "tabelle (üblich), csv oder html"},
                                     Option{"ausgabe", "DATEI", "schreibt in diese Datei"}};
constexpr std::array zurueckspielenOptionen{
    Option{"klasse", "KLASSE", "nur diese Klasse"},
    Option{"konto", "NAME", "nur das Konto dieses Kindes; verlangt --klasse"}, optionJa};

constexpr std::array alle{
    Befehl{"pruefen", "ORDNER", pruefenOptionen, "prüft eine Datenablage und behebt Mängel",
           "Prüft Lektionen, Bilder, Texte, Klassen, Konten und Rechte einer Datenablage und nennt\n"
           "jeden Mangel in einer Zeile, mit dem, was dagegen zu tun ist. Ohne --beheben wird nichts\n"
           "geschrieben. Vor jeder Änderung an einem Konto, einer Einstellung oder einer Lektion kommt\n"
           "eine Kopie in den Ordner Sicherung-… der Datenablage; gelöscht wird kein Konto.\n",
           pruefen},
    Befehl{"anlegen", "ORDNER", anlegenOptionen, "legt eine Datenablage an",
           "Legt eine Datenablage aus der Vorlage an: Lektionen, Bilder, Texte und die Einstellungen für\n"
           "neue Klassen, aber keine Klasse. Einen Ordner, in dem schon etwas liegt, lässt der Befehl, wie\n"
           "er ist. Die Gruppe des Ordners darf darin schreiben, und was darin entsteht, gehört ihr auch.\n",
           anlegen},
    Befehl{"klasse",
           "ORDNER KLASSE",
           {},
           "legt eine Klasse an",
           "Legt eine Klasse mit den Einstellungen für neue Klassen an. Eine Klasse, die es schon gibt,\n"
           "bleibt, wie sie ist.\n",
           klasse},
    Befehl{"konten", "ORDNER KLASSE LISTE", kontenOptionen, "legt Konten aus einer Namensliste an",
           "Legt in einer Klasse die Konten einer Liste an. Die Liste ist eine Datei oder - für die\n"
           "Standardeingabe: entweder ein Name je Zeile, oder CSV mit einer Überschrift, in der Name,\n"
           "Vorname oder Klasse vorkommen, die Felder getrennt durch ; , oder Tabulator. Zeilen anderer\n"
           "Klassen werden übergangen. UTF-8 und Windows-1252 werden erkannt. Konten, die es schon gibt,\n"
           "bleiben, wie sie sind.\n",
           konten},
    Befehl{"umziehen", "ORDNER KLASSE NAME ZIELKLASSE", umziehenOptionen,
           "zieht ein Kind in eine andere Klasse um",
           "Zieht ein Kind mit seinem Konto in eine andere Klasse um; ein Konto gleichen Namens dort wird\n"
           "nicht ersetzt. Das Kind darf dabei nicht angemeldet sein.\n",
           umziehen},
    Befehl{"bericht", "ORDNER KLASSE", berichtOptionen, "zeigt, wie weit die Kinder einer Klasse sind",
           "Zeigt von jedem Kind Lektion, Stufe, Genauigkeit, getippte Texte, Anschläge pro Minute und die\n"
           "Rekorde der Spiele. HTML lässt sich drucken; CSV ist UTF-8 mit Strichpunkten.\n",
           bericht},
    Befehl{"sichern",
           "ORDNER ARCHIV",
           {},
           "sichert Klassen, Konten und Texte",
           "Schreibt Klassen, Konten und Texte in ein Archiv, das auch tar lesen kann. Ist ARCHIV ein\n"
           "Ordner, entsteht darin eine Datei mit Datum und Uhrzeit. Eine Datei, die es schon gibt, wird\n"
           "nicht ersetzt.\n",
           sichern},
    Befehl{
        "zurueckspielen", "ARCHIV ORDNER", zurueckspielenOptionen, "spielt eine Sicherung zurück",
        "Spielt ein Archiv in eine Datenablage zurück. Was fehlt, wird angelegt; was anders ist, wird nach\n"
        "einer Frage ersetzt, und der bisherige Stand kommt in den Ordner Sicherung-… der Datenablage.\n"
        "Was im Archiv nicht steht, bleibt.\n",
        zurueckspielen},
};

constexpr const char* programm = "klopfmeise-verwaltung";

std::string breit(std::string_view text, std::size_t breite) {
    std::string aus(text);
    const std::size_t länge = fromUtf8(text).size();
    return aus + std::string(breite - std::min(breite, länge), ' ');
}

std::string inOption(const Option& option) {
    return "--" + std::string(option.name) + (option.wert.empty() ? "" : "=" + std::string(option.wert));
}

std::string aufrufzeile(const Befehl& befehl) {
    std::string aus =
        "Aufruf: " + std::string(programm) + " " + std::string(befehl.name) + " " + std::string(befehl.orte);
    for (const Option& option : befehl.optionen)
        aus += " [" + inOption(option) + "]";
    return aus + "\n";
}

std::string hilfe(const Befehl& befehl) {
    std::string aus = aufrufzeile(befehl) + "\n" + std::string(befehl.lang);
    for (const Option& option : befehl.optionen)
        aus += (&option == befehl.optionen.data() ? "\n  " : "  ") + breit(inOption(option), 20) +
               std::string(option.hilfe) + "\n";
    return aus;
}

std::string gesamthilfe() {
    std::string aus = "Aufruf: " + std::string(programm) +
                      " BEFEHL ARGUMENTE [OPTIONEN]\n\n"
                      "Verwaltet Datenablagen der Klopfmeise. ORDNER ist eine Datenablage.\n\n";
    for (const Befehl& befehl : alle)
        aus += "  " + breit(befehl.name, 16) + std::string(befehl.kurz) + "\n";
    return aus + "\nMehr zu einem Befehl: " + programm +
           " BEFEHL --help\n"
           "Ausgang: 0 in Ordnung, 1 beanstandet oder abgelehnt, 2 falscher Aufruf,\n"
           "3 nicht lesbar oder nicht schreibbar.\n";
}

bool istHilfe(const std::string& wort) { return wort == "--help" || wort == "--hilfe"; }

/// Umlauts of a command may be typed as such.
std::string ohneUmlaute(const std::string& wort) {
    std::string aus;
    for (const wchar_t c : fromUtf8(wort))
        aus += c == L'ü' ? "ue" : toUtf8(std::wstring(1, c));
    return aus;
}

} // namespace

std::span<const Befehl> befehle() { return alle; }

Ausgang verwalten(Umfeld& umfeld, std::span<const std::string> worte) {
    Konsole& konsole = umfeld.konsole;
    const auto ratlos = [&](const std::wstring& was, const std::string& mehr) {
        konsole.fehler(was + L" Mehr sagt: " + fromUtf8(std::string(programm) + mehr) + L" --help");
        return Ausgang::falscherAufruf;
    };
    if (worte.empty())
        return ratlos(L"Es fehlt ein Befehl.", "");
    if (istHilfe(worte[0])) {
        konsole.roh(gesamthilfe());
        return Ausgang::gut;
    }
    if (worte[0] == "--version") {
        konsole.roh(std::string(programm) + " " KLOPFMEISE_VERSION "\n");
        return Ausgang::gut;
    }
    const std::string name = ohneUmlaute(worte[0]);
    const auto befehl = std::ranges::find(alle, name, &Befehl::name);
    if (befehl == alle.end())
        return ratlos(L"Den Befehl \"" + fromUtf8(worte[0]) + L"\" gibt es nicht.", "");
    const auto rest = worte.subspan(1);
    if (std::ranges::any_of(rest.begin(), std::ranges::find(rest, "--"), istHilfe)) {
        konsole.roh(hilfe(*befehl));
        return Ausgang::gut;
    }
    const auto ortszahl = static_cast<std::size_t>(std::ranges::count(befehl->orte, ' ')) + 1;
    std::wstring fehler;
    const auto aufruf = aufrufAus(rest, befehl->optionen, ortszahl, fehler);
    if (!aufruf)
        return ratlos(fehler, " " + name);
    if (aufruf->hat("ja"))
        konsole.immerJa();
    return befehl->tun(umfeld, *aufruf);
}

} // namespace klopfmeise
