#include "store/genauigkeit.h"
#include "store/kontostand.h"
#include "store/kursplatz.h"
#include "store/rekord.h"
#include "tests/ausfallende_dateien.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>
#include <limits>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

constexpr double keineZahl = std::numeric_limits<double>::quiet_NaN();
constexpr double unendlich = std::numeric_limits<double>::infinity();

/// A child in a data folder of its own.
class Kind : public ::testing::Test {
protected:
    Bühne b;
    AusfallendeDateien dateien;
    const Globale& global = b.global;

    Kind() { b.kindWählen(); }

    /// A folder in the account's place: it can neither be read nor written.
    void kontoSperren() {
        std::filesystem::remove(b.konto());
        std::filesystem::create_directory(b.konto());
    }
};

TEST_F(Kind, ThePlaceHasDefaultsForWhatWasNeverSetOrLiesOutsideTheRange) {
    std::filesystem::remove(b.konto());
    const Kursplatz frisch = kursplatzLesen(dateien, global);
    ASSERT_TRUE(frisch.bereit());
    EXPECT_EQ(frisch.konto.Lektionsnummer, 1);
    EXPECT_EQ(frisch.konto.Stufennummer, 1);
    EXPECT_EQ(frisch.konto.Durchgangszahl, 1);
    EXPECT_EQ(frisch.konto.Tempowert, 10);
    EXPECT_EQ(frisch.konto.Genauigkeit, 100);
    EXPECT_EQ(frisch.lektion.stufe->Stufentext, L"fj f");
    b.satz(Kontosatz::Lektionsnummer, std::int32_t{40000});
    b.satz(Kontosatz::Stufennummer, std::int16_t{-5});
    b.satz(Kontosatz::Durchgangszahl, keineZahl);
    b.satz(Kontosatz::Tempowert, 1e300);
    b.satz(Kontosatz::Genauigkeit, unendlich);
    b.satz(Kontosatz::Fehlerstopp, L"1"s);
    const Kurskonto wild = kursplatzLesen(dateien, global).konto;
    EXPECT_EQ(wild.Lektionsnummer, 40000);
    EXPECT_EQ(wild.Stufennummer, -5);
    EXPECT_EQ(wild.Durchgangszahl, 1);
    EXPECT_EQ(wild.Tempowert, 10);
    EXPECT_EQ(wild.Genauigkeit, 100);
    EXPECT_EQ(wild.Fehlerstopp, 1);
}

TEST_F(Kind, ThePlaceTellsWhatStandsInTheWay) {
    const auto hindernis = [&](const Wert& lektion, const Wert& stufe) {
        b.satz(Kontosatz::Lektionsnummer, lektion);
        b.satz(Kontosatz::Stufennummer, stufe);
        return kursplatzLesen(dateien, global).hindernis;
    };
    EXPECT_EQ(hindernis(std::int16_t{1}, std::int16_t{2}), Hindernis::keines);
    EXPECT_EQ(hindernis(std::int16_t{1}, std::int16_t{3}), Hindernis::keinText);
    EXPECT_EQ(hindernis(std::int16_t{30}, std::int16_t{1}), Hindernis::keinText);
    EXPECT_EQ(hindernis(std::int16_t{31}, std::int16_t{1}), Hindernis::kursZuEnde);
    b.lektion(31, "Einzeiler", {"mehr"});
    EXPECT_EQ(hindernis(std::int16_t{31}, std::int16_t{1}), Hindernis::keines);
    kontoSperren();
    EXPECT_EQ(kursplatzLesen(dateien, global).hindernis, Hindernis::kontoUnlesbar);
}

TEST_F(Kind, BehindTheLastStageComesTheNextLessonAndThePairIsWrittenWholeOrNotAtAll) {
    Kurskonto konto{.Lektionsnummer = 4, .Stufennummer = 11};
    stufeBestanden(dateien, global, konto, 12);
    EXPECT_EQ(b.slot(32, 4), "\x02\x00\x04\x00"s);
    EXPECT_EQ(b.slot(33, 4), "\x02\x00\x0C\x00"s);
    // Opening, record 32, and then 33 is refused.
    dateien.ausfallenBei(3);
    stufeBestanden(dateien, global, konto, 12);
    ASSERT_EQ(dateien.ausfall(), Vorgang::schreiben);
    EXPECT_EQ(b.slot(32, 4), "\x02\x00\x04\x00"s);
    EXPECT_EQ(b.slot(33, 4), "\x02\x00\x0C\x00"s);
    EXPECT_EQ(std::pair(konto.Lektionsnummer, konto.Stufennummer), std::pair(5, 1));
}

TEST_F(Kind, TextsAreCountedWhateverTheRecordHolds) {
    const std::vector<std::pair<Wert, Wert>> fälle{
        {Wert{}, std::int16_t{1}},
        {std::int16_t{32767}, std::int32_t{32768}},
        {L"7"s, std::int16_t{8}},
        {keineZahl, std::int16_t{1}},
        {unendlich, std::int16_t{1}},
        {-unendlich, std::int16_t{1}},
        {-4.0, std::int16_t{1}},
        {1e300, std::int32_t{2147483647}},
        {std::int32_t{2147483647}, std::int32_t{2147483647}},
    };
    for (std::size_t i = 0; i < fälle.size(); ++i) {
        b.satz(Kontosatz::TexteGesamt, fälle[i].first);
        EXPECT_EQ(textZählen(dateien, global), fälle[i].second) << i;
        EXPECT_EQ(b.satz(Kontosatz::TexteGesamt), fälle[i].second) << i;
    }
    b.satz(Kontosatz::AnschlaegeSchnitt, unendlich);
    EXPECT_EQ(schnittFortschreiben(dateien, global, L"120"), Wert{L"120"s});
    EXPECT_EQ(schnittFortschreiben(dateien, global, L"101"), Wert{110.0});
}

TEST_F(Kind, AHighScoreKeepsTheTypeOfItsGameAndIsWrittenOnlyIfItIsHigher) {
    EXPECT_EQ(rekordLesen(dateien, global, Kontosatz::HighSteine), Wert{std::int16_t{0}});
    struct Fall {
        Kontosatz spiel;
        double punkte;
        Wert wert;
    };
    const std::vector<Fall> fälle{
        {Kontosatz::HighWolken, 12, 12.0},
        {Kontosatz::HighSteine, 32767, std::int16_t{32767}},
        {Kontosatz::HighSteine, 32768, std::int32_t{32768}},
        {Kontosatz::HighSteine, 3e9, 3e9},
        {Kontosatz::HighBand, 12.5, 12.5F},
        {Kontosatz::HighBand, 1e39, 1e39},
    };
    for (const auto& [spiel, punkte, wert] : fälle) {
        const auto vorher = rekordLesen(dateien, global, spiel);
        const Spielausgang ausgang = rekordFortschreiben(dateien, global, spiel, punkte, vorher);
        EXPECT_TRUE(ausgang.neuerRekord) << punkte;
        EXPECT_EQ(ausgang.Rekord, wert) << punkte;
        EXPECT_EQ(b.satz(spiel), wert) << punkte;
    }
    for (const double punkte : {3e9, 100.0, unendlich, keineZahl}) {
        const Spielausgang ausgang =
            rekordFortschreiben(dateien, global, Kontosatz::HighSteine, punkte, Wert{3e9});
        EXPECT_FALSE(ausgang.neuerRekord);
        EXPECT_EQ(b.satz(Kontosatz::HighSteine), Wert{3e9});
    }
    // Raised from another machine meanwhile: the last writer wins, but it is no new high score.
    b.satz(Kontosatz::HighBand, 90.0F);
    const Spielausgang ausgang = rekordFortschreiben(dateien, global, Kontosatz::HighBand, 50, Wert{12.5F});
    EXPECT_FALSE(ausgang.neuerRekord);
    EXPECT_EQ(b.satz(Kontosatz::HighBand), Wert{50.0F});
}

TEST_F(Kind, NothingIsMadeOfAnAccountThatCannotBeReadOrWritten) {
    b.satz(Kontosatz::HighWolken, 80.0);
    // The high score could not be read when the game began.
    EXPECT_FALSE(rekordFortschreiben(dateien, global, Kontosatz::HighWolken, 50, std::nullopt).neuerRekord);
    EXPECT_EQ(b.satz(Kontosatz::HighWolken), Wert{80.0});
    // It cannot be written when the game ends, or the share says so only when the account is closed.
    for (const Vorgang vorgang : {Vorgang::schreiben, Vorgang::schließen}) {
        dateien.ausfallenBei(vorgang == Vorgang::schreiben ? 3 : 4);
        const Spielausgang ausgang =
            rekordFortschreiben(dateien, global, Kontosatz::HighWolken, 90, Wert{80.0});
        EXPECT_EQ(dateien.ausfall(), vorgang);
        EXPECT_FALSE(ausgang.neuerRekord);
        EXPECT_EQ(ausgang.Rekord, Wert{80.0});
        b.satz(Kontosatz::HighWolken, 80.0);
    }
    const std::string vorher = dateiinhalt(b.konto());
    for (const int vorgang : {1, 2}) {
        const auto ausfallen = [&] { dateien.ausfallenBei(vorgang); };
        ausfallen();
        EXPECT_FALSE(rekordLesen(dateien, global, Kontosatz::HighWolken));
        ausfallen();
        EXPECT_FALSE(rekordFortschreiben(dateien, global, Kontosatz::HighWolken, 90, Wert{80.0}).neuerRekord);
        ausfallen();
        EXPECT_FALSE(textZählen(dateien, global));
        ausfallen();
        EXPECT_FALSE(schnittFortschreiben(dateien, global, L"120"));
        ausfallen();
        EXPECT_FALSE(genauigkeitFortschreiben(dateien, global, {1, 1, 0}));
        ausfallen();
        EXPECT_FALSE(kontostandLesen(dateien, global));
        ausfallen();
        EXPECT_FALSE(textstandLesen(dateien, global));
        ausfallen();
        EXPECT_FALSE(kursplatzLesen(dateien, global).bereit());
    }
    EXPECT_EQ(dateiinhalt(b.konto()), vorher);
}

} // namespace
} // namespace klopfmeise
