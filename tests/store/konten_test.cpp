#include "store/konten.h"
#include "store/kursplatz.h"
#include "tests/ausfallende_dateien.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;
using Namen = std::vector<std::wstring>;

class Konten : public ::testing::Test {
protected:
    Bühne b;
    AusfallendeDateien dateien;
    const Globale& global = b.global;

    Konten() { b.kindWählen(); }

    fs::path klasse() { return b.daten() / "Gruppen" / "Hasen"; }
    std::string inhalt(const char* name) { return dateiinhalt(klasse() / name); }
    Kontoanlage anlegen(const std::wstring& name) { return kontoAnlegen(dateien, global, name); }
};

TEST_F(Konten, ANewOneHoldsTheCreationImageAndOneThatIsThereStaysAsItIs) {
    const std::string bild = inhalt("Mia._");
    dateiSchreiben(klasse() / "Leer._", "");
    for (const wchar_t* name : {L"Ömer A_-b", L"Leer"})
        EXPECT_EQ(anlegen(name), Kontoanlage::angelegt);
    EXPECT_EQ(kontenAuflisten(dateien, global), (Namen{L"Leer", L"Mia", L"Ömer A_-b"}));
    EXPECT_EQ(inhalt("Leer._"), bild);
    EXPECT_EQ(inhalt("Ömer A_-b._"), bild);
    b.satz(Kontosatz::Lektionsnummer, std::int16_t{9});
    const std::string vorher = inhalt("Mia._");
    EXPECT_EQ(anlegen(L"mIA"), Kontoanlage::vorhanden);
    EXPECT_EQ(inhalt("Mia._"), vorher);
    for (const wchar_t* name : {L"", L"  ", L"Mia ", L"Con", L"..\\Raus", L"/tmp/x"})
        EXPECT_EQ(anlegen(name), Kontoanlage::unzulässigerName);
    fs::create_directory(klasse() / "Tom._");
    EXPECT_EQ(anlegen(L"Tom"), Kontoanlage::misslungen);
    EXPECT_EQ(kontenAuflisten(dateien, global).size(), 3u);
}

TEST_F(Konten, AFailedCreationLeavesNoChildBehind) {
    for (int n = 1;; ++n) {
        dateien.ausfallenBei(n);
        const Kontoanlage anlage = anlegen(L"Neu");
        if (dateien.ausfall() == Vorgang::keiner)
            break;
        SCOPED_TRACE(n);
        // What fails at the closing has been written.
        const bool da = anlage == Kontoanlage::angelegt || dateien.ausfall() == Vorgang::schließen;
        EXPECT_EQ(kontenAuflisten(dateien, global).size(), da ? 2 : 1);
        EXPECT_TRUE(da || anlage == Kontoanlage::misslungen);
        fs::remove(klasse() / "Neu._");
    }
}

TEST_F(Konten, ADeletionTakesTheFilesOfTheChildsFolderButLeavesThroughNoLink) {
    dateiSchreiben(klasse() / "Mia" / "bild.txt", "x");
    fs::create_directory(klasse() / "Mia" / "innen");
    EXPECT_TRUE(kontoLöschen(dateien, global, L"Mia").leer());
    EXPECT_FALSE(fs::exists(b.konto()));
    EXPECT_TRUE(fs::is_empty(klasse() / "Mia" / "innen"));
    EXPECT_FALSE(fs::exists(klasse() / "Mia" / "bild.txt"));

    dateiSchreiben(b.ordner.pfad() / "fremd" / "wichtig", "x");
    fs::create_directory_symlink(b.ordner.pfad() / "fremd", klasse() / "Tom");
    anlegen(L"Tom");
    EXPECT_TRUE(kontoLöschen(dateien, global, L"Tom").leer());
    EXPECT_FALSE(fs::exists(klasse() / "Tom._"));
    for (const wchar_t* name : {L"..", L".", L"", L"..\\..\\Data"})
        kontoLöschen(dateien, global, name);
    EXPECT_TRUE(fs::exists(b.ordner.pfad() / "fremd" / "wichtig"));
    EXPECT_TRUE(fs::exists(klasse() / "KME.ein") && fs::exists(klasse().parent_path() / "kme.ein"));
}

TEST_F(Konten, ADeletionTellsWhatIsLeft) {
    for (const char* datei : {"eins", "zwei"})
        dateiSchreiben(klasse() / "Mia" / datei, "x");
    dateien.ausfallenBei(1);
    EXPECT_TRUE(kontoLöschen(dateien, global, L"Mia").konto);
    EXPECT_TRUE(fs::exists(klasse() / "Mia" / "eins"));
    // The account, the question for a link, the listing, then the first file.
    dateien.ausfallenBei(4);
    const Kontorest rest = kontoLöschen(dateien, global, L"Mia");
    EXPECT_FALSE(rest.konto);
    EXPECT_EQ(rest.dateien, Namen{L"eins"});
}

TEST_F(Konten, TheParametersAreWrittenAllOrNoneWithTheirTypesAndNothingElseMoves) {
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

    for (int n = 1;; ++n) {
        dateien.ausfallenBei(n);
        const bool gut = kursparameterSchreiben(dateien, global, {});
        if (dateien.ausfall() == Vorgang::keiner)
            break;
        EXPECT_FALSE(gut) << n;
        // What fails at the closing has been written.
        EXPECT_TRUE(dateien.ausfall() == Vorgang::schließen || inhalt("Mia._") == nachher) << n;
    }
    for (int n = 1; n <= 9; ++n) {
        dateien.ausfallenBei(n);
        EXPECT_FALSE(kursparameterLesen(dateien, global)) << n;
    }
    dateien.ausfallenBei(0);
    fs::remove(b.konto());
    EXPECT_FALSE(kursparameterSchreiben(dateien, global, werte));
    EXPECT_FALSE(kursparameterLesen(dateien, global));
    EXPECT_FALSE(fs::exists(b.konto())) << "an account that was deleted is made again";
}

} // namespace
} // namespace klopfmeise
