#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/ranges.h"
#include "platform/controls/text_box.h"
#include "platform/values/text.h"
#include "tests/texte.h"

#include <gtest/gtest.h>
#include <set>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

class Titelseite : public ::testing::Test {
protected:
    Bühne b;

    bool sichtbar(const wchar_t* name) { return b.control<Control>(name).visible(); }
    /// Name of the one visible frame; "-" for none.
    std::wstring rahmen() {
        std::wstring offen = L"-";
        for (const wchar_t* name :
             {L"frmKlasse", L"frmNamen", L"frmSprache", L"frmPin", L"frmEnde", L"frmInfo"})
            if (sichtbar(name))
                offen = offen == L"-" ? name : offen + L"+" + name;
        return offen;
    }
    void stand(std::wstring_view frame, bool zurück, bool fuß, int gewählt) {
        EXPECT_EQ(rahmen(), frame);
        EXPECT_EQ(sichtbar(L"cmdAllesZurück"), zurück);
        for (const wchar_t* knopf : {L"cmdLehrkraft", L"cmdInfo", L"imgEnde"})
            EXPECT_EQ(sichtbar(knopf), fuß);
        EXPECT_EQ(b.global.KlasseGewaehlt, gewählt);
    }
    std::wstring klasseUndName() { return b.captions({L"LblKlasse", L"LblName"}); }
    /// The sounds of a click.
    std::vector<std::wstring> klang(std::wstring_view name, int index = Control::noIndex) {
        b.sound.played.clear();
        b.user.click(name, index);
        return b.sound.played;
    }

    const fs::path einstellungen = b.daten() / "Gruppen" / "Hasen" / "KME.ein";
    const std::vector<std::wstring> knopfklang{L"knopf.wav"};
};

TEST_F(Titelseite, WalksThroughAllItsStatesAndEveryRoadLeadsBackToTheClassList) {
    b.start();
    const auto klick = [&](std::wstring_view name, int index = Control::noIndex) {
        EXPECT_EQ(klang(name, index), knopfklang);
    };
    struct Zustand {
        std::wstring rahmen;
        std::vector<std::wstring> klicks; ///< that lead there from the class list
        bool inKlasse;
        std::wstring klasseUndName;
    };
    const Zustand zustände[]{{L"frmKlasse", {}, false, L"|"},
                             {L"frmNamen", {L"LblGruppe"}, true, L"Hasen\\|"},
                             {L"frmSprache", {L"LblGruppe", L"File1"}, true, L"Hasen\\|Mia"},
                             {L"frmPin", {L"cmdLehrkraft"}, false, L"|"},
                             {L"-", {L"cmdLehrkraft", L"cmdLehrkraft"}, false, L"|"}};
    struct Weg {
        std::wstring knopf, rahmen, zurück;
        bool fuß;
        std::set<std::wstring> nichtVon;
    };
    for (const Weg& weg : {Weg{L"cmdLehrkraft", L"frmPin", L"command1", true, {L"frmPin"}},
                           Weg{L"cmdInfo", L"frmInfo", L"cmdInfoOk", false, {}},
                           Weg{L"imgEnde", L"frmEnde", L"cmdNein", false, {}},
                           Weg{L"cmdAllesZurück", L"frmKlasse", L"", true, {L"frmKlasse", L"frmPin", L"-"}}})
        for (const Zustand& von : zustände) {
            if (weg.nichtVon.contains(von.rahmen))
                continue;
            SCOPED_TRACE(toUtf8(von.rahmen + L" " + weg.knopf));
            for (const std::wstring& name : von.klicks)
                if (name == L"File1") {
                    b.user.pressRow(b.control<FileList>(name), -1);
                    EXPECT_EQ(rahmen(), L"frmNamen");
                    b.user.pressRow(b.control<FileList>(name), 0, MouseButton::right);
                } else
                    klick(name, name == L"LblGruppe" ? 0 : Control::noIndex);
            stand(von.rahmen, von.inKlasse, true, von.inKlasse);
            EXPECT_EQ(klasseUndName(), von.klasseUndName);
            klick(weg.knopf);
            stand(weg.rahmen, false, weg.fuß, 0);
            EXPECT_EQ(klasseUndName(), L"|");
            if (!weg.zurück.empty())
                klick(weg.zurück);
            stand(L"frmKlasse", false, true, 0);
        }
    klick(L"cmdInfo");
    klick(L"Label4", 0);
    EXPECT_EQ(b.shell.opened, std::vector{L"https://" + b.caption(L"Label4", 0) + L"/"});
    klick(L"cmdInfoOk");
    klick(L"imgEnde");
    klick(L"cmdJa");
    EXPECT_TRUE(b.backend.quitAsked);
    EXPECT_NE(b.aktiv(), L"Lern1");
}

TEST_F(Titelseite, TenClassesScrollUntilTheLastStandsAlone) {
    for (const char* name : {"b", "Äpfel", "Zebras", "Igel", "D", "Eulen", "Füchse", "Geparde", "a"})
        fs::create_directory(b.daten() / "Gruppen" / name);
    b.start();
    auto& leiste = b.control<ScrollBar>(L"ScrGruppe");
    EXPECT_EQ(leiste.max(), 9);
    for (const auto& [i, klasse] : {std::pair{0, L"a"}, std::pair{1, L"Äpfel"}, std::pair{8, L"Igel"}})
        EXPECT_EQ(b.caption(L"LblGruppe", i), klasse);
    b.user.move(leiste, 9);
    EXPECT_EQ(b.caption(L"LblGruppe", 0), L"Zebras");
    for (int i = 0; i <= 8; ++i)
        EXPECT_EQ(b.control<Label>(L"LblGruppe", i).visible(), i == 0) << i;
}

TEST_F(Titelseite, NoClassLeavesAnEmptyListAndAnEmptyClassItsHelp) {
    fs::create_directory(b.daten() / "Gruppen" / "Leer");
    b.start();
    b.user.click(L"LblGruppe", 1);
    auto& hilfe = b.control<TextBox>(L"txtKeineKonten");
    EXPECT_TRUE(hilfe.visible());
    EXPECT_EQ(hilfe.text(), ganz(L"In der Klasse"));
    b.user.click(L"cmdAllesZurück");
    b.user.click(L"LblGruppe", 0);
    EXPECT_FALSE(hilfe.visible());

    Bühne leer;
    fs::remove_all(leer.daten() / "Gruppen" / "Hasen");
    leer.start();
    EXPECT_EQ(leer.control<ScrollBar>(L"ScrGruppe").max(), 0);
    EXPECT_FALSE(leer.control<Label>(L"LblGruppe", 0).visible());
}

TEST_F(Titelseite, TheMenuOffersWhatTheClassHasSwitchedOn) {
    Kontodatei datei(b.echteDateien, logikpfad(einstellungen));
    for (int satz = 2; satz <= 5; ++satz)
        datei.schreiben(satz, ganzzahl(satz == 3 ? -1 : 0));
    b.start();
    b.anmelden();
    for (int i = 2; i <= 5; ++i) {
        EXPECT_EQ(b.control<Picture>(L"cmdÜbung", i).picture().name, L"uebung_0");
        EXPECT_TRUE(klang(L"cmdÜbung", i).empty());
    }
    EXPECT_EQ(b.aktiv(), L"Lern1");
    b.user.click(L"cmdÜbung", 1);
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    b.user.click(L"imgEnde");
    stand(L"frmSprache", true, true, 1);
    EXPECT_EQ(klasseUndName(), L"Hasen\\|Mia");
    EXPECT_FALSE(b.control<Picture>(L"cmdÜbung", 3).enabled());
    // A class without settings gets an empty file and offers nothing.
    fs::remove(einstellungen);
    b.user.click(L"cmdAllesZurück");
    b.anmelden();
    EXPECT_FALSE(b.control<Picture>(L"cmdÜbung", 1).enabled());
    EXPECT_TRUE(fs::exists(einstellungen));
}

TEST_F(Titelseite, TheCodePadTakesDigitsAndJudgesSilently) {
    b.start();
    b.user.click(L"cmdLehrkraft");
    auto& feld = b.control<TextBox>(L"Text1");
    b.user.type(L"7x2ü9:/\b00000");
    EXPECT_TRUE(klang(L"cmdPinOk").empty());
    b.user.type(L'\r');
    EXPECT_EQ(feld.text(), L"7200");
    EXPECT_TRUE(b.sound.played.empty() && b.backend.messages.empty());
    b.user.click(L"cmdPiZurück");
    EXPECT_EQ(feld.text(), L"");
    for (const int ziffer : {7, 2, 9, 4})
        b.user.click(L"cmdPinZahl", ziffer);
    // Opened anew it is empty, and the keys go to it.
    b.user.click(L"cmdLehrkraft");
    b.user.click(L"cmdLehrkraft");
    b.user.type(L"7294\r");
    EXPECT_EQ(b.aktiv(), L"einstKlassen");
}

TEST_F(Titelseite, AMissingOrShortCodeLetsEveryEntryIn) {
    b.start();
    for (const char* code : {"", "123"}) {
        b.registry.values["Pin"] = {Registry::Type::string, code};
        b.user.click(L"cmdLehrkraft");
        EXPECT_EQ(klang(L"cmdPinOk"), knopfklang) << code;
        EXPECT_EQ(b.aktiv(), L"einstKlassen");
        EXPECT_FALSE(b.runtime.loaded(L"Lern1"));
        b.user.close(*b.runtime.loaded(L"einst0"));
        EXPECT_EQ(b.aktiv(), L"Lern1");
    }
}

} // namespace
} // namespace klopfmeise
