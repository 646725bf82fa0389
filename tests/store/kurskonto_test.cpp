#include "store/kurskonto.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>
#include <limits>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

TEST(Kurskonto, DefaultsAndWhatLiesOutsideTheRange) {
    Wegwerfordner ordner;
    PosixFiles dateien;
    const std::wstring pfad = logikpfad(ordner.pfad() / "k._");
    const auto frisch = kurskontoLesen(dateien, pfad);
    ASSERT_TRUE(frisch);
    EXPECT_EQ(frisch->Lektionsnummer, 1);
    EXPECT_EQ(frisch->Stufennummer, 1);
    EXPECT_EQ(frisch->Durchgangszahl, 1);
    EXPECT_EQ(frisch->Tempowert, 10);
    EXPECT_EQ(frisch->Genauigkeit, 100);
    Kontodatei datei(dateien, pfad);
    datei.schreiben(Kontosatz::Lektionsnummer, std::int32_t{40000});
    datei.schreiben(Kontosatz::Stufennummer, std::int16_t{-5});
    datei.schreiben(Kontosatz::Durchgangszahl, std::numeric_limits<double>::quiet_NaN());
    datei.schreiben(Kontosatz::Tempowert, 1e300);
    datei.schreiben(Kontosatz::Genauigkeit, std::numeric_limits<double>::infinity());
    datei.schreiben(Kontosatz::Fehlerstopp, L"1"s);
    const auto wild = kurskontoLesen(dateien, pfad);
    ASSERT_TRUE(wild);
    EXPECT_EQ(wild->Lektionsnummer, 40000);
    EXPECT_EQ(wild->Stufennummer, -5);
    EXPECT_EQ(wild->Durchgangszahl, 1);
    EXPECT_EQ(wild->Tempowert, 10);
    EXPECT_EQ(wild->Genauigkeit, 100);
    EXPECT_EQ(wild->Fehlerstopp, 1);
}

TEST(Kurskonto, AFileThatCannotBeReadGivesNoAccount) {
    Wegwerfordner ordner;
    PosixFiles dateien;
    std::filesystem::create_directory(ordner.pfad() / "Kind._");
    EXPECT_FALSE(kurskontoLesen(dateien, logikpfad(ordner.pfad() / "Kind._")));
}

TEST(Kurskonto, BehindTheLastStageComesTheNextLesson) {
    Kurskonto konto{.Lektionsnummer = 4, .Stufennummer = 11};
    stufeWeiter(konto, 12);
    EXPECT_EQ(std::pair(konto.Lektionsnummer, konto.Stufennummer), std::pair(4, 12));
    stufeWeiter(konto, 12);
    EXPECT_EQ(std::pair(konto.Lektionsnummer, konto.Stufennummer), std::pair(5, 1));
}

} // namespace
} // namespace klopfmeise
