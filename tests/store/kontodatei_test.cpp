#include "store/kontodatei.h"
#include "tests/ausfallende_dateien.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>
#include <random>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

TEST(Kontodatei, CreationImageHoldsHundredRecordsAndThreeRuns) {
    Wegwerfordner ordner;
    PosixFiles dateien;
    const auto pfad = ordner.pfad() / "Neu._";
    ASSERT_TRUE(Kontodatei(dateien, logikpfad(pfad)).WerteSchreiben());
    const std::string inhalt = dateiinhalt(pfad);
    EXPECT_EQ(inhalt.substr(4224, 4), "\x02\x00\x03\x00"s);
    Kontodatei datei(dateien, logikpfad(pfad));
    for (int satz = 1; satz <= 100; ++satz)
        EXPECT_EQ(datei.lesen(satz), Wert{static_cast<std::int16_t>(satz == 34 ? 3 : 0)}) << satz;
    EXPECT_TRUE(istLeer(datei.lesen(101)));
    EXPECT_TRUE(datei.gut());
}

TEST(Kontodatei, WritesOneSlotAndLeavesTheOthersByteForByte) {
    Wegwerfordner ordner;
    PosixFiles dateien;
    const auto pfad = ordner.pfad() / "a._";
    std::string vorher(1000, '\0');
    std::mt19937 zufall(3);
    for (char& c : vorher)
        c = static_cast<char>(zufall());
    dateiSchreiben(pfad, vorher);
    Kontodatei(dateien, logikpfad(pfad)).schreiben(3, 98.5);
    std::string nachher = dateiinhalt(pfad);
    EXPECT_EQ(nachher.substr(256, 10), bytesAus(98.5, 128));
    nachher.replace(256, 10, vorher, 256, 10);
    EXPECT_EQ(nachher, vorher);
    // Longer than its slot: cut to it, the next slot untouched.
    Kontodatei(dateien, logikpfad(pfad)).schreiben(1, std::wstring(500, L'x'));
    EXPECT_EQ(dateiinhalt(pfad).substr(128, 128), vorher.substr(128, 128));
    EXPECT_EQ(Kontodatei(dateien, logikpfad(pfad)).lesen(1), Wert{std::wstring(124, L'x')});
}

TEST(Kontodatei, PlainStringKeepsUmlautsAndExtendsTheFile) {
    Wegwerfordner ordner;
    PosixFiles dateien;
    const std::wstring pfad = logikpfad(ordner.pfad() / "KME.ein");
    EXPECT_EQ(Kontodatei(dateien, pfad).lesenText(106), L"");
    EXPECT_TRUE(Kontodatei(dateien, pfad).schreibenText(106, L"Übung für Grüße.txt"));
    EXPECT_EQ(Kontodatei(dateien, pfad).lesenText(106), L"Übung für Grüße.txt");
    EXPECT_TRUE(istLeer(Kontodatei(dateien, pfad).lesen(5)));
}

TEST(Kontodatei, AFolderInItsPlaceIsNotAnEmptyAccount) {
    Wegwerfordner ordner;
    PosixFiles dateien;
    std::filesystem::create_directory(ordner.pfad() / "Kind._");
    Kontodatei datei(dateien, logikpfad(ordner.pfad() / "Kind._"));
    EXPECT_TRUE(istLeer(datei.lesen(32)));
    EXPECT_FALSE(datei.schreiben(32, std::int16_t{1}));
    EXPECT_FALSE(datei.gut());
}

TEST(Kontodatei, ClosingTellsOfEveryFailureSinceTheOpening) {
    Wegwerfordner ordner;
    AusfallendeDateien dateien;
    const std::wstring pfad = logikpfad(ordner.pfad() / "a._");
    // Opening, writing, closing; then none.
    for (int vorgang = 1; vorgang <= 4; ++vorgang) {
        dateien.ausfallenBei(vorgang);
        Kontodatei datei(dateien, pfad);
        datei.schreiben(32, std::int16_t{1});
        EXPECT_EQ(datei.schließen(), vorgang == 4) << vorgang;
        EXPECT_EQ(datei.gut(), vorgang == 4) << vorgang;
    }
}

} // namespace
} // namespace klopfmeise
