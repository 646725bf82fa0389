#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "platform/values/text.h"
#include "tests/meldungen.h"

namespace klopfmeise {
namespace {

class Start : public ::testing::Test {
protected:
    /// Starts, and expects that it ends with this message.
    void erwarteEnde(MessageIcon zeichen, std::wstring_view titel, const std::wstring& text) {
        b.start();
        erwarteMeldung(b, zeichen, titel, text);
        EXPECT_TRUE(b.backend.quitAsked);
        EXPECT_FALSE(b.runtime.loaded(L"Lern1"));
    }

    Bühne b;
};

TEST_F(Start, HandsOverToTheTitlePageInFrontOfTheBackdrop) {
    dateiSchreiben(b.daten() / "lzf75.tst", "von gestern, länger als das Neue");
    b.start();
    EXPECT_EQ(b.aktiv(), L"Lern1");
    EXPECT_TRUE(b.runtime.loaded(L"frmTemp")->visible());
    EXPECT_FALSE(b.runtime.loaded(L"frmStart"));
    // Put in place anew: a full disk would still take six bytes in a file that is there.
    EXPECT_EQ(dateiinhalt(b.daten() / "lzf75.tst"), std::string("\x04\x00Test", 6));
}

TEST_F(Start, ASecondInstanceEndsAtOnce) {
    b.shell.second = true;
    erwarteEnde(MessageIcon::none, L"Klopfmeise", ganz(L"KLOPFMEISE kann nur einmal"));
}

TEST_F(Start, AFolderThatCannotBeWrittenEndsTheProcess) {
    // A folder in the place of the test file refuses the write for the administrator too.
    std::filesystem::create_directory(b.daten() / "lzf75.tst");
    erwarteEnde(MessageIcon::stop, L"Hinweis zur Datenablage",
                L"Schreibrecht für Datenablage nicht gegeben!\n\nDer momentan angemeldete Windows-Benutzer "
                L"kann innerhalb des aktuell eingestellten Datenablage-Ordners '" +
                    fromUtf8(b.daten().string()) + L"/" + ganz(L"' nicht schreiben"));
}

TEST_F(Start, ARefusedFolderLeadsToTheFolderScreenAndItsCloseEndsTheProcess) {
    // "" stands for a folder that was never set.
    for (const char* fehlt :
         {"", "Gruppen/kme.ein", "Data/Tastatur/Lektion1.bmp", "Data/Texte/Text_001.txt"}) {
        SCOPED_TRACE(fehlt);
        Bühne ohne;
        const bool gesetzt = *fehlt;
        if (gesetzt)
            std::filesystem::remove(ohne.daten() / fehlt);
        else
            ohne.registry.values.clear();
        ohne.start();
        const std::wstring ordner = gesetzt ? fromUtf8(ohne.daten().string()) + L"/" : L"/";
        erwarteMeldung(ohne, MessageIcon::stop, unzulässig,
                       L"Der eingestellte Ordner '" + ordner + ablageregeln);
        EXPECT_EQ(ohne.aktiv(), L"frmPfad");
        EXPECT_FALSE(ohne.runtime.loaded(L"frmTemp") || ohne.runtime.loaded(L"frmStart"));
        EXPECT_FALSE(ohne.backend.quitAsked);
        ohne.user.close(*ohne.runtime.active());
        EXPECT_TRUE(ohne.backend.quitAsked);
    }
}

} // namespace
} // namespace klopfmeise
