#include "platform/controls/drawn.h"
#include "tests/texte.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

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

} // namespace
} // namespace klopfmeise
