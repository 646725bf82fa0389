#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "platform/values/text.h"
#include "tests/meldungen.h"

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
    erwarteMeldung(b, MessageIcon::none, L"Klopfmeise",
                   L"KLOPFMEISE kann nur einmal gestartet werden. Da diese KLOPFMEISE-Anwendung bereits die "
                   L"zweite ist, wird diese jetzt automatisch beendet.");
    EXPECT_TRUE(b.backend.quitAsked);
    EXPECT_FALSE(b.runtime.loaded(L"Lern1"));
}

TEST(Start, ARefusedFolderLeadsToTheFolderScreenAndItsCloseEndsTheProcess) {
    for (const char* fehlt : {"Gruppen/kme.ein", "Data/Tastatur/Lektion1.bmp", "Data/Texte/Text_001.txt"}) {
        SCOPED_TRACE(fehlt);
        Bühne b;
        std::filesystem::remove(b.daten() / fehlt);
        b.start();
        erwarteMeldung(b, MessageIcon::stop, unzulässig,
                       L"Der eingestellte Ordner '" + fromUtf8(b.daten().string()) + L"/" + ablageregeln);
        EXPECT_EQ(b.aktiv(), L"frmPfad");
        EXPECT_FALSE(b.runtime.loaded(L"frmTemp") || b.runtime.loaded(L"frmStart"));
        EXPECT_FALSE(b.backend.quitAsked);
        b.user.close(*b.runtime.active());
        EXPECT_TRUE(b.backend.quitAsked);
    }
    Bühne b;
    b.registry.values.clear();
    b.start();
    erwarteMeldung(b, MessageIcon::stop, unzulässig, L"Der eingestellte Ordner '/" + ablageregeln);
    EXPECT_EQ(b.aktiv(), L"frmPfad");
    EXPECT_EQ(b.global.Datenpfad, L"\\");
}

TEST(Start, AFolderThatCannotBeWrittenEndsTheProcess) {
    Bühne b;
    // A folder in the place of the test file refuses the write for the administrator too.
    std::filesystem::create_directory(b.daten() / "lzf75.tst");
    b.start();
    erwarteMeldung(
        b, MessageIcon::stop, L"Hinweis zur Datenablage",
        L"Schreibrecht für Datenablage nicht gegeben!\n\nDer momentan angemeldete Windows-Benutzer kann "
        L"innerhalb des aktuell eingestellten Datenablage-Ordners '" +
            fromUtf8(b.daten().string()) +
            L"/' nicht schreiben. Entweder ist dieser Ordner schreibgeschützt, oder er ist für den "
            L"Schreibzugriff im Netzwerk nicht freigegeben, oder der momentan angemeldete Benutzer verfügt "
            L"nicht über die nötige Schreib-Berechtigung in diesem Ordner.\n\nKLOPFMEISE wird jetzt "
            L"beendet. Sie sollten sich anschließend als Administrator neu unter Windows anmelden und danach "
            L"KLOPFMEISE erneut starten, um dann die Datenablage im Lehrkraft-Modus von KLOPFMEISE neu "
            L"einstellen zu können.");
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
