#include "platform/values/text.h"
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
    std::filesystem::rename(b.daten() / "Gruppen" / "kme.ein", b.daten() / "Gruppen" / "KME.Ein");
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
            std::filesystem::remove(b.daten() / fehlt);
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

} // namespace
} // namespace klopfmeise
