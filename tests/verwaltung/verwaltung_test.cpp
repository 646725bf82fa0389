#include "tests/verwaltung/verwaltungsbuehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;

class Verwaltung : public ::testing::Test {
protected:
    Verwaltungsbühne b;
    const std::string ort = b.daten().string();

    std::string inhalt(const std::string& pfad) { return dateiinhalt(b.daten() / pfad); }
    std::string datei(const std::string& name, const std::string& bytes) {
        dateiSchreiben(b.ordner.pfad() / name, bytes);
        return (b.ordner.pfad() / name).string();
    }
};

constexpr const char* regeln =
    "Ein Name darf nicht leer sein, nicht mit einem Punkt beginnen, nicht mit einem Punkt oder Leerzeichen "
    "enden, keines der Zeichen \\ / : * ? \" < > | und kein Zeichen außerhalb des westeuropäischen "
    "Zeichensatzes enthalten und kein Gerätename wie CON oder LPT1 sein.\n";

TEST_F(Verwaltung, AListMakesAccountsAndSaysOfEachLineWhatBecameOfIt) {
    const std::string neu = inhalt("Gruppen/Hasen/Mia._");
    b.setzen("Hasen/Mia", Kontosatz::Lektionsnummer, std::int16_t{9});
    const std::string alt = inhalt("Gruppen/Hasen/Mia._");
    // Windows-1252, all three line ends, no line end at the end.
    const std::string liste = datei(
        "liste.txt",
        "J\xF6rg\r\nmia\r\n\r\n\t Eva\xA0 Lu \rCON\nj\xD6RG\n../Raus\nA;B\nzwanzigundnocheines x\nWei\xDF");
    const Lauf lauf = b.rufen({"konten", ort, "hasen", liste});
    EXPECT_EQ(lauf.aus,
              "Zeile 1, Jörg: angelegt\n"
              "Zeile 2, mia: war schon da, als Mia\n"
              "Zeile 4, Eva Lu: angelegt\n"
              "Zeile 5, CON: abgelehnt. "s +
                  regeln +
                  "Zeile 6, jÖRG: abgelehnt. Der Name steht schon in Zeile 1. Kinder gleichen Namens "
                  "brauchen verschiedene Konten.\n"
                  "Zeile 7, ../Raus: abgelehnt. " +
                  regeln +
                  "Zeile 8, A;B: abgelehnt. Die Zeile enthält ein Trennzeichen. Eine Liste mit Feldern "
                  "braucht eine Überschrift wie Klasse;Name.\n"
                  "Zeile 9, zwanzigundnocheines x: abgelehnt. Ein Name hat höchstens 20 Zeichen. "
                  "Listen mit Vorname und Name kürzt --namen=kurz.\n"
                  "Zeile 10, Weiß: angelegt\n"
                  "Klasse Hasen: 3 angelegt, 1 schon da, 5 abgelehnt.\n");
    EXPECT_EQ(lauf.ausgang, Ausgang::beanstandet);
    EXPECT_TRUE(inhalt("Gruppen/Hasen/Jörg._") == neu);
    EXPECT_TRUE(inhalt("Gruppen/Hasen/Eva Lu._") == neu);
    EXPECT_TRUE(inhalt("Gruppen/Hasen/Weiß._") == neu);
    EXPECT_TRUE(inhalt("Gruppen/Hasen/Mia._") == alt);
    EXPECT_EQ(b.alles().size(), 30u * 2 + 1 + 2 + 4 + 5) << "more was made than the accounts";
}

TEST_F(Verwaltung, AListWithAHeadingHasItsColumnsByNameWhateverDividesThem) {
    const std::vector<std::string> gleich{
        "\xEF\xBB\xBFKlasse;Vorname;Nachname\r\nHasen;Jörg;Übel\r\nBären;Ida;Groß\r\n;;\r\n\"hasen\";\"Ute "
        "\"\"U\"\"\";X\r\nHasen;Eva\r\n",
        "Nachname,Ort,Klasse,Vorname\nÜbel,\"Au, am See\",Hasen,Jörg\nGroß,,Bären,Ida\n,,,\nX,,hasen,\"Ute "
        "\"\"U\"\"\"\n,,Hasen,Eva",
        "\n\nvorname\tGRUPPE\tName\nJ\xF6rg\tHasen\t\xDC"
        "bel\nIda\tB\xE4ren\tGro\xDF\n\t\nUte \"U\"\thasen\tX\nEva\tHasen"};
    for (const std::string& liste : gleich) {
        SCOPED_TRACE(liste);
        const Lauf lauf = b.rufen({"konten", ort, "Hasen", "-"}, liste);
        const std::string ohneNummern = std::regex_replace(lauf.aus, std::regex("Zeile \\d+, "), "");
        EXPECT_EQ(ohneNummern, "Jörg Übel: angelegt\nUte \"U\" X: abgelehnt. "s + regeln +
                                   "Eva: angelegt\nKlasse Hasen: 2 angelegt, 0 schon da, 1 abgelehnt.\n"
                                   "Übergangene Zeilen anderer Klassen: 1 (Bären).\n");
        fs::remove(b.konto("Hasen/Jörg Übel"));
        fs::remove(b.konto("Hasen/Eva"));
    }
    b.rufen({"konten", ort, "Hasen", "-", "--namen=kurz"}, gleich[0]);
    EXPECT_TRUE(fs::exists(b.konto("Hasen/Jörg Ü")));
    b.rufen({"konten", ort, "Hasen", "-", "--namen", "vorname"}, gleich[0]);
    EXPECT_TRUE(fs::exists(b.konto("Hasen/Jörg")));

    const auto vorher = b.alles();
    const std::string utf16("M\0i\0a\0", 6);
    for (const std::string& unbrauchbar :
         {utf16, "Klasse;Wohnort\nHasen;Au"s, "Klasse;Name\nBären;Ida"s, ""s})
        EXPECT_EQ(b.rufen({"konten", ort, "Hasen", "-"}, unbrauchbar).ausgang, Ausgang::beanstandet);
    EXPECT_EQ(b.rufen({"konten", ort, "Hasen", "-", "--namen=kurz"}, "Ida").ausgang, Ausgang::beanstandet);
    EXPECT_EQ(b.alles(), vorher);
}

TEST_F(Verwaltung, AClassIsMadeWithItsSettingsAndOneThatIsThereStays) {
    EXPECT_EQ(b.rufen({"klasse", ort, "Bären 3"}).ausgang, Ausgang::gut);
    EXPECT_EQ(inhalt("Gruppen/Bären 3/KME.ein"), inhalt("Gruppen/kme.ein"));
    const auto vorher = b.alles();
    EXPECT_EQ(b.rufen({"klasse", ort, "HASEN"}).aus, "Klasse \"Hasen\": war schon da.\n");
    for (const char* name : {"..", "a/b", "LPT1", "Ende.", "sechzehn Zeichen", "B\xE4ren"})
        EXPECT_EQ(b.rufen({"klasse", ort, name}).ausgang, Ausgang::beanstandet) << name;
    EXPECT_EQ(b.alles(), vorher);
}

/// One fault of a sound folder, and the line that has to tell it.
struct Schaden {
    std::function<void(Verwaltungsbühne&)> anrichten;
    const char* zeile;
};

TEST_F(Verwaltung, EachFaultOfAFolderIsToldByItsOwnLineAndNothingIsWritten) {
    ASSERT_EQ(
        b.rufen({"pruefen", ort}).aus,
        "Hinweis: " + ort +
            "/: Nur der Besitzer des Ordners kann darin schreiben. Abhilfe: Keine, wenn alle unter diesem "
            "Benutzer arbeiten; sonst chgrp -R GRUPPE, chmod -R g+rwX und find … -type d -exec chmod g+s {} "
            "+\n"
            "Keine Mängel.\n");
    const auto setzen = [](Kontosatz satz, const Wert& wert) {
        return [=](Verwaltungsbühne& v) { v.setzen("Hasen/Mia", satz, wert); };
    };
    const auto bytes = [](const char* pfad, const std::string& inhalt) {
        return [=](Verwaltungsbühne& v) { dateiSchreiben(v.daten() / pfad, inhalt); };
    };
    const auto ersetzt = [](const char* pfad, std::size_t stelle, const std::string& neu) {
        return [=](Verwaltungsbühne& v) {
            std::string inhalt = dateiinhalt(v.daten() / pfad);
            dateiSchreiben(v.daten() / pfad, inhalt.replace(stelle, neu.size(), neu));
        };
    };
    const auto weg = [](const char* pfad) {
        return [=](Verwaltungsbühne& v) { fs::remove_all(v.daten() / pfad); };
    };
    const std::vector<Schaden> schäden{
        {weg("Data/Tastatur/Lektion30.txt"), "Data/Tastatur/Lektion30.txt: Die Datei fehlt"},
        {bytes("Data/Tastatur/Lektion2.txt", "x\r\n"), "Data/Tastatur/Lektion2.txt: Die Zahl der Stufen"},
        {ersetzt("Data/Tastatur/Lektion2.txt", 0, "4"), "Data/Tastatur/Lektion2.txt: Stufe 4 fehlt"},
        {bytes("Data/Tastatur/Lektion2.txt", lektionstext("Einzeiler ", {"fj"})),
         "Data/Tastatur/Lektion2.txt: Die Art"},
        {bytes("Data/Tastatur/Lektion2.txt", lektionstext("Einzeiler", {std::string(56, 'f')})),
         "Data/Tastatur/Lektion2.txt: Der Text von Stufe 1 hat mehr als 55"},
        {weg("Data/Tastatur/Lektion1.bmp"), "Data/Tastatur/Lektion1.bmp: Die Datei fehlt"},
        {ersetzt("Data/Tastatur/Lektion9.bmp", 2, "\x37"),
         "Data/Tastatur/Lektion9.bmp: Das Bild ist unvollständig"},
        {bytes("Data/Texte/Halb.txt", "{\\rtf1 Hallo"), "Data/Texte/Halb.txt: Der Text bricht mitten"},
        {bytes("Data/Texte/Lang.txt", std::string(100'001, 'x')), "Data/Texte/Lang.txt: Der Text ist länger"},
        {weg("Gruppen/kme.ein"),
         "Gruppen/kme.ein: Die Datei fehlt; ohne sie gilt der Ordner nicht als Datenablage."},
        {weg("Gruppen/Hasen/KME.ein"), "Gruppen/Hasen/KME.ein: Die Datei fehlt; keine Übung"},
        {bytes("Gruppen/Hasen/KME.ein", "abc"), "Gruppen/Hasen/KME.ein: Die Datei ist leer oder keine"},
        {ersetzt("Gruppen/Hasen/KME.ein", 0, std::string(4, '\0')),
         "Gruppen/Hasen/KME.ein: 1 von 100 Sätzen"},
        {ersetzt("Gruppen/Hasen/KME.ein", 130, "\2"),
         "Gruppen/Hasen/KME.ein: Der Schalter der Übung 2 ist \"2\""},
        {ersetzt("Gruppen/Hasen/KME.ein", 105 * 128 + 7, "7"),
         "Gruppen/Hasen/KME.ein: Den gewählten Text \"Text_701.txt\" gibt es nicht"},
        {bytes("Gruppen/Hasen/Leer._", ""), "Gruppen/Hasen/Leer._: Die Datei ist leer"},
        {bytes("Gruppen/Hasen/Rest._", std::string(35 * 128, '\0') + "\2\0\x61\0"s),
         "Gruppen/Hasen/Rest._: 99 von 100 Sätzen fehlen"},
        {ersetzt("Gruppen/Hasen/Mia._", 40 * 128, "\7"),
         "Gruppen/Hasen/Mia._: Satz 41 (Anschläge pro Minute) ist unlesbar"},
        {setzen(Kontosatz::Zeitmodus, std::int16_t{2}),
         "Gruppen/Hasen/Mia._: Satz 31 (Üben mit Zeit) hat den unmöglichen Wert \"2\""},
        {setzen(Kontosatz::Lektionsnummer, std::int16_t{32}),
         "Gruppen/Hasen/Mia._: Satz 32 (Lektion) hat den unmöglichen Wert \"32\""},
        {setzen(Kontosatz::Stufennummer, std::int16_t{4}),
         "Gruppen/Hasen/Mia._: Stufe 4 gibt es in Lektion 1 nicht; sie hat 3 Stufen."},
        {setzen(Kontosatz::Genauigkeit, -0.5),
         "Gruppen/Hasen/Mia._: Satz 36 (Genauigkeit in Prozent) hat den unmöglichen Wert \"-0,5\""},
        {setzen(Kontosatz::TexteGesamt, 2.5F),
         "Gruppen/Hasen/Mia._: Satz 40 (Getippte Texte) hat den unmöglichen Wert \"2,5\""},
        {setzen(Kontosatz::AnschlaegeSchnitt, L"viele"),
         "Gruppen/Hasen/Mia._: Satz 41 (Anschläge pro Minute) hat den unmöglichen Wert \"viele\""},
        {[](Verwaltungsbühne& v) { v.kontoMachen("Hasen/Con"); },
         "Gruppen/Hasen/Con._: Der Name ist nicht auf jedem Rechner möglich."},
        {[](Verwaltungsbühne& v) { fs::copy_file(v.konto("Hasen/Mia"), v.konto("Hasen/mIA")); },
         "Gruppen/Hasen/mIA._: Es gibt auch \"Mia\""},
        {[](Verwaltungsbühne& v) { fs::create_symlink("/dev/null", v.konto("Hasen/Tom")); }, nullptr},
        {[](Verwaltungsbühne& v) { fs::create_symlink(v.konto("Hasen/Mia"), v.konto("Hasen/Tom")); },
         "Gruppen/Hasen/Tom._: Das Konto ist eine Verknüpfung"},
        {[](Verwaltungsbühne& v) { fs::create_directory_symlink("Hasen", v.daten() / "Gruppen/Igel"); },
         "Gruppen/Igel/: Die Klasse ist eine Verknüpfung"},
        {[](Verwaltungsbühne& v) { fs::create_directory(v.daten() / "Gruppen/Hasen/Tom"); },
         "Gruppen/Hasen/Tom: Zu diesem Ordner gibt es kein Konto"},
        {[](Verwaltungsbühne& v) {
             const fs::path rest = v.daten() / "Data/.klopfmeise-7-0";
             dateiSchreiben(rest, "x");
             fs::last_write_time(rest, fs::file_time_type::clock::now() - std::chrono::hours(2));
         },
         "Data/.klopfmeise-7-0: Das ist der Rest"},
    };
    for (const Schaden& schaden : schäden) {
        SCOPED_TRACE(schaden.zeile ? schaden.zeile : "nothing to tell");
        Verwaltungsbühne v;
        schaden.anrichten(v);
        const auto vorher = v.alles();
        const Lauf lauf = v.rufen({"pruefen", v.daten().string()});
        std::vector<std::string> mängel;
        std::istringstream zeilen(lauf.aus);
        for (std::string zeile; std::getline(zeilen, zeile);)
            if (zeile.starts_with("Mangel: "))
                mängel.push_back(zeile.substr(8));
        EXPECT_EQ(mängel.size(), schaden.zeile ? 1u : 0u) << lauf.aus;
        if (schaden.zeile && !mängel.empty()) {
            EXPECT_EQ(mängel[0].substr(0, std::string(schaden.zeile).size()), schaden.zeile);
        }
        EXPECT_EQ(lauf.ausgang, schaden.zeile ? Ausgang::beanstandet : Ausgang::gut);
        EXPECT_EQ(v.alles(), vorher);
    }
    // What a program writes in earnest is no fault.
    const std::vector<std::pair<Kontosatz, Wert>> richtig{{Kontosatz::Lektionsnummer, std::int32_t{31}},
                                                          {Kontosatz::Stufennummer, L""},
                                                          {Kontosatz::Genauigkeit, 98.25},
                                                          {Kontosatz::HighWolken, 1e7},
                                                          {Kontosatz::HighBand, 12.5F},
                                                          {Kontosatz::AnschlaegeSchnitt, L"87"}};
    for (const auto& [satz, wert] : richtig)
        b.setzen("Hasen/Mia", satz, wert);
    EXPECT_EQ(b.rufen({"pruefen", ort}).ausgang, Ausgang::gut);
}

} // namespace
} // namespace klopfmeise
