#include "platform/controls/drawn.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Kursstartseite, BehindTheLastLessonTheCourseIsDone) {
    Bühne b;
    b.satz(Kontosatz::Lektionsnummer, std::int32_t{31});
    b.öffnen(L"Tastatur0");
    EXPECT_EQ(b.caption(L"lblNameLektion"), L"Geschafft! Du hast alle Lektionen des Kurses bestanden.");
    b.user.type(L' ');
    b.user.click(L"cmdNeuesSpiel");
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    b.satz(Kontosatz::Lektionsnummer, std::int32_t{-40000});
    b.satz(Kontosatz::Stufennummer, std::int16_t{-5});
    b.user.click(L"imgEnde");
    b.user.click(L"cmdÜbung", 1);
    EXPECT_TRUE(b.caption(L"lblHinweisName").starts_with(L"Für Lektion -40000, Stufe -5 gibt es keinen"));
}

TEST(Kursstartseite, EveryScreenOfAChildNamesItAndItsClass) {
    for (const wchar_t* form : {L"Tastatur0", L"Tastatur1", L"Tastatur2", L"Textübung0"}) {
        Bühne b;
        b.öffnen(form);
        EXPECT_EQ(b.captions({L"LblName", L"LblKlasse"}), L"Mia|Hasen\\");
    }
}

} // namespace
} // namespace klopfmeise
