#include "platform/machine/reg_file.h"
#include "store/lektionsdatei.h"
#include "store/mdl_dir.h"
#include "store/mdl_registry.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Lektionsdatei, FindsTheStageByItsWholeMarker) {
    const std::string datei = "12\r\nEinzeiler\r\nGr\xFC\xDF"
                              "e\r\nUnterstufe12\r\nzw\xF6lf\r\ntext12\r\nhinweis12\r\nnebenher\r\n"
                              "Unterstufe1\r\neins\r\nfff jjj\r\nhinweis1";
    const Lektion eins = lektionAus(datei, 1);
    ASSERT_TRUE(eins.vollständig());
    EXPECT_TRUE(eins.einzeiler());
    EXPECT_EQ(eins.Lektionstitel, L"Grüße");
    EXPECT_EQ(eins.stufe->Stufentext, L"fff jjj");
    EXPECT_EQ(eins.stufe->Stufenhinweis, L"hinweis1");
    EXPECT_EQ(lektionAus(datei, 12).stufe->Stufentitel, L"zwölf");
    EXPECT_FALSE(lektionAus(datei, 2).vollständig());
}

TEST(Lektionsdatei, BrokenFilesTellWhatTheyHave) {
    EXPECT_FALSE(lektionAus("", 1).vollständig());
    EXPECT_FALSE(lektionAus("2\r\nEinzeiler \r\n", 1).einzeiler());
    for (const char* zahl : {"zwei", "0", "-3", "1e9", "2.5", "99999999999999999999", ""}) {
        const Lektion lektion =
            lektionAus(std::string(zahl) + "\r\nEinzeiler\r\nT\r\nUnterstufe1\r\na\r\nb\r\nc\r\n", 1);
        EXPECT_FALSE(lektion.vollständig()) << zahl;
        EXPECT_EQ(lektion.Lektionstitel, L"T") << zahl;
    }
    EXPECT_FALSE(lektionAus("1\nEinzeiler\nT\nUnterstufe1\na\nb", 1).stufe);
    EXPECT_FALSE(lektionAus("1\nEinzeiler\nT\nUnterstufe1\na\n\nc\n", 1).stufe);
    EXPECT_TRUE(lektionAus("1\nEinzeiler\nT\nUnterstufe1\na\nb\nc", 1).stufe);
}

TEST(mdlDir, FindsMarkersWithoutRegardToCaseAndRefusesARoot) {
    Wegwerfordner ordner;
    PosixFiles dateien;
    dateiSchreiben(ordner.pfad() / "gruppen" / "KME.EIN", "x");
    dateiSchreiben(ordner.pfad() / "Data" / "Tastatur" / "lektion1.bmp", "x");
    dateiSchreiben(ordner.pfad() / "Data" / "Texte" / "Text_001.txt", "x");
    const std::wstring pfad = logikpfad(ordner.pfad()) + L"\\";
    EXPECT_TRUE(zulässigeDatenablage(dateien, pfad));
    EXPECT_FALSE(DateiVorhanden(dateien, pfad + L"Gruppen"));
    EXPECT_FALSE(DateiVorhanden(dateien, pfad + L"Gruppen\\kme"));
    EXPECT_EQ(DateiName(L"a\\b\\c.txt"), L"c.txt");
    EXPECT_EQ(DateiName(L"c.txt"), L"c.txt");
    std::filesystem::remove(ordner.pfad() / "gruppen" / "KME.EIN");
    EXPECT_FALSE(zulässigeDatenablage(dateien, pfad));
    EXPECT_FALSE(zulässigeDatenablage(dateien, L"\\"));
}

class Registrierung : public ::testing::Test {
protected:
    Wegwerfordner ordner;
    std::string pfad = (ordner.pfad() / "maschine.reg").string();
    RegFile registry{pfad};
};

TEST_F(Registrierung, BothFormsOfAStoredPathGiveTheSameFolder) {
    PosixFiles dateien;
    ManualClock clock;
    SeededRandom random;
    RecordedSound sound;
    ScriptedShell shell;
    Services dienste{clock, random, sound, dateien, registry, shell};
    for (const char* wert : {R"("C:\\Daten")", R"(hex(1):43,3a,5c,44,61,74,65,6e,5c)", R"("C:\\Daten\\")",
                             "hex(1):43,3a,5c,44,\\\r\n  61,74,65,6e,5c,00"}) {
        dateiSchreiben(pfad, "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\r\n\"Datenablage\"=" +
                                 std::string(wert) + "\r\n");
        EXPECT_EQ(DatenablageLesen(dienste), L"C:\\Daten\\") << wert;
    }
    dateiSchreiben(pfad, "");
    EXPECT_EQ(DatenablageLesen(dienste), L"\\");
}

TEST_F(Registrierung, WrittenValuesComeBackAndTheRestOfTheFileStays) {
    EXPECT_EQ(RegistrySchluesselDa(registry, Maschine, Programmschlüssel), RegistryStatus::fileNotFound);
    EXPECT_EQ(
        RegistrySchreiben(registry, Maschine, Programmschlüssel, L"Pin", std::wstring(L"8ß15"), true, true),
        RegistryStatus::success);
    EXPECT_EQ(RegistryText(registry, L"Pin"), L"8ß15");
    EXPECT_EQ(RegistryText(registry, L"pin"), L"8ß15");

    const std::string fremd =
        "; von der Schulleitung\r\n[HKEY_LOCAL_MACHINE\\Software\\Anderes]\r\n\"Pin\"=\"1111\"\r\n";
    dateiSchreiben(pfad, dateiinhalt(pfad) + "\"Notiz\"=dword:0000002a\r\n" + fremd);
    RegistrySchreiben(registry, Maschine, Programmschlüssel, L"Pin", std::wstring(L"1234"), true, true);
    RegistrySchreiben(registry, Maschine, Programmschlüssel, L"Neu", std::wstring(L"a\r\nb"), true, true);
    const std::string inhalt = dateiinhalt(pfad);
    EXPECT_NE(inhalt.find(fremd), std::string::npos);
    EXPECT_NE(inhalt.find("\"Pin\"=hex(1):31,32,33,34\r\n"), std::string::npos);
    EXPECT_NE(inhalt.find("\"Neu\"=hex(7):61,00,62\r\n"), std::string::npos);
    Wert notiz;
    EXPECT_EQ(RegistryLesen(registry, Maschine, Programmschlüssel, L"Notiz", notiz), RegistryStatus::success);
    EXPECT_EQ(notiz, Wert{std::int32_t{42}});
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(ordner.pfad()), {}), 1);
}

TEST_F(Registrierung, StoredBytesComeWithTheirTerminatorAndAMissingValueLeavesTheTarget) {
    dateiSchreiben(pfad, "\xEF\xBB\xBF[hkey_local_machine\\SOFTWARE\\klopfmeise]\n\"Pin\"=\"7294\"\n");
    EXPECT_EQ(RegistryText(registry, L"Pin"), std::wstring(L"7294\0", 5));
    Wert ziel{std::int16_t{7}};
    EXPECT_EQ(RegistryLesen(registry, Maschine, Programmschlüssel, L"Fehlt", ziel),
              RegistryStatus::fileNotFound);
    EXPECT_EQ(ziel, Wert{std::int16_t{7}});
}

} // namespace
} // namespace klopfmeise
