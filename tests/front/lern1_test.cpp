#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/ranges.h"
#include "platform/controls/text_box.h"
#include "platform/values/text.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

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
    void stand(const wchar_t* frame, bool zurück, bool fuß, int gewählt) {
        EXPECT_EQ(rahmen(), frame);
        EXPECT_EQ(sichtbar(L"cmdAllesZurück"), zurück);
        for (const wchar_t* knopf : {L"cmdLehrkraft", L"cmdInfo", L"imgEnde"})
            EXPECT_EQ(sichtbar(knopf), fuß) << frame;
        EXPECT_EQ(b.global.KlasseGewaehlt, gewählt) << frame;
    }
    void einstellen(int satz, const Wert& wert) {
        Kontodatei(b.echteDateien, logikpfad(b.daten() / "Gruppen" / "Hasen" / "KME.ein"))
            .schreiben(satz, wert);
    }
};

TEST_F(Titelseite, WalksThroughAllItsStatesAndEveryRoadLeadsBackToTheClassList) {
    b.start();
    const auto klick = [&](const wchar_t* name, int index = Control::noIndex) {
        b.sound.played.clear();
        b.user.click(name, index);
        EXPECT_EQ(b.sound.played, std::vector<std::wstring>{L"knopf.wav"});
    };
    enum Zustand { klassen, namen, menü, pin, leer };
    // From the class list.
    const auto zu = [&](Zustand ziel) {
        if (ziel == namen || ziel == menü) {
            klick(L"LblGruppe", 0);
            stand(L"frmNamen", true, true, 1);
            EXPECT_EQ(b.caption(L"LblKlasse") + b.caption(L"LblName"), L"Hasen\\");
        }
        if (ziel == menü) {
            b.user.pressRow(b.control<FileList>(L"File1"), -1);
            stand(L"frmNamen", true, true, 1);
            b.user.pressRow(b.control<FileList>(L"File1"), 0, MouseButton::right);
            stand(L"frmSprache", true, true, 1);
            EXPECT_EQ(b.caption(L"LblKlasse") + b.caption(L"LblName"), L"Hasen\\Mia");
        }
        if (ziel == pin || ziel == leer)
            klick(L"cmdLehrkraft");
        if (ziel == leer) {
            klick(L"cmdLehrkraft");
            stand(L"-", false, true, 0);
        }
    };
    struct Weg {
        const wchar_t* knopf;
        const wchar_t* rahmen;
        const wchar_t* zurück;
        std::vector<Zustand> von;
    };
    const std::vector<Weg> wege{{L"cmdLehrkraft", L"frmPin", L"command1", {klassen, namen, menü, leer}},
                                {L"cmdInfo", L"frmInfo", L"cmdInfoOk", {klassen, namen, menü, pin, leer}},
                                {L"imgEnde", L"frmEnde", L"cmdNein", {klassen, namen, menü, pin, leer}},
                                {L"cmdAllesZurück", L"frmKlasse", nullptr, {namen, menü}}};
    stand(L"frmKlasse", false, true, 0);
    for (const Weg& weg : wege)
        for (const Zustand von : weg.von) {
            SCOPED_TRACE(std::to_string(von) + " " + toUtf8(weg.knopf));
            zu(von);
            klick(weg.knopf);
            const bool fuß = !weg.zurück || std::wstring_view(weg.rahmen) == L"frmPin";
            stand(weg.rahmen, false, fuß, 0);
            EXPECT_EQ(b.caption(L"LblKlasse") + b.caption(L"LblName"), L"");
            if (weg.zurück)
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
    EXPECT_FALSE(b.runtime.active() && b.runtime.active()->name() == L"Lern1");
}

TEST_F(Titelseite, TenClassesScrollUntilTheLastStandsAlone) {
    for (const char* name : {"b", "Äpfel", "Zebras", "Igel", "D", "Eulen", "Füchse", "Geparde", "a"})
        std::filesystem::create_directory(b.daten() / "Gruppen" / name);
    b.start();
    auto& leiste = b.control<ScrollBar>(L"ScrGruppe");
    EXPECT_EQ(leiste.max(), 9);
    EXPECT_EQ(b.caption(L"LblGruppe", 0), L"a");
    EXPECT_EQ(b.caption(L"LblGruppe", 1), L"Äpfel");
    EXPECT_EQ(b.caption(L"LblGruppe", 8), L"Igel");
    b.user.move(leiste, 9);
    EXPECT_EQ(b.caption(L"LblGruppe", 0), L"Zebras");
    EXPECT_TRUE(b.control<Label>(L"LblGruppe", 0).visible());
    for (int i = 1; i <= 8; ++i)
        EXPECT_FALSE(b.control<Label>(L"LblGruppe", i).visible()) << i;
    auto& zeile = b.control<Label>(L"LblGruppe", 0);
    b.user.hover(zeile);
    EXPECT_EQ(zeile.back(), colors::blush);
    b.user.hover(b.control<Frame>(L"frmKlasse"));
    EXPECT_FALSE(zeile.back());
}

TEST_F(Titelseite, NoClassLeavesAnEmptyListAndAnEmptyClassItsHelp) {
    std::filesystem::create_directory(b.daten() / "Gruppen" / "Leer");
    b.start();
    b.user.click(L"LblGruppe", 1);
    auto& hilfe = b.control<TextBox>(L"txtKeineKonten");
    EXPECT_TRUE(hilfe.visible());
    EXPECT_EQ(
        hilfe.text(),
        L"In der Klasse 'Leer\\' befinden sich keine Kinder-Konten! Kinder-Konten müssen im Lehrkraft-Modus "
        L"angelegt werden. Klicken Sie dazu auf den Schalter 'Lehrkraft' am unteren Bildschirmrand dieser "
        L"Titelseite und geben dann in das sich öffnende Fenster den Zugangscode für den Lehrkraft-Modus "
        L"ein. Dieser Code ist bei Auslieferung '7294'. Im Lehrkraft-Modus angekommen, wählen Sie die "
        L"Klasse, innerhalb derer Sie Kinder-Konten anlegen möchten (z.B. 'Leer\\'). Klicken Sie dann auf "
        L"den Schalter 'Konten der Kinder' und anschließend auf den Schalter 'Neues Kind'. Geben Sie nun "
        L"(einen oder mehrere) Kindernamen ein. Verlassen Sie danach den Lehrkraft-Modus mit den "
        L"Pfeil-Schaltern und kehren zurück auf diese Titelseite.");
    b.user.click(L"cmdAllesZurück");
    b.user.click(L"LblGruppe", 0);
    EXPECT_FALSE(hilfe.visible());

    Bühne leer;
    std::filesystem::remove_all(leer.daten() / "Gruppen" / "Hasen");
    leer.start();
    EXPECT_EQ(leer.control<ScrollBar>(L"ScrGruppe").max(), 0);
    EXPECT_FALSE(leer.control<Label>(L"LblGruppe", 0).visible());
}

TEST_F(Titelseite, TheMenuOffersWhatTheClassHasSwitchedOn) {
    for (int satz = 2; satz <= 5; ++satz)
        einstellen(satz, std::int16_t{static_cast<std::int16_t>(satz == 3 ? -1 : 0)});
    b.start();
    b.user.click(L"LblGruppe", 0);
    b.user.pressRow(b.control<FileList>(L"File1"), 0);
    b.sound.played.clear();
    for (int i = 2; i <= 5; ++i) {
        EXPECT_EQ(b.control<Picture>(L"cmdÜbung", i).picture().name, L"uebung_0");
        b.user.click(L"cmdÜbung", i);
    }
    EXPECT_TRUE(b.sound.played.empty());
    EXPECT_EQ(b.aktiv(), L"Lern1");
    b.user.click(L"cmdÜbung", 1);
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.global.AktuelleUebung, L"Klopfmeise - Der Kurs");
    EXPECT_EQ(b.global.AktuelleUebungNr, 1);
    b.user.click(L"imgEnde");
    stand(L"frmSprache", true, true, 1);
    EXPECT_EQ(b.global.AktuelleUebungNr, 0);
    EXPECT_EQ(b.caption(L"LblName"), L"Mia");
    EXPECT_EQ(b.control<Picture>(L"cmdÜbung", 3).picture().name, L"uebung_3");
    EXPECT_FALSE(b.control<Picture>(L"cmdÜbung", 3).enabled());
}

TEST_F(Titelseite, AClassWithoutSettingsGetsAnEmptyFileAndOffersNothing) {
    std::filesystem::remove(b.daten() / "Gruppen" / "Hasen" / "KME.ein");
    b.start();
    b.user.click(L"LblGruppe", 0);
    b.user.pressRow(b.control<FileList>(L"File1"), 0);
    for (int i = 1; i <= 5; ++i)
        EXPECT_FALSE(b.control<Picture>(L"cmdÜbung", i).enabled());
    EXPECT_TRUE(std::filesystem::exists(b.daten() / "Gruppen" / "Hasen" / "KME.ein"));
}

TEST_F(Titelseite, TheCodePadTakesDigitsAndJudgesSilently) {
    b.start();
    b.user.click(L"cmdLehrkraft");
    auto& feld = b.control<TextBox>(L"Text1");
    b.user.type(L"7x2ü9:/");
    EXPECT_EQ(feld.text(), L"729");
    b.user.type(L'\b');
    b.user.type(L"00000");
    EXPECT_EQ(feld.text(), L"7200");
    b.sound.played.clear();
    b.user.click(L"cmdPinOk");
    b.user.type(L'\r');
    EXPECT_EQ(feld.text(), L"7200");
    EXPECT_TRUE(b.sound.played.empty() && b.backend.messages.empty());
    b.user.click(L"cmdPiZurück");
    EXPECT_EQ(feld.text(), L"");
    for (const int ziffer : {7, 2, 9, 4})
        b.user.click(L"cmdPinZahl", ziffer);
    EXPECT_EQ(feld.caret(), 4);
    b.user.type(L'\b');
    // Opened anew it is empty, and the keys go to it.
    b.user.click(L"cmdLehrkraft");
    b.user.click(L"cmdLehrkraft");
    b.user.type(L"7294");
    EXPECT_EQ(feld.text(), L"7294");
    b.sound.played.clear();
    b.user.type(L'\r');
    EXPECT_EQ(b.sound.played, std::vector<std::wstring>{L"knopf.wav"});
}

TEST_F(Titelseite, AMissingOrShortCodeLetsEveryEntryIn) {
    for (const char* code : {"", "123"}) {
        b.registry.values["Pin"] = {Registry::Type::string, code};
        if (b.aktiv().empty())
            b.start();
        b.user.click(L"cmdLehrkraft");
        b.sound.played.clear();
        b.user.click(L"cmdPinOk");
        EXPECT_EQ(b.sound.played, std::vector<std::wstring>{L"knopf.wav"}) << code;
        b.user.click(L"command1");
    }
}

} // namespace
} // namespace klopfmeise
