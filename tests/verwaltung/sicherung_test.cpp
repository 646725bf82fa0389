#include "tests/verwaltung/verwaltungsbuehne.h"
#include "verwaltung/archiv.h"
#include "verwaltung/klassenbericht.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;

class Sicherung : public ::testing::Test {
protected:
    Verwaltungsbühne b;
    const std::string ort = b.daten().string();
    const fs::path archiv = b.ordner.pfad() / "s.tar";

    std::string inhalt(const std::string& pfad) { return dateiinhalt(b.daten() / pfad); }
    std::string platz(const std::string& name) { return dateiinhalt(b.konto(name)).substr(31 * 128, 4); }
    Lauf zurück(const std::vector<Archiveintrag>& einträge, const std::string& eingabe = {}) {
        dateiSchreiben(archiv, archivAus(einträge));
        return b.rufen({"zurueckspielen", archiv.string(), ort}, eingabe, true);
    }
};

TEST_F(Sicherung, WhatWasLostComesBackWithTarOrTheCommand) {
    b.kontoMachen("Igel Österreich/Jörg Übel");
    b.setzen("Igel Österreich/Jörg Übel", Kontosatz::Lektionsnummer, std::int16_t{12});
    dateiSchreiben(b.daten() / "Gruppen/Hasen/Mia/innen/Bild", std::string(513, 'x'));
    // 101 bytes and more divide into two fields of the head.
    for (const std::size_t länge : {80, 81, 82, 90, 98})
        dateiSchreiben(b.daten() / "Gruppen/Hasen" / std::string(länge, 'p') / std::string(länge - 3, 'n'),
                       "x");
    ASSERT_EQ(b.rufen({"sichern", ort, archiv.string()}).ausgang, Ausgang::gut);
    const std::string gesichert = dateiinhalt(archiv);
    EXPECT_EQ(b.rufen({"sichern", ort, archiv.string()}).ausgang, Ausgang::beanstandet);
    EXPECT_EQ(dateiinhalt(archiv), gesichert);

    const fs::path entpackt = b.ordner.pfad() / "tar";
    fs::create_directory(entpackt);
    ASSERT_EQ(std::system(("tar xf '" + archiv.string() + "' -C '" + entpackt.string() + "' && diff -r '" +
                           (entpackt / "Gruppen").string() + "' '" + ort + "/Gruppen'")
                              .c_str()),
              0);
    const auto vorher = b.alles();
    for (const char* teil : {"Gruppen/Hasen", "Gruppen/Igel Österreich", "Data/Texte/Text_001.txt"})
        fs::remove_all(b.daten() / teil);
    const Lauf lauf = b.rufen({"zurueckspielen", archiv.string(), ort});
    EXPECT_EQ(lauf.ausgang, Ausgang::gut) << lauf.fehler;
    EXPECT_EQ(lauf.aus, "10 neu, 0 ersetzt, 1 unverändert, 0 nicht ersetzt.\n");
    EXPECT_EQ(b.alles(), vorher);

    ASSERT_EQ(b.rufen({"sichern", ort, b.ordner.pfad().string()}).ausgang, Ausgang::gut);
    EXPECT_EQ(archivLesen(dateiinhalt(b.ordner.pfad() / "Klopfmeise-2026-11-23-160142.tar")).einträge.size(),
              archivLesen(gesichert).einträge.size());
    dateiSchreiben(b.daten() / "Gruppen/.klopfmeise-1-0", "Entwurf");
    fs::create_symlink("/etc/passwd", b.konto("Hasen/Fremd"));
    const std::string zuLang(101, 'l');
    dateiSchreiben(b.daten() / "Gruppen/Hasen" / zuLang, "x");
    const Lauf mitVerknüpfung = b.rufen({"sichern", ort, archiv.string() + "2"});
    EXPECT_EQ(mitVerknüpfung.ausgang, Ausgang::beanstandet);
    EXPECT_EQ(mitVerknüpfung.fehler,
              "klopfmeise-verwaltung: Nicht gesichert: Gruppen/Hasen/Fremd._, eine Verknüpfung.\n"
              "klopfmeise-verwaltung: Nicht gesichert: Gruppen/Hasen/" +
                  zuLang + ", der Name ist zu lang.\n");
    EXPECT_EQ(archivLesen(dateiinhalt(archiv.string() + "2")).einträge.size(),
              archivLesen(gesichert).einträge.size());
}

TEST_F(Sicherung, WhatIsThereIsReplacedOnlyOnAYesAndKeptAside) {
    b.kontoMachen("Hasen/Tom");
    b.rufen({"sichern", ort, archiv.string()});
    for (const char* name : {"Hasen/Mia", "Hasen/Tom"})
        b.setzen(name, Kontosatz::Lektionsnummer, std::int16_t{7});
    const std::vector<std::string> worte{"zurueckspielen", archiv.string(), ort};
    EXPECT_EQ(b.rufen(worte).ausgang, Ausgang::beanstandet);
    EXPECT_EQ(platz("Hasen/Mia") + platz("Hasen/Tom"), "\2\0\7\0\2\0\7\0"s);
    const Lauf lauf = b.rufen(worte, "n\nj\n", true);
    EXPECT_EQ(lauf.aus,
              "Gruppen/Hasen/Mia._: jetzt Lektion 7, Stufe 1, im Archiv Lektion 1, Stufe 1. Ersetzen? "
              "[j/n/alle/keine] Gruppen/Hasen/Tom._: jetzt Lektion 7, Stufe 1, im Archiv Lektion 1, Stufe 1. "
              "Ersetzen? [j/n/alle/keine] 0 neu, 1 ersetzt, 3 unverändert, 1 nicht ersetzt.\n"
              "Der bisherige Stand liegt in Sicherung-2026-11-23-160142/\n");
    EXPECT_EQ(platz("Hasen/Mia") + platz("Hasen/Tom"), "\2\0\7\0\2\0\0\0"s);
    EXPECT_EQ(inhalt("Sicherung-2026-11-23-160142/Gruppen/Hasen/Tom._").substr(31 * 128, 4), "\2\0\7\0"s);

    b.setzen("Hasen/Tom", Kontosatz::Lektionsnummer, std::int16_t{8});
    EXPECT_EQ(
        b.rufen({"zurueckspielen", archiv.string(), ort, "--klasse=hasen", "--konto=mia", "--ja"}).ausgang,
        Ausgang::gut);
    EXPECT_EQ(platz("Hasen/Mia") + platz("Hasen/Tom"), "\2\0\0\0\2\0\x8\0"s);
    EXPECT_EQ(b.rufen({"zurueckspielen", archiv.string(), ort, "--klasse=Igel", "--ja"}).ausgang,
              Ausgang::beanstandet);
}

TEST_F(Sicherung, NothingThatLeadsOutOfTheFolderIsRestored) {
    const fs::path fremd = b.ordner.pfad() / "fremd";
    fs::create_directory(fremd);
    fs::create_directory_symlink(fremd, b.daten() / "Gruppen/Link");
    fs::create_symlink(fremd / "Ziel", b.konto("Hasen/Ziel"));
    const auto vorher = b.alles();
    std::vector<Archiveintrag> einträge;
    for (const char* pfad :
         {"../raus", "Gruppen/../../raus", "/raus", "Gruppen//raus", "Gruppen/Hasen/..",
          "Gruppen/Hasen/..\\..\\raus", "Gruppen/Hasen/.klopfmeise-1-0", "Data/Tastatur/Lektion1.txt",
          "Data/Texte/../Tastatur/Lektion1.txt", "raus", "Gruppen", "Gruppen/Link/raus",
          "Gruppen/Hasen/Ziel._", "Gruppen/Hasen/a\nb", "Gruppen/Link/tief/raus"})
        einträge.push_back({.pfad = pfad, .inhalt = "x"});
    einträge.push_back({.pfad = "Gruppen/Link/Ordner", .ordner = true});
    einträge.push_back({.pfad = "../Ordner", .ordner = true});
    const std::size_t böse = einträge.size();
    einträge.push_back({.pfad = "Gruppen/Hasen/Neu._", .inhalt = "erstes"});
    // On a share that ignores case this one would replace the first.
    einträge.push_back({.pfad = "Gruppen/Hasen/NEU._", .inhalt = "zweites"});
    const Lauf lauf = zurück(einträge, "alle\n");
    EXPECT_EQ(lauf.ausgang, Ausgang::beanstandet);
    EXPECT_EQ(std::ranges::count(lauf.fehler, '\n'), static_cast<std::ptrdiff_t>(böse) + 1) << lauf.fehler;
    auto soll = vorher;
    soll["Gruppen/Hasen/Neu._"] = "erstes";
    EXPECT_EQ(b.alles(), soll);
    EXPECT_TRUE(fs::is_empty(fremd));
    for (const char* name : {"raus", "Ordner"})
        EXPECT_FALSE(fs::exists(b.ordner.pfad() / name)) << name;
}

TEST_F(Sicherung, ABrokenArchiveChangesNothing) {
    b.rufen({"sichern", ort, archiv.string()});
    const std::string heil = dateiinhalt(archiv);
    fs::remove(b.konto("Hasen/Mia"));
    const auto vorher = b.alles();
    const std::size_t ende = heil.find_last_not_of('\0') / 512 * 512 + 512;
    std::vector<std::string> kaputte{"", "x", std::string(1024, '\0'), std::string(5000, 'x')};
    for (std::size_t länge = 100; länge < ende + 512; länge += 512 - 100 % 7)
        kaputte.push_back(heil.substr(0, länge));
    // A byte of the first head: name, size, check sum, mark.
    for (const std::size_t stelle : {0, 130, 150, 257})
        (kaputte.emplace_back(heil))[stelle] ^= 1;
    kaputte.push_back(heil);
    kaputte.back()[124] = '9';
    for (const std::string& bytes : kaputte) {
        dateiSchreiben(archiv, bytes);
        const Lauf lauf = b.rufen({"zurueckspielen", archiv.string(), ort, "--ja"});
        EXPECT_EQ(lauf.ausgang, Ausgang::unzugänglich) << bytes.size();
        EXPECT_EQ(b.alles(), vorher);
    }
}

TEST_F(Sicherung, AMoveNeverMeetsAnAccountThatIsThereAndNeverLosesOne) {
    b.kontoMachen("Igel/mia");
    b.kontoMachen("Hasen/Jörg");
    b.setzen("Hasen/Jörg", Kontosatz::Lektionsnummer, std::int16_t{4});
    dateiSchreiben(b.daten() / "Gruppen/Hasen/Jörg/Bild", "x");
    const std::string jörg = dateiinhalt(b.konto("Hasen/Jörg"));
    const auto vorher = b.alles();
    const auto umziehen = [&](const char* klasse, const char* name, const char* ziel) {
        return b.rufen({"umziehen", ort, klasse, name, ziel}).ausgang;
    };
    EXPECT_EQ(umziehen("Hasen", "Mia", "Igel"), Ausgang::beanstandet);
    EXPECT_EQ(umziehen("Hasen", "Mia", "hasen"), Ausgang::beanstandet);
    EXPECT_EQ(umziehen("Hasen", "Ida", "Igel"), Ausgang::beanstandet);
    EXPECT_EQ(umziehen("Hasen", "..\\kme", "Igel"), Ausgang::beanstandet);
    EXPECT_EQ(umziehen("Hasen", "Jörg", "Bären"), Ausgang::beanstandet);
    const auto eben = fs::last_write_time(b.konto("Hasen/Jörg"));
    fs::last_write_time(b.konto("Hasen/Jörg"), fs::file_time_type::clock::now());
    EXPECT_EQ(umziehen("Hasen", "Jörg", "Igel"), Ausgang::beanstandet) << "the child is typing";
    fs::last_write_time(b.konto("Hasen/Jörg"), eben - std::chrono::hours(1));
    EXPECT_EQ(b.alles(), vorher);

    for (int n = 1;; ++n) {
        b.dateien.ausfallenBei(n);
        const Ausgang ausgang = umziehen("hasen", "jörg", "igel");
        SCOPED_TRACE(n);
        const bool drüben = fs::exists(b.konto("Igel/Jörg"));
        EXPECT_NE(drüben, fs::exists(b.konto("Hasen/Jörg")));
        EXPECT_EQ(drüben, ausgang == Ausgang::gut);
        EXPECT_EQ(dateiinhalt(b.konto(drüben ? "Igel/Jörg" : "Hasen/Jörg")), jörg);
        if (b.dateien.ausfall() == Vorgang::keiner) {
            EXPECT_TRUE(fs::exists(b.daten() / "Gruppen/Igel/Jörg/Bild"));
            break;
        }
        if (!drüben)
            continue;
        fs::rename(b.konto("Igel/Jörg"), b.konto("Hasen/Jörg"));
        if (fs::exists(b.daten() / "Gruppen/Igel/Jörg"))
            fs::rename(b.daten() / "Gruppen/Igel/Jörg", b.daten() / "Gruppen/Hasen/Jörg");
    }
}

TEST_F(Sicherung, AReportShowsTheFiguresInGermanAndFitsItsForm) {
    const auto stand = [&](const std::string& name, std::initializer_list<std::pair<Kontosatz, Wert>> sätze) {
        b.kontoMachen("Hasen/" + name);
        for (const auto& [satz, wert] : sätze)
            b.setzen("Hasen/" + name, satz, wert);
    };
    stand("A<b>&c", {{Kontosatz::Lektionsnummer, std::int16_t{16}},
                     {Kontosatz::Stufennummer, std::int16_t{2}},
                     {Kontosatz::Genauigkeit, 97.125},
                     {Kontosatz::TexteGesamt, std::int16_t{3}},
                     {Kontosatz::AnschlaegeSchnitt, L"87"},
                     {Kontosatz::HighWolken, 1234.5},
                     {Kontosatz::HighSteine, std::int32_t{45'678}},
                     {Kontosatz::HighBand, 12.25F}});
    stand("Jörg; d", {{Kontosatz::Lektionsnummer, std::int16_t{31}}, {Kontosatz::Genauigkeit, 0.01}});
    const auto bericht = [&](const char* art) {
        const Lauf lauf = b.rufen({"bericht", ort, "hasen", "--als", art});
        EXPECT_EQ(lauf.ausgang, Ausgang::gut);
        return lauf.aus;
    };
    EXPECT_EQ(bericht("tabelle"),
              "Klasse Hasen, 23.11.2026, 3 Kinder\n\n"
              "Name     Lektion  Stufe  Genauigkeit  Texte  Anschläge  Wolken  Steine  Fließband\n"
              "A<b>&c        16      2        97,13      3         87  1234,5   45678      12,25\n"
              "Jörg; d   fertig      –         0,01      0          0       0       0          0\n"
              "Mia            1      1       100,00      0          0       0       0          0\n");
    EXPECT_EQ(bericht("csv"),
              "\xEF\xBB\xBFName;Lektion;Stufe;Genauigkeit;Texte;Anschläge;Wolken;Steine;Fließband\r\n"
              "A<b>&c;16;2;97,13;3;87;1234,5;45678;12,25\r\n"
              "\"Jörg; d\";fertig;–;0,01;0;0;0;0;0\r\n"
              "Mia;1;1;100,00;0;0;0;0;0\r\n");
    const std::string seite = bericht("html");
    EXPECT_EQ(
        seite.substr(seite.find("</style>")),
        "</style>\n</head>\n<body>\n<h1>Klasse Hasen</h1>\n<p>23.11.2026, 3 Kinder</p>\n<table>\n"
        "<thead><tr><th>Name</th><th>Lektion</th><th>Stufe</th><th>Genauigkeit</th><th>Texte</th>"
        "<th>Anschläge pro "
        "Minute</th><th>Wolken</th><th>Steine</th><th>Fließband</th></tr></thead>\n<tbody>\n"
        "<tr><td>A&lt;b&gt;&amp;c</td><td class=\"b\"><i "
        "style=\"width:50%\"></i><span>16</span></td><td>2</td>"
        "<td class=\"b\"><i style=\"width:97%\"></i><span>97,13 "
        "%</span></td><td>3</td><td>87</td><td>1234,5</td>"
        "<td>45678</td><td>12,25</td></tr>\n"
        "<tr><td>Jörg; d</td><td class=\"b\"><i style=\"width:100%\"></i><span>fertig</span></td><td>–</td>"
        "<td class=\"b\"><i style=\"width:0%\"></i><span>0,01 %</span></td><td>0</td><td>0</td><td>0</td>"
        "<td>0</td><td>0</td></tr>\n"
        "<tr><td>Mia</td><td class=\"b\"><i style=\"width:0%\"></i><span>1</span></td><td>1</td>"
        "<td class=\"b\"><i style=\"width:100%\"></i><span>100,00 %</span></td><td>0</td><td>0</td><td>0</td>"
        "<td>0</td><td>0</td></tr>\n"
        "</tbody>\n</table>\n</body>\n</html>\n");

    const auto vorher = b.alles();
    EXPECT_EQ(b.rufen({"bericht", ort, "Hasen", "--ausgabe", b.konto("Hasen/Mia").string()}).ausgang,
              Ausgang::beanstandet);
    EXPECT_EQ(b.rufen({"bericht", ort, "Hasen", "--ausgabe", ort + "/Hasen.txt"}).ausgang, Ausgang::gut);
    auto soll = vorher;
    soll["Hasen.txt"] = bericht("tabelle");
    EXPECT_EQ(b.alles(), soll);
    // Operation 4 opens the first account, whose figures are not known then.
    for (int n = 1; n <= 8; ++n) {
        b.dateien.ausfallenBei(n);
        const Lauf lauf = b.rufen({"bericht", ort, "Hasen"});
        if (b.dateien.ausfall() == Vorgang::öffnen) {
            EXPECT_EQ(lauf.ausgang, Ausgang::unzugänglich);
            EXPECT_NE(
                lauf.aus.find(
                    "A<b>&c         –      –            –      –          –       –       –          –\n"),
                std::string::npos)
                << lauf.aus;
        }
    }
}

} // namespace
} // namespace klopfmeise
