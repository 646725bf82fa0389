#include "store/kontodatei.h"
#include "tests/ausfallende_dateien.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>
#include <random>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

class Kontodateien : public ::testing::Test {
protected:
    Wegwerfordner ordner;
    AusfallendeDateien dateien;
    const fs::path konto = ordner.pfad() / "Mia._";
    const std::wstring pfad = logikpfad(konto);
};

TEST_F(Kontodateien, CreationImageHoldsHundredRecordsAndThreeRuns) {
    Kontodatei datei(dateien, pfad);
    ASSERT_TRUE(datei.WerteSchreiben());
    for (int satz = 1; satz <= 100; ++satz)
        EXPECT_EQ(datei.lesen(satz), Wert{static_cast<std::int16_t>(satz == 34 ? 3 : 0)}) << satz;
    EXPECT_TRUE(istLeer(datei.lesen(101)));
}

TEST_F(Kontodateien, WritesOneSlotAndLeavesTheOthersByteForByte) {
    std::string vorher(1000, '\0');
    std::mt19937 zufall(3);
    for (char& c : vorher)
        c = static_cast<char>(zufall());
    dateiSchreiben(konto, vorher);
    Kontodatei(dateien, pfad).schreiben(3, 98.5);
    std::string nachher = dateiinhalt(konto);
    EXPECT_EQ(nachher.substr(256, 10), bytesAus(98.5, 128));
    nachher.replace(256, 10, vorher, 256, 10);
    EXPECT_EQ(nachher, vorher);
    // Longer than its slot: cut to it, the next slot untouched.
    Kontodatei(dateien, pfad).schreiben(1, std::wstring(500, L'x'));
    EXPECT_EQ(dateiinhalt(konto).substr(128, 128), vorher.substr(128, 128));
}

TEST_F(Kontodateien, PlainStringKeepsUmlautsAndExtendsTheFile) {
    EXPECT_EQ(Kontodatei(dateien, pfad).lesenText(106), L"");
    EXPECT_TRUE(Kontodatei(dateien, pfad).schreibenText(106, L"Übung für Grüße.txt"));
    EXPECT_EQ(Kontodatei(dateien, pfad).lesenText(106), L"Übung für Grüße.txt");
}

TEST_F(Kontodateien, ClosingTellsOfEveryFailureSinceTheOpening) {
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
