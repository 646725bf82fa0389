#include "tests/ausfallende_dateien.h"
#include "tests/probe.h"

#include <functional>
#include <random>
#include <set>

namespace klopfmeise {
namespace {

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
            for (const wchar_t c : std::wstring_view(L"fj f\r"))
                if (b.aktiv() == L"Tastatur1")
                    b.user.type(c);
    }
}

/// Calls `tun` with every operation failing in turn, in both ways, until it ends before one fails.
void jederVorgang(const std::function<void(AusfallendeDateien& dateien, int nummer)>& tun) {
    for (const Störung störung : {Störung::verweigert, Störung::kurz}) {
        bool bisZumEnde = false;
        for (int n = 1; !bisZumEnde; ++n) {
            SCOPED_TRACE(n);
            ASSERT_LT(n, 500);
            AusfallendeDateien dateien(0, störung);
            tun(dateien, n);
            bisZumEnde = dateien.ausfall() == Vorgang::keiner;
        }
    }
}

TEST(Ausfall, WhateverOperationFailsNoOtherRecordSuffersAndNoPlaceIsInvented) {
    jederVorgang([](AusfallendeDateien& dateien, int nummer) {
        Bühne b(&dateien);
        const std::string vorher = dateiinhalt(b.konto());
        dateien.ausfallenBei(nummer);
        spielen(b);
        ASSERT_EQ(dateiinhalt(b.konto()).size(), vorher.size());
        for (int satz = 1; satz <= 100; ++satz)
            EXPECT_TRUE(satz == 32 || satz == 33 || satz == 36 ||
                        b.slot(satz, 128) == vorher.substr(static_cast<std::size_t>(satz - 1) * 128, 128))
                << satz;
        EXPECT_LE(zahlAus(b.satz(Kontosatz::Lektionsnummer)).value_or(0), 1);
        EXPECT_TRUE((std::set{0.0, 1.0, 2.0}.contains(zahlAus(b.satz(Kontosatz::Stufennummer)).value_or(0))));
    });
}

TEST(Ausfall, AnEarnedPassIsWrittenAlthoughAccountOrLessonCannotBeReadAgain) {
    int gelesen = 0;
    int geöffnet = 0;
    jederVorgang([&](AusfallendeDateien& dateien, int nummer) {
        Bühne b(&dateien);
        b.satz(Kontosatz::Durchgangszahl, std::int16_t{1});
        b.öffnen(L"Tastatur1");
        b.user.type(L"fj f");
        dateien.ausfallenBei(nummer);
        b.user.type(L'\r');
        EXPECT_EQ(b.aktiv(), L"Tastatur0");
        const bool bestanden = gleich(b.satz(Kontosatz::Stufennummer), 2);
        gelesen += dateien.ausfall() == Vorgang::lesen;
        geöffnet += dateien.ausfall() == Vorgang::öffnen && !bestanden;
        EXPECT_TRUE(bestanden || dateien.ausfall() != Vorgang::lesen);
    });
    EXPECT_GT(gelesen, 10);
    // The one opening to write the place, in each of the two rounds.
    EXPECT_EQ(geöffnet, 2);
}

TEST(Ausfall, TheFolderGoesAwayInMidStageAndComesBack) {
    Bühne b;
    b.zurÜbung(1);
    b.user.type(L" fj");
    const fs::path weg = b.ordner.pfad() / "Weg";
    fs::rename(b.daten(), weg);
    b.user.type(L" f\r");
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_TRUE(b.caption(L"lblHinweisName").starts_with(L"Dein Konto kann gerade nicht gelesen werden."));
    // No figure is made of what could not be read, and no lesson is shown.
    EXPECT_EQ(b.captions({L"LblLektion", L"lblGenauigkeit"}), L"Lektion –|–");
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

} // namespace
} // namespace klopfmeise
