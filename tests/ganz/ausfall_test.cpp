#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "tests/ausfallende_dateien.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>
#include <random>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;
/// A child's road from the first click to the passed stage, as far as it comes.
void spielen(Bühne& b) {
    b.start();
    for (int versuch = 0; versuch < 3 && b.aktiv() == L"Lern1"; ++versuch) {
        if (b.control<Frame>(L"frmKlasse").visible())
            b.user.click(L"LblGruppe", 0);
        if (b.control<FileList>(L"File1").itemCount() > 0)
            b.user.pressRow(b.control<FileList>(L"File1"), 0);
        b.user.click(L"cmdÜbung", 1);
        if (b.aktiv() == L"Lern1" && b.control<Picture>(L"cmdAllesZurück").visible())
            b.user.click(L"cmdAllesZurück");
    }
    for (int versuch = 0; versuch < 4 && b.aktiv() == L"Tastatur0"; ++versuch) {
        if (b.caption(L"lblStufe").starts_with(L"Stufe 2"))
            return;
        b.user.type(L' ');
        for (int lauf = 0; lauf < 3 && b.aktiv() == L"Tastatur1"; ++lauf)
            for (const wchar_t c : {L'f', L'j', L' ', L'f', L'\r'})
                if (b.aktiv() == L"Tastatur1")
                    b.user.type(c);
    }
}

TEST(Ausfall, WhateverOperationFailsNoOtherRecordSuffersAndNoPlaceIsInvented) {
    for (const Störung störung : {Störung::verweigert, Störung::kurz}) {
        bool bisZumEnde = false;
        for (int n = 1; !bisZumEnde; ++n) {
            ASSERT_LT(n, 500);
            AusfallendeDateien dateien(n, störung);
            Bühne b(&dateien);
            const std::string vorher = dateiinhalt(b.konto());
            spielen(b);
            bisZumEnde = dateien.ausfall() == Vorgang::keiner;
            const std::string nachher = dateiinhalt(b.konto());
            ASSERT_EQ(nachher.size(), vorher.size()) << n;
            for (int satz = 1; satz <= 100; ++satz)
                if (satz != 32 && satz != 33 && satz != 36) {
                    EXPECT_EQ(b.slot(satz, 128), vorher.substr(static_cast<std::size_t>(satz - 1) * 128, 128))
                        << n;
                }
            const double stufe = zahlAus(b.satz(Kontosatz::Stufennummer)).value_or(0);
            EXPECT_TRUE(zahlAus(b.satz(Kontosatz::Lektionsnummer)).value_or(0) <= 1) << n;
            EXPECT_TRUE(stufe == 0 || stufe == 1 || stufe == 2) << n << ": " << stufe;
        }
    }
}

TEST(Ausfall, AnEarnedPassIsWrittenAlthoughAccountOrLessonCannotBeReadAgain) {
    int gelesen = 0;
    int geöffnet = 0;
    for (const Störung störung : {Störung::verweigert, Störung::kurz}) {
        bool bisZumEnde = false;
        for (int n = 1; !bisZumEnde; ++n) {
            AusfallendeDateien dateien(0, störung);
            Bühne b(&dateien);
            b.satz(Kontosatz::Durchgangszahl, std::int16_t{1});
            b.öffnen(L"Tastatur1");
            b.user.type(L"fj f");
            dateien.ausfallenBei(n);
            b.user.type(L'\r');
            bisZumEnde = dateien.ausfall() == Vorgang::keiner;
            EXPECT_EQ(b.aktiv(), L"Tastatur0") << n;
            const bool bestanden = gleich(b.satz(Kontosatz::Stufennummer), 2);
            gelesen += dateien.ausfall() == Vorgang::lesen;
            geöffnet += dateien.ausfall() == Vorgang::öffnen && !bestanden;
            EXPECT_TRUE(bestanden || dateien.ausfall() != Vorgang::lesen) << n;
        }
    }
    EXPECT_GT(gelesen, 10);
    // The one opening to write the place, in each of the two rounds.
    EXPECT_EQ(geöffnet, 2);
}

TEST(Ausfall, TheFolderGoesAwayInMidStageAndComesBack) {
    Bühne b;
    b.zurÜbung(1);
    b.user.type(L' ');
    b.user.type(L"fj");
    const fs::path weg = b.ordner.pfad() / "Weg";
    fs::rename(b.daten(), weg);
    b.user.type(L" f\r");
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_TRUE(b.caption(L"lblHinweisName").starts_with(L"Dein Konto kann gerade nicht gelesen werden."));
    // No figure is made of what could not be read, and no lesson is shown.
    EXPECT_EQ(b.caption(L"LblLektion"), L"Lektion –");
    EXPECT_EQ(b.caption(L"lblGenauigkeit"), L"–");
    b.user.click(L"imgAbbildung");
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    b.user.type(L' ');
    b.user.click(L"imgEnde");
    EXPECT_EQ(b.aktiv(), L"Lern1");
    fs::rename(weg, b.daten());
    b.user.click(L"cmdAllesZurück");
    b.user.click(L"cmdLehrkraft");
    b.user.click(L"command1");
    EXPECT_FALSE(fs::exists(weg));
}

TEST(Ausfall, AccountsOfRandomBytesCrashNoScreen) {
    std::mt19937 zufall(20);
    for (int runde = 0; runde < 150; ++runde) {
        Bühne b;
        std::string bytes(zufall() % 6000, '\0');
        for (char& c : bytes)
            c = static_cast<char>(zufall());
        // Tags that are known make wilder values than noise does.
        for (std::size_t satz = 28; satz < 41; ++satz)
            if (satz * 128 + 1 < bytes.size() && zufall() % 2) {
                bytes[satz * 128] = static_cast<char>("\0\2\3\4\5\10"[zufall() % 6]);
                bytes[satz * 128 + 1] = 0;
            }
        dateiSchreiben(b.konto(), bytes);
        for (const wchar_t* form : {L"Konto", L"Tastatur0", L"Tastatur1", L"Tastatur2", L"Textübung0"}) {
            b.öffnen(form);
            if (b.runtime.active()->name() == form)
                b.user.type(L"fx\bj f\r");
            b.user.pass(700);
            if (Form* offen = b.runtime.active(); offen && offen->name() != L"frmTemp")
                b.runtime.unload(*offen);
        }
    }
}

/// A recorded run: milliseconds since the one before, and the key.
struct Anschlag {
    int pause;
    wchar_t taste;
};

TEST(Wiedergabe, ARecordedRunGivesTheSameBytesEveryTime) {
    constexpr Anschlag aufnahme[]{{900, L' '}, {412, L'f'},  {188, L'j'}, {240, L'x'}, {733, L' '},
                                  {91, L'f'},  {655, L'\r'}, {300, L'f'}, {120, L'j'}, {5200, L' '},
                                  {80, L'f'},  {401, L'\r'}, {70, L'f'}};
    std::string erste;
    for (int mal = 0; mal < 3; ++mal) {
        Bühne b;
        b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
        b.zurÜbung(1);
        for (const Anschlag& anschlag : aufnahme) {
            b.user.pass(anschlag.pause);
            b.user.type(anschlag.taste);
        }
        const std::string bytes = dateiinhalt(b.konto());
        if (mal == 0)
            erste = bytes;
        EXPECT_EQ(bytes, erste);
        EXPECT_NEAR(zahlAus(b.satz(Kontosatz::Genauigkeit)).value_or(0), 97.6, 2.4);
    }
}

} // namespace
} // namespace klopfmeise
