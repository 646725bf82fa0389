#include "tests/meldungen.h"

namespace klopfmeise {
namespace {

class Titelseite : public ::testing::Test {
protected:
    Bühne b;

    bool sichtbar(const wchar_t* name) { return b.control<Control>(name).visible(); }
    /// The open frames, "<" for the way back, "_" for each button of the foot, 1 where a class is chosen,
    /// class and name.
    std::wstring stand() {
        std::wstring alles;
        for (const wchar_t* name :
             {L"frmKlasse", L"frmNamen", L"frmSprache", L"frmPin", L"frmEnde", L"frmInfo"})
            alles += sichtbar(name) ? name : L"";
        alles += sichtbar(L"cmdAllesZurück") ? L"<" : L"";
        for (const wchar_t* knopf : {L"cmdLehrkraft", L"cmdInfo", L"imgEnde"})
            alles += sichtbar(knopf) ? L"_" : L"";
        return alles + std::to_wstring(b.global.KlasseGewaehlt) + b.captions({L"LblKlasse", L"LblName"});
    }
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
    const std::wstring anfang = L"frmKlasse___0|";
    const std::wstring code = L"frmPin___0|";
    // The clicks that lead there from the class list.
    const std::pair<std::wstring, std::vector<std::wstring>> zustände[]{
        {anfang, {}},
        {L"frmNamen<___1Hasen\\|", {L"LblGruppe"}},
        {L"frmSprache<___1Hasen\\|Mia", {L"LblGruppe", L"File1"}},
        {code, {L"cmdLehrkraft"}},
        {L"___0|", {L"cmdLehrkraft", L"cmdLehrkraft"}}};
    for (const auto& [knopf, ziel, zurück] : {std::tuple(L"cmdLehrkraft", code, L"command1"),
                                              {L"cmdInfo", L"frmInfo0|", L"cmdInfoOk"},
                                              {L"imgEnde", L"frmEnde0|", L"cmdNein"},
                                              {L"cmdAllesZurück", anfang, L""}})
        for (const auto& [von, klicks] : zustände) {
            if (von == ziel || (!*zurück && von.find(L'<') == von.npos))
                continue;
            SCOPED_TRACE(toUtf8(von + L" " + knopf));
            for (const std::wstring& name : klicks)
                if (name == L"File1") {
                    b.user.pressRow(b.control<FileList>(name), -1);
                    EXPECT_TRUE(sichtbar(L"frmNamen"));
                    b.user.pressRow(b.control<FileList>(name), 0, MouseButton::right);
                } else
                    klick(name, name == L"LblGruppe" ? 0 : Control::noIndex);
            EXPECT_EQ(stand(), von);
            klick(knopf);
            EXPECT_EQ(stand(), ziel);
            if (*zurück)
                klick(zurück);
            EXPECT_EQ(stand(), anfang);
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
    for (const auto& [i, klasse] : {std::pair{0, L"a"}, {1, L"Äpfel"}, {8, L"Igel"}})
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
    EXPECT_EQ(stand(), L"frmSprache<___1Hasen\\|Mia");
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
    // A missing or short code lets every entry in.
    for (const char* code : {"", "123"}) {
        b.user.close(*b.runtime.loaded(L"einst0"));
        EXPECT_EQ(b.aktiv(), L"Lern1");
        b.registry.values["Pin"] = {Registry::Type::string, code};
        b.user.click(L"cmdLehrkraft");
        EXPECT_EQ(klang(L"cmdPinOk"), knopfklang) << code;
        EXPECT_EQ(b.aktiv(), L"einstKlassen");
        EXPECT_FALSE(b.runtime.loaded(L"Lern1"));
    }
}

} // namespace
} // namespace klopfmeise
