#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Start, HandsOverToTheTitlePageInFrontOfTheBackdrop) {
    Bühne b;
    dateiSchreiben(b.daten() / "lzf75.tst", "von gestern, länger als das Neue");
    b.start();
    EXPECT_EQ(b.aktiv(), L"Lern1");
    EXPECT_TRUE(b.runtime.loaded(L"frmTemp")->visible());
    EXPECT_FALSE(b.runtime.loaded(L"frmStart"));
    EXPECT_TRUE(b.backend.messages.empty());
    EXPECT_EQ(b.global.Programmpfad, L"\\opt\\klopfmeise\\");
    EXPECT_EQ(dateiinhalt(b.daten() / "lzf75.tst").substr(0, 6), std::string("\x04\x00Test", 6));
}

TEST(Start, ASecondInstanceEndsAtOnce) {
    Bühne b;
    b.shell.second = true;
    b.start();
    ASSERT_EQ(b.backend.messages.size(), 1U);
    EXPECT_TRUE(b.backend.messages[0].text.starts_with(L"KLOPFMEISE kann nur einmal gestartet werden."));
    EXPECT_EQ(b.backend.messages[0].icon, MessageIcon::none);
    EXPECT_TRUE(b.backend.quitAsked);
    EXPECT_FALSE(b.runtime.loaded(L"Lern1"));
}

TEST(Start, ARefusedFolderLeadsToTheFolderScreenAndItsCloseEndsTheProcess) {
    for (const char* fehlt : {"Gruppen/kme.ein", "Data/Tastatur/Lektion1.bmp", "Data/Texte/Text_001.txt"}) {
        Bühne b;
        std::filesystem::remove(b.daten() / fehlt);
        b.start();
        ASSERT_EQ(b.backend.messages.size(), 1U) << fehlt;
        EXPECT_EQ(b.backend.messages[0].title, L"Kein zulässiger Ordner für die Datenablage");
        EXPECT_EQ(b.backend.messages[0].icon, MessageIcon::stop);
        EXPECT_TRUE(b.backend.messages[0].text.starts_with(L"Der eingestellte Ordner '/"));
        EXPECT_EQ(b.aktiv(), L"frmPfad");
        EXPECT_FALSE(b.runtime.loaded(L"frmTemp"));
        EXPECT_FALSE(b.backend.quitAsked);
        b.user.close(*b.runtime.active());
        EXPECT_TRUE(b.backend.quitAsked);
    }
    Bühne b;
    b.registry.values.clear();
    b.start();
    EXPECT_EQ(b.aktiv(), L"frmPfad");
    EXPECT_EQ(b.global.Datenpfad, L"\\");
}

TEST(Start, AFolderThatCannotBeWrittenEndsTheProcess) {
    Bühne b;
    // A folder in the place of the test file refuses the write for the administrator too.
    std::filesystem::create_directory(b.daten() / "lzf75.tst");
    b.start();
    ASSERT_EQ(b.backend.messages.size(), 1U);
    EXPECT_EQ(b.backend.messages[0].title, L"Hinweis zur Datenablage");
    EXPECT_TRUE(b.backend.messages[0].text.starts_with(
        L"Schreibrecht für Datenablage nicht gegeben!\n\nDer momentan"));
    EXPECT_TRUE(b.backend.quitAsked);
    EXPECT_FALSE(b.runtime.loaded(L"Lern1"));
}

TEST(Start, AScreenThatIsNotThereLeavesTheOldOneStanding) {
    Bühne b;
    b.zurÜbung(3);
    EXPECT_EQ(b.aktiv(), L"Lern1");
    EXPECT_EQ(b.backend.messages.size(), 1U);
    EXPECT_TRUE(b.control<Frame>(L"frmSprache").visible());
}

} // namespace
} // namespace klopfmeise
