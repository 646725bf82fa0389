#include "platform/controls/drawn.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Hilfeseite, TellsTheExerciseAndClosesOnAClickElsewhere) {
    Bühne b;
    b.zurÜbung(1);
    b.user.click(L"imgHilfe", 0);
    ASSERT_EQ(b.aktiv(), L"Hilfe");
    EXPECT_EQ(b.caption(L"lblÜbung"), L" Klopfmeise - Der Kurs ");
    EXPECT_TRUE(b.caption(L"Label1").starts_with(L"Der Klopfmeise-Kurs besteht aus 30 Lektionen."));
    b.user.activate(*b.runtime.loaded(L"Tastatur0"));
    EXPECT_FALSE(b.runtime.loaded(L"Hilfe"));
    const std::vector<std::pair<std::wstring, std::wstring>> texte{
        {L"Text tippen", L"Der im Lehrkraft-Modus eingestellte Text"},
        {L"Spiel: Wolken treffen", L"Die beiden Buchstaben in den Bäumen"},
        {L"Spiel: Fallende Steine", L"Die beiden Buchstaben links und rechts des Schachtes"},
        {L"Spiel: Fließband", L"Das Fließband befördert"},
        {L"spiel: fließband", L"Der Hilfetext für diese Übung ist nicht verfügbar."},
    };
    for (const auto& [titel, anfang] : texte) {
        b.global.AktuelleUebung = titel;
        b.user.click(L"imgHilfe", 0);
        EXPECT_TRUE(b.caption(L"Label1").starts_with(anfang));
        b.user.close(*b.runtime.active());
    }
}

} // namespace
} // namespace klopfmeise
