#include "platform/controls/drawn.h"
#include "platform/controls/text_box.h"
#include "platform/values/text.h"
#include "platform/values/windows1252.h"
#include "tests/meldungen.h"

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

class Datenablage : public ::testing::Test {
protected:
    void SetUp() override { b.öffnen(L"frmPfad"); }

    /// A whole data folder beside the one in use.
    fs::path ablage(const char* name) {
        fs::copy(b.daten(), b.ordner.pfad() / name, fs::copy_options::recursive);
        return b.ordner.pfad() / name;
    }
    std::wstring feld() { return b.control<TextBox>(L"txtPfadNeu").text(); }
    void eingeben(const std::wstring& text) {
        auto& neu = b.control<TextBox>(L"txtPfadNeu");
        neu.setText(L"");
        b.runtime.active()->setFocus(neu);
        b.user.type(text);
    }
    void erwarteWarnung() {
        erwarteMeldung(b, MessageIcon::information, L"Datenablage", ganz(L"ACHTUNG: Sollten Sie"));
    }
    /// Takes `eingabe` over and expects that the folder `gezeigt` is refused and nothing is changed.
    void erwarteAbgelehnt(const std::wstring& eingabe, const std::wstring& gezeigt) {
        const auto stand = [&] {
            return std::tuple(b.aktiv(), b.global.Datenpfad, b.registry.values["Datenablage"].bytes,
                              b.caption(L"lblPfadAktuell"), b.backend.quitAsked);
        };
        const auto vorher = stand();
        eingeben(eingabe);
        b.user.click(L"cmdNeuerPfad");
        erwarteMeldung(b, MessageIcon::stop, unzulässig, L"Der angegebene Ordner '" + gezeigt + ablageregeln);
        EXPECT_EQ(feld(), gezeigt);
        EXPECT_TRUE(stand() == vorher);
    }

    Bühne b;
};

TEST_F(Datenablage, EachButtonFillsItsFieldAndTakesNothingOver) {
    EXPECT_EQ(b.caption(L"lblPfadAktuell"), fromUtf8(b.daten().string()) + L"/");
    EXPECT_EQ(feld(), L"");
    b.user.click(L"cmdApiPfad");
    erwarteWarnung();
    EXPECT_EQ(feld() + b.control<TextBox>(L"Text1").text(), L"/var/lib/Klopfmeise//var/lib/Klopfmeise/");
    b.user.click(L"cmdPfad");
    EXPECT_EQ(feld(), L"/opt/klopfmeise/");
    b.shell.chosenFolder = L"\\srv\\Schule";
    b.user.click(L"cmdBrowse");
    erwarteWarnung();
    EXPECT_EQ(feld(), L"/srv/Schule");
    b.user.click(L"cmdExplorer");
    EXPECT_EQ(b.shell.opened, std::vector{logikpfad(b.daten()) + L"\\"});
    EXPECT_EQ(b.global.Datenpfad, logikpfad(b.daten()) + L"\\");
    // A dialog that is cancelled leaves the field empty, and that is the root.
    b.shell.chosenFolder.clear();
    b.user.click(L"cmdBrowse");
    erwarteWarnung();
    EXPECT_EQ(feld(), L"");
    erwarteAbgelehnt(L"", L"/");
}

TEST_F(Datenablage, AFolderWithoutOneOfItsMarkersIsRefused) {
    for (const char* fehlt : {"Gruppen/kme.ein", "Data/Tastatur/Lektion1.bmp", "Data/Texte/Text_001.txt"}) {
        SCOPED_TRACE(fehlt);
        const fs::path neu = ablage("Neu");
        fs::remove(neu / fehlt);
        erwarteAbgelehnt(fromUtf8(neu.string()), fromUtf8(neu.string()) + L"/");
        fs::remove_all(neu);
    }
    // The standard folder of this machine is not there; its button did not ask for it.
    b.shell.commonFolder = logikpfad(b.ordner.pfad());
    b.user.click(L"cmdApiPfad");
    erwarteWarnung();
    const std::wstring gewöhnlich = feld();
    EXPECT_TRUE(gewöhnlich.ends_with(L"/Klopfmeise/"));
    erwarteAbgelehnt(gewöhnlich, gewöhnlich);
}

TEST_F(Datenablage, APathOfThreeCharactersIsRefusedAndARelativeOneHoldsFromEverywhere) {
    ablage("ab");
    const fs::path vorher = fs::current_path();
    fs::current_path(b.ordner.pfad());
    erwarteAbgelehnt(L"ab", L"ab/");
    fs::rename("ab", "äbc");
    eingeben(L"äbc");
    // Enter has no function in the field.
    b.user.type(L'\r');
    EXPECT_TRUE(b.backend.messages.empty() && !b.backend.quitAsked);
    b.user.click(L"cmdNeuerPfad");
    fs::current_path(vorher);
    const std::wstring ganz = logikpfad(b.ordner.pfad()) + L"\\äbc\\";
    EXPECT_EQ(b.global.Datenpfad, ganz);
    EXPECT_TRUE(b.backend.quitAsked);
    EXPECT_EQ(b.registry.values["Datenablage"].bytes, toWindows1252(ganz));
}

TEST_F(Datenablage, AFolderTakenOverIsWrittenAndTheNextStartRunsOnIt) {
    const fs::path neu = ablage("Школа Schu\xCC\x88ler");
    b.shell.chosenFolder = logikpfad(neu);
    b.user.click(L"cmdBrowse");
    erwarteWarnung();
    b.user.click(L"cmdNeuerPfad");
    erwarteMeldung(b, MessageIcon::information, L"Datenablage", ganz(L"Der neue Ordner"));
    EXPECT_TRUE(b.backend.quitAsked);
    EXPECT_EQ(b.registry.values["Datenablage"].type, Registry::Type::string);
    Bühne danach;
    danach.registry.values = b.registry.values;
    danach.start();
    EXPECT_EQ(danach.aktiv(), L"Lern1");
    EXPECT_EQ(danach.global.Datenpfad, logikpfad(neu) + L"\\");
}

TEST_F(Datenablage, ARefusedWriteLeavesTheOldFolderInForceAndEndsTheProcess) {
    const std::string abgelegt = b.registry.values["Datenablage"].bytes;
    b.registry.refuseWrite = true;
    eingeben(fromUtf8(ablage("Neu").string()) + L"/");
    b.user.click(L"cmdNeuerPfad");
    erwarteMeldung(b, MessageIcon::information, L"Hinweis", ganz(L"Sie müssen als Administrator"));
    EXPECT_TRUE(b.backend.quitAsked);
    EXPECT_EQ(b.registry.values["Datenablage"].bytes, abgelegt);
}

TEST_F(Datenablage, AnotherWindowClosesTheScreenAndOpeningItReadsTheValueAnew) {
    eingeben(L"/unfertig");
    b.user.activate(*b.runtime.loaded(L"frmTemp"));
    EXPECT_FALSE(b.runtime.loaded(L"frmPfad"));
    // As a stored string with its terminator, and without a closing backslash.
    b.registry.values["Datenablage"].bytes = std::string("\\srv\\Schule\0", 12);
    b.runtime.show(L"frmPfad");
    EXPECT_EQ(b.caption(L"lblPfadAktuell"), L"/srv/Schule/");
    EXPECT_EQ(b.global.Datenpfad, L"\\srv\\Schule\\");
    EXPECT_EQ(feld(), L"");
}

} // namespace
} // namespace klopfmeise
