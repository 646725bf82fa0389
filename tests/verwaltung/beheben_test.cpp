#include "store/mdl_dir.h"
#include "tests/verwaltung/verwaltungsbuehne.h"
#include "verwaltung/pruefung.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;

class Beheben : public ::testing::Test {
protected:
    Verwaltungsbühne b;
    const std::string ort = b.daten().string();
    const std::string mia = "Gruppen/Hasen/Mia._";
    const std::string beiseite = "Sicherung-2026-11-23-160142/";

    std::string inhalt(const std::string& pfad) { return dateiinhalt(b.daten() / pfad); }
};

TEST_F(Beheben, AnAccountIsMendedRecordByRecordAndWhatItWasIsPutAside) {
    b.setzen("Hasen/Mia", Kontosatz::Lektionsnummer, std::int16_t{77});
    b.setzen("Hasen/Mia", Kontosatz::Stufennummer, std::int16_t{9});
    b.setzen("Hasen/Mia", Kontosatz::Tempowert, std::int32_t{-4});
    b.setzen("Hasen/Mia", Kontosatz::Genauigkeit, std::numeric_limits<double>::quiet_NaN());
    b.setzen("Hasen/Mia", Kontosatz::HighSteine, std::int16_t{321});
    const std::string vorher = inhalt(mia);
    const Lauf nein = b.rufen({"pruefen", ort, "--beheben"}, "n\nvielleicht\nnein\nkeine\n", true);
    EXPECT_EQ(nein.ausgang, Ausgang::beanstandet);
    EXPECT_EQ(b.rufen({"pruefen", ort, "--beheben"}, "j\nj\nj\nj\n", false).ausgang, Ausgang::beanstandet);
    EXPECT_TRUE(inhalt(mia) == vorher);

    // The lesson, not the pace, then the accuracy; the stage of lesson 30 shows only now.
    EXPECT_EQ(b.rufen({"pruefen", ort, "--beheben"}, "J\nn\n ja\nja\n", true).ausgang, Ausgang::beanstandet);
    std::string soll = vorher;
    soll.replace(31 * 128, 4, "\2\0\x1E\0"s);
    soll.replace(35 * 128, 10, "\2\0\0\0"s + vorher.substr(35 * 128 + 4, 6));
    EXPECT_EQ(b.satz("Hasen/Mia", Kontosatz::Genauigkeit), Wert(0.0));
    soll.replace(35 * 128, 10, inhalt(mia).substr(35 * 128, 10));
    EXPECT_TRUE(inhalt(mia) == soll);
    EXPECT_TRUE(inhalt(beiseite + mia) == vorher);

    const Lauf rest = b.rufen({"pruefen", ort, "--beheben", "--ja"});
    EXPECT_EQ(rest.ausgang, Ausgang::gut) << rest.aus;
    EXPECT_EQ(b.satz("Hasen/Mia", Kontosatz::Stufennummer), Wert(std::int16_t{3}));
    EXPECT_EQ(b.satz("Hasen/Mia", Kontosatz::Tempowert), Wert(std::int16_t{0}));
    EXPECT_EQ(b.satz("Hasen/Mia", Kontosatz::HighSteine), Wert(std::int16_t{321}));
    EXPECT_TRUE(inhalt(beiseite + mia) == vorher);
}

TEST_F(Beheben, WhatIsMissingIsFilledInAndWhatIsThereStays) {
    const std::string neu = inhalt(mia);
    // A child that typed on while its account was moved away: one record at the end of nothing.
    dateiSchreiben(b.konto("Hasen/Rest"), std::string(35 * 128, '\0') + "\2\0\x61\0"s);
    dateiSchreiben(b.konto("Hasen/Leer"), "");
    dateiSchreiben(b.daten() / "Gruppen/Hasen/KME.ein", "");
    fs::remove(b.daten() / "Data/Tastatur/Lektion7.txt");
    dateiSchreiben(b.daten() / "Data/Tastatur/Lektion8.txt", "eigene");
    fs::create_directories(b.daten() / "Gruppen/Hasen/Tom");
    fs::create_directories(b.daten() / "Gruppen/Hasen/Ida/innen");
    fs::create_directory(b.ordner.pfad() / "Vorlage");
    fs::copy(b.daten() / "Data", b.ordner.pfad() / "Vorlage/Data", fs::copy_options::recursive);
    const std::string lektion = inhalt("Data/Tastatur/Lektion9.txt");
    for (const char* name : {"Lektion7.txt", "Lektion8.txt"})
        dateiSchreiben(b.ordner.pfad() / "Vorlage/Data/Tastatur" / name, lektion);
    EXPECT_EQ(b.rufen({"pruefen", ort, "--beheben", "--ja"}).ausgang, Ausgang::beanstandet);

    std::string rest = neu;
    EXPECT_EQ(inhalt("Gruppen/Hasen/Rest._").substr(0, 12676),
              rest.replace(35 * 128, 4, "\2\0\x61\0"s).substr(0, 12676));
    EXPECT_TRUE(inhalt("Gruppen/Hasen/Leer._") == neu);
    EXPECT_TRUE(inhalt("Gruppen/Hasen/KME.ein") == inhalt("Gruppen/kme.ein"));
    EXPECT_TRUE(inhalt("Data/Tastatur/Lektion7.txt") == lektion);
    EXPECT_TRUE(inhalt("Data/Tastatur/Lektion8.txt") == lektion);
    EXPECT_EQ(inhalt(beiseite + "Data/Tastatur/Lektion8.txt"), "eigene");
    EXPECT_FALSE(fs::exists(b.daten() / "Gruppen/Hasen/Tom"));
    const Lauf danach = b.rufen({"pruefen", ort});
    EXPECT_NE(danach.aus.find("Gruppen/Hasen/Ida: Zu diesem Ordner gibt es kein Konto"), std::string::npos);
    EXPECT_NE(danach.aus.find("\nEin Mangel.\n"), std::string::npos) << danach.aus;
}

TEST_F(Beheben, ARecordThatAChildHasWrittenMeanwhileIsLeftAlone) {
    b.setzen("Hasen/Mia", Kontosatz::Lektionsnummer, std::int16_t{77});
    std::ostringstream egal;
    std::istringstream leer;
    Konsole konsole(egal, egal, leer, false);
    Umfeld umfeld{b.dateien, konsole, b.jetzt, {}};
    const auto ablage = ablageÖffnen(umfeld, ort);
    ASSERT_TRUE(ablage);
    Beiseite kopien(*ablage);
    Prüfung prüfung(*ablage, kopien, L"\\nirgends\\");
    Globale global = ablage->global;
    global.AktuelleKlasse = L"Hasen\\";
    kontoPrüfen(prüfung, global, L"Mia");
    ASSERT_EQ(prüfung.befunde().size(), 1u);
    b.setzen("Hasen/Mia", Kontosatz::Lektionsnummer, std::int16_t{5});
    EXPECT_FALSE(prüfung.befunde()[0].beheben());
    EXPECT_EQ(b.satz("Hasen/Mia", Kontosatz::Lektionsnummer), Wert(std::int16_t{5}));
    fs::remove(b.konto("Hasen/Mia"));
    EXPECT_FALSE(prüfung.befunde()[0].beheben());
    EXPECT_FALSE(fs::exists(b.konto("Hasen/Mia"))) << "an account that was deleted is made again";
}

TEST_F(Beheben, WhatOthersCannotWriteInASharedFolderIsOpenedToThem) {
    const auto modus = [&](const std::string& pfad) {
        struct stat status {};
        ::stat((b.daten() / pfad).c_str(), &status);
        return status.st_mode & 07777;
    };
    for (const auto& eintrag : fs::recursive_directory_iterator(b.daten()))
        ::chmod(eintrag.path().c_str(), eintrag.is_directory() ? 02775 : 0664);
    ::chmod(b.daten().c_str(), 02775);
    ASSERT_EQ(b.rufen({"pruefen", ort}).aus, "Keine Mängel.\n");
    ::chmod((b.daten() / "Gruppen").c_str(), 03775);
    ::chmod((b.daten() / "Gruppen/Hasen").c_str(), 0700);
    ::chmod((b.daten() / mia).c_str(), 0600);
    const Lauf lauf = b.rufen({"pruefen", ort, "--beheben", "--ja"});
    EXPECT_EQ(lauf.ausgang, Ausgang::gut) << lauf.aus;
    EXPECT_NE(lauf.aus.find("3 Mängel."), std::string::npos) << lauf.aus;
    EXPECT_EQ(modus("Gruppen"), 02775u);
    EXPECT_EQ(modus("Gruppen/Hasen"), 02775u);
    EXPECT_EQ(modus(mia), 0664u);
}

class Anlegen : public Beheben {
protected:
    const fs::path ziel = b.ordner.pfad() / "Neu";
    std::vector<std::string> worte{"anlegen", ziel.string(), "--vorlage", ort};

    std::map<std::string, std::string> ohneKlassen() {
        auto alles = b.alles();
        std::erase_if(alles, [](const auto& datei) { return datei.first.starts_with("Gruppen/Hasen"); });
        return alles;
    }
    std::map<std::string, std::string> gemacht() {
        std::map<std::string, std::string> aus;
        for (const auto& eintrag : fs::recursive_directory_iterator(ziel)) {
            const std::string pfad = eintrag.path().lexically_relative(ziel).string();
            aus[pfad + (eintrag.is_directory() ? "/" : "")] =
                eintrag.is_directory() ? std::string() : dateiinhalt(eintrag.path());
        }
        return aus;
    }
};

TEST_F(Anlegen, ANewFolderHasAllButTheClassesAndItsGroupMayWriteWhateverTheUmask) {
    const mode_t alteUmask = ::umask(077);
    const Lauf lauf = b.rufen(worte);
    ::umask(alteUmask);
    EXPECT_EQ(lauf.ausgang, Ausgang::gut) << lauf.fehler;
    EXPECT_EQ(gemacht(), ohneKlassen());
    for (const auto& eintrag : fs::recursive_directory_iterator(ziel)) {
        struct stat status {};
        ::stat(eintrag.path().c_str(), &status);
        EXPECT_EQ(status.st_mode & 07777, eintrag.is_directory() ? 02770u : 0660u) << eintrag.path();
    }
    EXPECT_EQ(b.rufen({"klasse", ziel.string(), "Igel"}).ausgang, Ausgang::gut);
    EXPECT_EQ(b.rufen({"konten", ziel.string(), "Igel", "-"}, "Mia").ausgang, Ausgang::gut);
    EXPECT_EQ(b.rufen({"pruefen", ziel.string()}).aus, "Keine Mängel.\n");
    const auto vorher = gemacht();
    EXPECT_EQ(b.rufen(worte).ausgang, Ausgang::beanstandet);
    EXPECT_EQ(gemacht(), vorher);
}

TEST_F(Anlegen, AFolderThatCannotBeFinishedIsTakenAwayAgain) {
    const fs::path vorlage = b.ordner.pfad() / "Vorlage";
    for (const char* pfad : {"Data/Tastatur/Lektion1.bmp", "Data/Texte/Text_001.txt", "Gruppen/kme.ein"})
        dateiSchreiben(vorlage / pfad, inhalt(pfad));
    worte = {"anlegen", ziel.string()};
    int fehlgeschlagen = 0;
    for (int n = 1;; ++n) {
        b.dateien.ausfallenBei(n);
        const Lauf lauf = b.rufen(worte);
        if (b.dateien.ausfall() == Vorgang::keiner)
            break;
        SCOPED_TRACE(n);
        fehlgeschlagen += lauf.ausgang != Ausgang::gut;
        EXPECT_EQ(fs::exists(ziel), lauf.ausgang == Ausgang::gut) << lauf.fehler;
        fs::remove_all(ziel);
    }
    EXPECT_GT(fehlgeschlagen, 10);
    b.dateien.ausfallenBei(0);
    fs::remove_all(ziel);
    dateiSchreiben(ziel / "fremd", "x");
    EXPECT_EQ(b.rufen(worte).ausgang, Ausgang::beanstandet);
    EXPECT_EQ(gemacht().size(), 1u);
    EXPECT_EQ(b.rufen({"anlegen", (b.daten() / "Neu").string(), "--vorlage", ort}).ausgang,
              Ausgang::beanstandet);
    fs::remove(vorlage / "Gruppen/kme.ein");
    EXPECT_EQ(b.rufen({"anlegen", ziel.string() + "2"}).ausgang, Ausgang::unzugänglich);
}

TEST_F(Beheben, TheCommandTellsByItsExitCodeHowItEnded) {
    const auto rufen = [](const std::string& worte) {
        const int stand =
            std::system((KLOPFMEISE_VERWALTUNG " " + worte + " >/dev/null 2>&1 </dev/null").c_str());
        return WIFEXITED(stand) ? WEXITSTATUS(stand) : -1;
    };
    EXPECT_EQ(rufen("--help"), 0);
    for (const Befehl& befehl : befehle())
        EXPECT_EQ(rufen(std::string(befehl.name) + " --help"), 0);
    EXPECT_EQ(rufen("prüfen '" + ort + "'"), 0);
    EXPECT_EQ(rufen("klasse '" + ort + "' CON"), 1);
    for (const char* falsch :
         {"", "quatsch", "pruefen", "pruefen a b", "pruefen --quatsch a", "bericht a b --als",
          "bericht a b --als pdf", "pruefen a --ja=nein", "klasse a ''", "sichern --ja a b"})
        EXPECT_EQ(rufen(falsch), 2) << falsch;
    EXPECT_EQ(rufen("pruefen '" + ort + "/nichts'"), 3);
    EXPECT_EQ(rufen("bericht '" + ort + "' Hasen --ausgabe /dev/null/x"), 3);
}

} // namespace
} // namespace klopfmeise
