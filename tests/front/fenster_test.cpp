#include "tests/meldungen.h"
#include "tests/platform/machine/troubles.h"

#include <cerrno>

namespace klopfmeise {
namespace {

/// Starts, and expects that it ends with this message.
void erwarteEnde(Bühne& b, MessageIcon zeichen, std::wstring_view titel, const std::wstring& text) {
    b.start();
    erwarteMeldung(b, zeichen, titel, text);
    EXPECT_TRUE(b.backend.quitAsked);
    EXPECT_FALSE(b.runtime.loaded(L"Lern1"));
}

TEST(Start, HandsOverToTheTitlePageInFrontOfTheBackdrop) {
    Bühne b;
    dateiSchreiben(b.daten() / "lzf75.tst", "von gestern, länger als das Neue");
    fs::rename(b.daten() / "Gruppen" / "kme.ein", b.daten() / "Gruppen" / "KME.Ein");
    b.start();
    EXPECT_EQ(b.aktiv(), L"Lern1");
    EXPECT_TRUE(b.runtime.loaded(L"frmTemp")->visible());
    EXPECT_FALSE(b.runtime.loaded(L"frmStart"));
    // Put in place anew: a full disk would still take six bytes in a file that is there.
    EXPECT_EQ(dateiinhalt(b.daten() / "lzf75.tst"), std::string("\x04\x00Test", 6));
}

TEST(Start, ASecondInstanceEndsAtOnceAndSoDoesOneWhoseFolderCannotBeWritten) {
    Bühne zweite;
    zweite.shell.second = true;
    erwarteEnde(zweite, MessageIcon::none, L"Klopfmeise", ganz(L"KLOPFMEISE kann nur einmal"));
    for (const auto call : {FailingCall::Call::flush, FailingCall::Call::close}) {
        Bühne b;
        // What a share says only at the end.
        const FailingCall voll(call, EDQUOT, b.daten());
        erwarteEnde(b, MessageIcon::stop, L"Hinweis zur Datenablage",
                    L"Schreibrecht für Datenablage nicht gegeben!\n\nDer momentan angemeldete "
                    L"Windows-Benutzer kann innerhalb des aktuell eingestellten Datenablage-Ordners '" +
                        fromUtf8(b.daten().string()) + L"/" + ganz(L"' nicht schreiben"));
    }
}

TEST(Start, ARefusedFolderLeadsToTheFolderScreenAndItsCloseEndsTheProcess) {
    // "" stands for a folder that was never set.
    for (const char* fehlt :
         {"", "Gruppen/kme.ein", "Data/Tastatur/Lektion1.bmp", "Data/Texte/Text_001.txt"}) {
        SCOPED_TRACE(fehlt);
        Bühne b;
        const bool gesetzt = *fehlt;
        if (gesetzt)
            fs::remove(b.daten() / fehlt);
        else
            b.registry.values.clear();
        b.start();
        const std::wstring ordner = gesetzt ? fromUtf8(b.daten().string()) + L"/" : L"/";
        erwarteMeldung(b, MessageIcon::stop, unzulässig,
                       L"Der eingestellte Ordner '" + ordner + ablageregeln);
        EXPECT_EQ(b.aktiv(), L"frmPfad");
        EXPECT_FALSE(b.runtime.loaded(L"frmTemp") || b.runtime.loaded(L"frmStart") || b.backend.quitAsked);
        b.user.close(*b.runtime.active());
        EXPECT_TRUE(b.backend.quitAsked);
    }
}

TEST(Hilfeseite, TellsTheExerciseAndClosesOnAClickElsewhere) {
    Bühne b;
    b.zurÜbung(1);
    b.user.click(L"imgHilfe", 0);
    ASSERT_EQ(b.aktiv(), L"Hilfe");
    b.user.activate(*b.runtime.loaded(L"Tastatur0"));
    EXPECT_FALSE(b.runtime.loaded(L"Hilfe"));
    const std::vector<std::pair<std::wstring, std::wstring>> texte{
        {L"Klopfmeise - Der Kurs", ganz(L"Der Klopfmeise-Kurs")},
        {L"Text tippen", ganz(L"Der im Lehrkraft-Modus")},
        {L"Spiel: Wolken treffen", ganz(L"Die beiden Buchstaben in")},
        {L"Spiel: Fallende Steine", ganz(L"Die beiden Buchstaben links")},
        {L"Spiel: Fließband", ganz(L"Das Fließband befördert")},
        // The titles compare to the letter.
        {L"spiel: fließband", L"Der Hilfetext für diese Übung ist nicht verfügbar."},
    };
    for (const auto& [titel, text] : texte) {
        b.global.AktuelleUebung = titel;
        b.user.click(L"imgHilfe", 0);
        EXPECT_EQ(b.caption(L"lblÜbung"), L" " + titel + L" ");
        EXPECT_EQ(b.caption(L"Label1"), text);
        b.user.close(*b.runtime.active());
    }
}

TEST(Kontoansicht, ShowsTheAccountAlikeFromBothSidesAndChangesNoByte) {
    Bühne b;
    b.start();
    b.anmelden();
    b.user.click(L"cmdKonto");
    ASSERT_EQ(b.aktiv(), L"Konto");
    const auto felder = [&] {
        return b.captions({L"LblLektion", L"lblStufe", L"lblGenau", L"lblRichtig",
                           L"lblAnschlägeDurchschnitt", L"lblHighWolken", L"lblHighTetris",
                           L"lblHighFließband"});
    };
    EXPECT_EQ(felder(), L"1|1|100,00 %|0|0|0|0|0");
    b.user.activate(*b.runtime.loaded(L"Lern1"));
    EXPECT_FALSE(b.runtime.loaded(L"Konto"));

    b.satz(Kontosatz::Lektionsnummer, std::int32_t{7});
    b.satz(Kontosatz::Genauigkeit, 98.745);
    b.satz(Kontosatz::AnschlaegeSchnitt, L"120"s);
    b.satz(Kontosatz::HighBand, 12.5F);
    b.satz(Kontosatz::HighSteine, 110.0);
    const std::string vorher = dateiinhalt(b.konto());
    // An account that cannot be read, a folder in its place, is not an empty one.
    for (const bool lesbar : {true, false, true})
        for (const wchar_t* name : {L"Mia._", L"Mia"}) {
            fs::remove(b.konto());
            if (lesbar)
                dateiSchreiben(b.konto(), vorher);
            else
                fs::create_directory(b.konto());
            b.global.AktuellesKonto = name;
            b.runtime.show(L"Konto");
            EXPECT_EQ(felder(), lesbar ? L"7|1|98,75 %|0|120|0|110|12,5" : L"–|–|–|–|–|–|–|–");
            EXPECT_EQ(b.control<Label>(L"lblUnlesbar").visible(), !lesbar);
            EXPECT_EQ(b.caption(L"lblUnlesbar"), L"Das Konto kann gerade nicht gelesen werden.");
            b.user.close(*b.runtime.active());
        }
    EXPECT_EQ(dateiinhalt(b.konto()), vorher);
}

} // namespace
} // namespace klopfmeise
