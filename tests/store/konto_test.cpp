#include "store/genauigkeit.h"
#include "store/konten.h"
#include "store/kontostand.h"
#include "store/kursplatz.h"
#include "store/rekord.h"
#include "tests/ausfallende_dateien.h"
#include "tests/probe.h"

#include <functional>
#include <limits>

namespace klopfmeise {
namespace {

using Namen = std::vector<std::wstring>;

constexpr double keineZahl = std::numeric_limits<double>::quiet_NaN();
constexpr double unendlich = std::numeric_limits<double>::infinity();

/// A child in a data folder of its own.
class Kind : public ::testing::Test {
protected:
    Bühne b;
    AusfallendeDateien dateien;
    const Globale& global = b.global;
    const fs::path klasse = b.daten() / "Gruppen" / "Hasen";

    Kind() { b.kindWählen(); }

    std::string inhalt(const char* name) { return dateiinhalt(klasse / name); }
    Kontoanlage anlegen(const std::wstring& name) { return kontoAnlegen(dateien, global, name); }
    std::string platz() { return b.slot(32, 4) + b.slot(33, 4); }
    bool istRekord(Kontosatz spiel, double punkte, const std::optional<Wert>& vorher) {
        return rekordFortschreiben(dateien, global, spiel, punkte, vorher).neuerRekord;
    }
};

TEST_F(Kind, ANewAccountHoldsTheCreationImageAndOneThatIsThereStaysAsItIs) {
    for (int satz = 1; satz <= 100; ++satz)
        EXPECT_EQ(b.slot(satz, 4), "\2\0"s + (satz == 34 ? '\3' : '\0') + '\0') << satz;
    const std::string bild = inhalt("Mia._");
    dateiSchreiben(klasse / "Leer._", "");
    for (const wchar_t* name : {L"Ömer A_-b", L"Leer", L"Mia "})
        EXPECT_EQ(anlegen(name), Kontoanlage::angelegt);
    EXPECT_EQ(kontenAuflisten(dateien, global), (Namen{L"Leer", L"Mia ", L"Mia", L"Ömer A_-b"}));
    EXPECT_EQ(inhalt("Leer._"), bild);
    EXPECT_EQ(inhalt("Ömer A_-b._"), bild);
    b.satz(Kontosatz::Lektionsnummer, std::int16_t{9});
    const std::string vorher = inhalt("Mia._");
    EXPECT_EQ(anlegen(L"mIA"), Kontoanlage::vorhanden);
    EXPECT_EQ(inhalt("Mia._"), vorher);
    for (const wchar_t* name : {L"  ", L"Con", L"..\\Raus"})
        EXPECT_EQ(anlegen(name), Kontoanlage::unzulässigerName);
    fs::create_directory(klasse / "Tom._");
    EXPECT_EQ(anlegen(L"Tom"), Kontoanlage::misslungen);
    EXPECT_EQ(kontenAuflisten(dateien, global).size(), 4u);
    // What fails at the closing has been written.
    dateien.jederVorgang([&](int vorgang) {
        const bool da = anlegen(L"Neu") == Kontoanlage::angelegt || dateien.ausfall() == Vorgang::schließen;
        EXPECT_EQ(kontenAuflisten(b.echteDateien, global).size(), da ? 5 : 4) << vorgang;
        fs::remove(klasse / "Neu._");
    });
}

TEST_F(Kind, ADeletionTakesTheFilesOfTheChildsFolderButLeavesThroughNoLinkAndTellsWhatIsLeft) {
    for (const char* datei : {"Mia/eins", "Mia/zwei", "Mia/innen/drei", "../../fremd"})
        dateiSchreiben(klasse / datei, "x");
    const auto löschen = [&](const wchar_t* name, int ausfall = 0) {
        dateien.ausfallenBei(ausfall);
        return kontoLöschen(dateien, global, name);
    };
    EXPECT_TRUE(löschen(L"Mia", 1).konto);
    EXPECT_TRUE(fs::exists(klasse / "Mia" / "eins"));
    // The account, the question for a link, the listing, then the first file.
    const Kontorest rest = löschen(L"Mia", 4);
    EXPECT_FALSE(rest.konto || fs::exists(b.konto()));
    EXPECT_EQ(rest.dateien, Namen{L"eins"});
    EXPECT_TRUE(löschen(L"Mia").leer());
    EXPECT_FALSE(fs::exists(klasse / "Mia" / "eins"));
    EXPECT_TRUE(fs::exists(klasse / "Mia" / "innen" / "drei"));

    fs::create_directory_symlink(b.daten(), klasse / "Tom");
    anlegen(L"Tom");
    EXPECT_TRUE(löschen(L"Tom").leer());
    EXPECT_FALSE(fs::exists(klasse / "Tom._"));
    for (const wchar_t* name : {L"..", L".", L"", L"..\\..\\Data"})
        löschen(name);
    EXPECT_TRUE(fs::exists(b.daten() / "fremd"));
    EXPECT_TRUE(fs::exists(klasse / "KME.ein") && fs::exists(klasse.parent_path() / "kme.ein"));
}

TEST_F(Kind, TheParametersAreWrittenAllOrNoneWithTheirTypesAndNothingElseMoves) {
    const Kursparameter werte{.Vorlagemodus = 1,
                              .Zeitmodus = 1,
                              .Lektionsnummer = 12,
                              .Stufennummer = 3,
                              .Durchgangszahl = 5,
                              .Tempowert = 15};
    const std::string vorher = inhalt("Mia._");
    ASSERT_TRUE(kursparameterSchreiben(dateien, global, werte));
    const std::string nachher = inhalt("Mia._");
    ASSERT_EQ(nachher.size(), vorher.size());
    EXPECT_EQ(nachher.substr(0, 28 * 128), vorher.substr(0, 28 * 128));
    EXPECT_EQ(nachher.substr(35 * 128), vorher.substr(35 * 128));
    EXPECT_EQ(b.slot(29, 4) + b.slot(30, 4) + b.slot(31, 4), "\2\0\1\0\2\0\0\0\2\0\1\0"s);
    EXPECT_EQ(b.slot(32, 6) + b.slot(33, 6), "\3\0\14\0\0\0\3\0\3\0\0\0"s);
    EXPECT_EQ(b.slot(34, 6) + b.slot(35, 6), "\3\0\5\0\0\0\3\0\17\0\0\0"s);
    EXPECT_EQ(kursparameterLesen(dateien, global), werte);

    dateien.jederVorgang([&](int n) {
        const bool gut = kursparameterLesen(dateien, global).has_value();
        EXPECT_EQ(gut, dateien.ausfall() == Vorgang::keiner) << n;
    });
    dateien.jederVorgang([&](int n) {
        const bool gut = kursparameterSchreiben(dateien, global, {});
        const Vorgang ausfall = dateien.ausfall();
        EXPECT_EQ(gut, ausfall == Vorgang::keiner) << n;
        EXPECT_TRUE(gut || ausfall == Vorgang::schließen || inhalt("Mia._") == nachher) << n;
    });
    fs::remove(b.konto());
    EXPECT_FALSE(kursparameterSchreiben(dateien, global, werte) || kursparameterLesen(dateien, global));
    EXPECT_FALSE(fs::exists(b.konto())) << "an account that was deleted is made again";
}

TEST_F(Kind, ThePlaceHasDefaultsForWhatWasNeverSetOrLiesOutsideTheRange) {
    fs::remove(b.konto());
    const auto werte = [&] {
        const Kurskonto k = kursplatzLesen(dateien, global).konto;
        return std::tuple(k.Lektionsnummer, k.Stufennummer, k.Durchgangszahl, k.Tempowert, k.Genauigkeit,
                          k.Fehlerstopp);
    };
    EXPECT_EQ(werte(), std::tuple(1, 1, 1, 10, 100.0, 0));
    b.satz(Kontosatz::Lektionsnummer, std::int32_t{40000});
    b.satz(Kontosatz::Stufennummer, std::int16_t{-5});
    b.satz(Kontosatz::Durchgangszahl, keineZahl);
    b.satz(Kontosatz::Tempowert, 1e300);
    b.satz(Kontosatz::Genauigkeit, unendlich);
    b.satz(Kontosatz::Fehlerstopp, L"1"s);
    EXPECT_EQ(werte(), std::tuple(40000, -5, 1, 10, 100.0, 1));
}

TEST_F(Kind, ThePlaceTellsWhatStandsInTheWay) {
    b.lektion(32, "Einzeiler", {"mehr"});
    for (const auto& [lektion, stufe, hindernis] : {std::tuple(1, 2, Hindernis::keines),
                                                    {1, 3, Hindernis::keinText},
                                                    {30, 1, Hindernis::keinText},
                                                    {31, 1, Hindernis::kursZuEnde},
                                                    {32, 1, Hindernis::keines}}) {
        b.satz(Kontosatz::Lektionsnummer, ganzzahl(lektion));
        b.satz(Kontosatz::Stufennummer, ganzzahl(stufe));
        EXPECT_EQ(kursplatzLesen(dateien, global).hindernis, hindernis) << lektion << ", " << stufe;
    }
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
    for (const auto& [vorher, nachher] : {std::pair<Wert, Wert>{Wert{}, ganzzahl(1)},
                                          {ganzzahl(32767), ganzzahl(32768)},
                                          {L"7"s, ganzzahl(8)},
                                          {unendlich, ganzzahl(1)},
                                          {1e300, ganzzahl(2147483647)}}) {
        b.satz(Kontosatz::TexteGesamt, vorher);
        textZählen(dateien, global);
        EXPECT_EQ(b.satz(Kontosatz::TexteGesamt), nachher);
    }
    b.satz(Kontosatz::AnschlaegeSchnitt, unendlich);
    EXPECT_EQ(schnittFortschreiben(dateien, global, L"120"), Wert{L"120"s});
    EXPECT_EQ(schnittFortschreiben(dateien, global, L"101"), Wert{110.0});
}

TEST_F(Kind, AHighScoreKeepsTheTypeOfItsGameAndIsWrittenOnlyIfItIsHigher) {
    EXPECT_EQ(rekordLesen(dateien, global, Kontosatz::HighSteine), Wert{std::int16_t{0}});
    for (const auto& [spiel, punkte, wert] :
         {std::tuple<Kontosatz, double, Wert>{Kontosatz::HighWolken, 12, 12.0},
          {Kontosatz::HighSteine, 32767, ganzzahl(32767)},
          {Kontosatz::HighSteine, 32768, ganzzahl(32768)},
          {Kontosatz::HighSteine, 3e9, 3e9},
          {Kontosatz::HighBand, 12.5, 12.5F}}) {
        EXPECT_TRUE(istRekord(spiel, punkte, rekordLesen(dateien, global, spiel))) << punkte;
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
    // When the game ends, the share may refuse the score only as the account is closed.
    dateien.ausfallenBei(4);
    EXPECT_FALSE(istRekord(Kontosatz::HighWolken, 90, Wert{80.0}));
    EXPECT_EQ(dateien.ausfall(), Vorgang::schließen);
    const std::string vorher = inhalt("Mia._");
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
    EXPECT_EQ(inhalt("Mia._"), vorher);
}

} // namespace
} // namespace klopfmeise
