#include "store/genauigkeit.h"
#include "store/kontostand.h"
#include "store/kursplatz.h"
#include "store/rekord.h"
#include "tests/ausfallende_dateien.h"
#include "tests/buehne.h"

#include <functional>
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

    Kurskonto konto() { return kursplatzLesen(dateien, global).konto; }
    std::string platz() { return b.slot(32, 4) + b.slot(33, 4); }
    bool istRekord(Kontosatz spiel, double punkte, const std::optional<Wert>& vorher) {
        return rekordFortschreiben(dateien, global, spiel, punkte, vorher).neuerRekord;
    }
};

TEST_F(Kind, ThePlaceHasDefaultsForWhatWasNeverSetOrLiesOutsideTheRange) {
    std::filesystem::remove(b.konto());
    const auto werte = [](const Kurskonto& k) {
        return std::tuple(k.Lektionsnummer, k.Stufennummer, k.Durchgangszahl, k.Tempowert, k.Genauigkeit,
                          k.Fehlerstopp);
    };
    EXPECT_EQ(werte(konto()), std::tuple(1, 1, 1, 10, 100.0, 0));
    EXPECT_EQ(kursplatzLesen(dateien, global).lektion.stufe->Stufentext, L"fj f");
    b.satz(Kontosatz::Lektionsnummer, std::int32_t{40000});
    b.satz(Kontosatz::Stufennummer, std::int16_t{-5});
    b.satz(Kontosatz::Durchgangszahl, keineZahl);
    b.satz(Kontosatz::Tempowert, 1e300);
    b.satz(Kontosatz::Genauigkeit, unendlich);
    b.satz(Kontosatz::Fehlerstopp, L"1"s);
    EXPECT_EQ(werte(konto()), std::tuple(40000, -5, 1, 10, 100.0, 1));
}

TEST_F(Kind, ThePlaceTellsWhatStandsInTheWay) {
    struct Fall {
        int lektion, stufe;
        Hindernis hindernis;
    };
    b.lektion(32, "Einzeiler", {"mehr"});
    for (const auto& [lektion, stufe, hindernis] :
         {Fall{1, 2, Hindernis::keines}, Fall{1, 3, Hindernis::keinText}, Fall{30, 1, Hindernis::keinText},
          Fall{31, 1, Hindernis::kursZuEnde}, Fall{32, 1, Hindernis::keines}}) {
        b.satz(Kontosatz::Lektionsnummer, ganzzahl(lektion));
        b.satz(Kontosatz::Stufennummer, ganzzahl(stufe));
        EXPECT_EQ(kursplatzLesen(dateien, global).hindernis, hindernis) << lektion << ", " << stufe;
    }
    // A folder in the account's place.
    std::filesystem::remove(b.konto());
    std::filesystem::create_directory(b.konto());
    EXPECT_EQ(kursplatzLesen(dateien, global).hindernis, Hindernis::kontoUnlesbar);
}

TEST_F(Kind, BehindTheLastStageComesTheNextLessonAndThePairIsWrittenWholeOrNotAtAll) {
    Kurskonto konto{{.Lektionsnummer = 4, .Stufennummer = 11}};
    stufeBestanden(dateien, global, konto, 12);
    EXPECT_EQ(platz(), "\2\0\4\0\2\0\14\0"s);
    // Opening, record 32, and then 33 is refused.
    dateien.ausfallenBei(3);
    stufeBestanden(dateien, global, konto, 12);
    ASSERT_EQ(dateien.ausfall(), Vorgang::schreiben);
    EXPECT_EQ(platz(), "\2\0\4\0\2\0\14\0"s);
    EXPECT_EQ(std::pair(konto.Lektionsnummer, konto.Stufennummer), std::pair(5, 1));
}

TEST_F(Kind, TextsAreCountedWhateverTheRecordHolds) {
    const std::vector<std::pair<Wert, Wert>> fälle{{Wert{}, ganzzahl(1)},
                                                   {ganzzahl(32767), ganzzahl(32768)},
                                                   {L"7"s, ganzzahl(8)},
                                                   {keineZahl, ganzzahl(1)},
                                                   {unendlich, ganzzahl(1)},
                                                   {-unendlich, ganzzahl(1)},
                                                   {-4.0, ganzzahl(1)},
                                                   {1e300, ganzzahl(2147483647)},
                                                   {ganzzahl(2147483647), ganzzahl(2147483647)}};
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
        {Kontosatz::HighSteine, 32767, ganzzahl(32767)},
        {Kontosatz::HighSteine, 32768, ganzzahl(32768)},
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
        EXPECT_FALSE(istRekord(Kontosatz::HighSteine, punkte, Wert{3e9}));
        EXPECT_EQ(b.satz(Kontosatz::HighSteine), Wert{3e9});
    }
    // Raised from another machine meanwhile: the last writer wins, but it is no new high score.
    b.satz(Kontosatz::HighBand, 90.0F);
    EXPECT_FALSE(istRekord(Kontosatz::HighBand, 50, Wert{12.5F}));
    EXPECT_EQ(b.satz(Kontosatz::HighBand), Wert{50.0F});
}

TEST_F(Kind, NothingIsMadeOfAnAccountThatCannotBeReadOrWritten) {
    b.satz(Kontosatz::HighWolken, 80.0);
    // The high score could not be read when the game began.
    EXPECT_FALSE(istRekord(Kontosatz::HighWolken, 50, std::nullopt));
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
    const std::function<bool()> erfolge[]{
        [&] { return rekordLesen(dateien, global, Kontosatz::HighWolken).has_value(); },
        [&] { return istRekord(Kontosatz::HighWolken, 90, Wert{80.0}); },
        [&] { return textZählen(dateien, global).has_value(); },
        [&] { return schnittFortschreiben(dateien, global, L"120").has_value(); },
        [&] {
            return genauigkeitFortschreiben(dateien, global, Tippstand{1, 1, 0}).has_value();
        },
        [&] { return kontostandLesen(dateien, global).has_value(); },
        [&] { return textstandLesen(dateien, global).has_value(); },
        [&] { return kursplatzLesen(dateien, global).bereit(); },
    };
    for (const int vorgang : {1, 2})
        for (const auto& erfolg : erfolge) {
            dateien.ausfallenBei(vorgang);
            EXPECT_FALSE(erfolg()) << vorgang << ", " << &erfolg - erfolge;
        }
    EXPECT_EQ(dateiinhalt(b.konto()), vorher);
}

} // namespace
} // namespace klopfmeise
