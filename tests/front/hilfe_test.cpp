#include "platform/controls/drawn.h"
#include "platform/values/text.h"
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
    b.user.activate(*b.runtime.loaded(L"Tastatur0"));
    EXPECT_FALSE(b.runtime.loaded(L"Hilfe"));
    struct Fall {
        std::wstring titel, anfang, ende;
    };
    const Fall fälle[]{
        {L"Klopfmeise - Der Kurs", L"Der Klopfmeise-Kurs besteht", L"des Zeitfaktors beim Üben."},
        {L"Text tippen", L"Der im Lehrkraft-Modus eingestellte", L"die Anzahl der getippten Texte."},
        {L"Spiel: Wolken treffen", L"Die beiden Buchstaben in den Bäumen", L"auf dem Konto gespeichert."},
        {L"Spiel: Fallende Steine", L"Die beiden Buchstaben links und rechts", L"auf dem Konto gespeichert."},
        {L"Spiel: Fließband", L"Das Fließband befördert", L"auf dem Konto gespeichert."},
        // The titles compare to the letter.
        {L"spiel: fließband", L"Der Hilfetext für diese Übung ist", L"nicht verfügbar."},
    };
    for (const auto& [titel, anfang, ende] : fälle) {
        SCOPED_TRACE(toUtf8(titel));
        b.global.AktuelleUebung = titel;
        b.user.click(L"imgHilfe", 0);
        EXPECT_EQ(b.caption(L"lblÜbung"), L" " + titel + L" ");
        const std::wstring text = b.caption(L"Label1");
        EXPECT_TRUE(text.starts_with(anfang) && text.ends_with(ende)) << toUtf8(text);
        b.user.close(*b.runtime.active());
    }
}

} // namespace
} // namespace klopfmeise
