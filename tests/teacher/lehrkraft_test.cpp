#include "platform/controls/button.h"
#include "platform/controls/checks.h"
#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/ranges.h"
#include "platform/controls/text_box.h"
#include "store/dateinamen.h"
#include "store/einstellungsdatei.h"
#include "store/klassen.h"
#include "store/konten.h"
#include "tests/ausfallende_dateien.h"
#include "tests/meldungen.h"

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

/// The teacher mode as the code pad opens it, with the class Hasen.
class Lehrkraft : public ::testing::Test {
protected:
    explicit Lehrkraft(Files* dateien = nullptr)
        : b(dateien) {
        b.start();
        b.user.click(L"cmdLehrkraft");
        b.user.type(L"7294\r");
        b.sound.played.clear();
    }
    fs::path gruppen() { return b.daten() / "Gruppen"; }
    Form& rahmen() { return *b.runtime.loaded(L"einst0"); }
    Label& zeile() { return *rahmen().find<Label>(L"LblKlasse"); }
    void menü(std::wstring_view eintrag) { b.user.choose(rahmen(), eintrag); }
    std::vector<std::wstring> liste() {
        std::vector<std::wstring> namen;
        for (int i = 0; i < 9; ++i)
            if (const auto& label = b.control<Label>(L"LblGruppe", i); label.visible())
                namen.push_back(label.caption());
        return namen;
    }
    void wählen(int i = 0) { b.user.click(L"LblGruppe", i); }
    void anlegen(const std::wstring& name) {
        b.user.click(L"cmdNeueGruppe");
        // It is not there while a refused name still stands in the box.
        b.control<TextBox>(L"txtNeueGruppe").setText(L"");
        b.user.type(name + L"\r");
    }
    void löschen(int zeile, Answer antwort) {
        b.backend.answers = {antwort};
        b.user.click(b.control<Label>(L"LblGruppe", zeile), MouseButton::right);
    }
    void inDenEinstellungen() {
        wählen();
        b.user.click(L"cmd", 3);
    }
    std::string schalter(const char* klasse) {
        std::string text;
        const auto gelesen = schalterLesen(b.echteDateien, b.global, fromUtf8(klasse) + L"\\");
        for (const bool an : gelesen.value())
            text += an ? '1' : '0';
        return text;
    }

    Bühne b;
};

TEST_F(Lehrkraft, OnlyWithAClassTheMainMenuOpensAndElseTheLineGivesAlarm) {
    EXPECT_EQ(b.aktiv(), L"einstKlassen");
    EXPECT_EQ(rahmen().windowState(), WindowState::maximised);
    EXPECT_EQ(zeile().caption(), L" keine Klasse ausgewählt... ");
    b.user.pass(300);
    EXPECT_EQ(zeile().back(), colors::white);
    EXPECT_EQ(zeile().fore(), colors::white);
    b.user.pass(300);
    EXPECT_EQ(zeile().fore(), colors::black);
    menü(L"Hauptmenü");
    erwarteMeldung(b, MessageIcon::stop, L"Keine Gruppe ausgewählt...",
                   L"Das Hauptmenü kann nur geöffnet werden, wenn Sie zuvor eine Gruppe in der Gruppenliste "
                   L"ausgewählt haben.");
    EXPECT_EQ(zeile().caption(), L" keine Gruppe ausgewählt... ");
    b.user.pass(300);
    EXPECT_EQ(zeile().back(), colors::red);
    wählen();
    EXPECT_EQ(b.aktiv(), L"einstHaupt");
    EXPECT_EQ(zeile().caption(), L" Hasen\\ ");
    EXPECT_FALSE(b.runtime.loaded(L"einstKlassen"));
    menü(L"Code");
    EXPECT_EQ(b.aktiv(), L"einstCode");
    menü(L"Hauptmenü");
    EXPECT_EQ(b.aktiv(), L"einstHaupt");
    EXPECT_FALSE(b.runtime.loaded(L"einstCode"));
    b.user.resize(rahmen(), 9000, 6000, WindowState::normal);
    EXPECT_EQ(rahmen().windowState(), WindowState::maximised);
    EXPECT_EQ(zeile().width(), rahmen().width());
    menü(L"Datenablage");
    EXPECT_EQ(b.aktiv(), L"frmPfad");
    EXPECT_EQ(b.global.AktuelleKlasse, L"");
    EXPECT_EQ(zeile().caption(), L" keine Gruppe ausgewählt... ");
    menü(L"Klassen");
    EXPECT_EQ(b.aktiv(), L"einstKlassen");
    EXPECT_FALSE(b.runtime.loaded(L"frmPfad"));
    EXPECT_EQ(zeile().caption(), L" keine Klasse ausgewählt... ");
    b.user.close(rahmen());
    EXPECT_EQ(b.aktiv(), L"Lern1");
    EXPECT_FALSE(b.runtime.loaded(L"einstKlassen"));
}

TEST_F(Lehrkraft, NineOfManyClassesShow) {
    for (int i = 0; i < 10; ++i)
        fs::create_directory(gruppen() / ("K" + std::to_string(i)));
    menü(L"Klassen");
    EXPECT_EQ(liste().size(), 9u);
    b.user.move(b.control<ScrollBar>(L"ScrGruppe"), 1);
    EXPECT_EQ(liste().front(), L"K0");
    EXPECT_EQ(liste().size(), 9u);
    b.user.move(b.control<ScrollBar>(L"ScrGruppe"), 10);
    EXPECT_EQ(liste(), std::vector<std::wstring>{L"K9"});
    auto& oben = b.control<Label>(L"LblGruppe", 0);
    b.user.hover(oben);
    EXPECT_EQ(oben.back(), RGB(236, 207, 200));
    b.user.hover(b.control<Frame>(L"frmHaupt"));
    EXPECT_FALSE(oben.back());
    wählen();
    EXPECT_EQ(b.global.AktuelleKlasse, L"K9\\");
    EXPECT_EQ(b.sound.played, std::vector<std::wstring>{L"knopf.wav"});
}

TEST_F(Lehrkraft, AFolderThatCannotBeReadIsToldOfInPlaceOfItsList) {
    const auto unlesbar = [&] {
        auto& label = b.control<Label>(L"lblUnlesbar");
        return label.visible() ? label.caption() : L"";
    };
    const auto weg = b.ordner.pfad() / "Weg";
    fs::rename(b.daten(), weg);
    menü(L"Klassen");
    EXPECT_EQ(unlesbar(), L"Die Datenablage kann gerade nicht gelesen werden.");
    fs::rename(weg, b.daten());
    menü(L"Klassen");
    EXPECT_EQ(unlesbar() + liste().at(0), L"Hasen");
    wählen();
    for (const auto& [schalter, satz] :
         {std::pair(1, L"Der Ordner der Klasse kann gerade nicht gelesen werden."),
          std::pair(2, L"Die Datenablage kann gerade nicht gelesen werden.")}) {
        fs::rename(b.daten(), weg);
        b.user.click(L"cmd", schalter);
        EXPECT_EQ(unlesbar(), satz);
        fs::rename(weg, b.daten());
        menü(L"Hauptmenü");
        b.user.click(L"cmd", schalter);
        EXPECT_EQ(unlesbar(), L"");
        menü(L"Hauptmenü");
    }
}

TEST_F(Lehrkraft, AClassIsMadeFromTheTemplateUnlessItsNameCannotBe) {
    anlegen(L"4b Füchse");
    EXPECT_EQ(dateiinhalt(gruppen() / "4b Füchse" / "KME.ein"), dateiinhalt(gruppen() / "kme.ein"));
    EXPECT_EQ(liste(), (std::vector<std::wstring>{L"4b Füchse", L"Hasen"}));
    EXPECT_EQ(b.global.AktuelleKlasse, L"");
    for (const std::wstring name : {L"Hasen", L"hASEN"}) {
        anlegen(name);
        erwarteMeldung(
            b, MessageIcon::stop, L"klasse existiert bereits!",
            L"Die von Ihnen eingegebene klasse '" + name +
                L"' existiert bereits. Bitte wählen Sie einen anderen Namen für die neu anzulegende "
                L"klasse!");
        EXPECT_EQ(b.control<TextBox>(L"txtNeueGruppe").text(), name);
        EXPECT_TRUE(b.control<Frame>(L"frmNeueGruppe").visible());
    }
    anlegen(L"../../Daten2");
    erwarteMeldung(b, MessageIcon::stop, L"klasse kann nicht angelegt werden!", namensregeln);
    EXPECT_EQ(b.control<TextBox>(L"txtNeueGruppe").text(), L"../../Daten2");
    b.control<TextBox>(L"txtNeueGruppe").setText(L"");
    b.user.click(L"cmdNeueGruppeOk");
    EXPECT_TRUE(b.control<Frame>(L"frmHaupt").visible());
    fs::remove(gruppen() / "kme.ein");
    anlegen(L"Igel");
    ASSERT_EQ(b.backend.messages.size(), 1u);
    EXPECT_EQ(b.backend.messages[0].title, L"Hinweis");
    EXPECT_TRUE(fs::is_directory(gruppen() / "Igel"));
    EXPECT_EQ(liste().size(), 3u);
}

TEST(Dateinamen, LeadOutOfNoFolderAndSuitEveryShare) {
    for (const wchar_t* gut :
         {L"4b", L"Füchse & Co", L"a.b", L" x", L"Console", L"COM", L"COM10", L"ß€", L"-_-"})
        EXPECT_TRUE(zulässigerName(gut)) << toUtf8(gut);
    for (const wchar_t* schlecht :
         {L"",   L"  ",  L".", L"..", L".a",   L"a.",  L"a ",      L"a\\b", L"a/b",    L"c:",    L"a*",
          L"a?", L"\"a", L"<", L"|",  L"a\tb", L"con", L"NUL.txt", L"Lpt1", L"com9.a", L"Школа", L"😀"})
        EXPECT_FALSE(zulässigerName(schlecht)) << toUtf8(schlecht);
}

TEST_F(Lehrkraft, AClassGoesWithItsAccountsUnlessAFolderIsInIt) {
    const auto frage = [&] {
        const Message gefragt = b.backend.messages.front();
        b.backend.messages.erase(b.backend.messages.begin());
        EXPECT_EQ(gefragt.title, L"klasse entfernen?");
        EXPECT_EQ(gefragt.text,
                  L"Soll die klasse 'Hasen' inkl. aller darin befindlichen Kinderkonten wirklich "
                  L"entfernt werden?");
        EXPECT_EQ(gefragt.buttons, MessageButtons::yesNoCancel);
    };
    for (const Answer nein : {Answer::no, Answer::cancel}) {
        löschen(0, nein);
        frage();
        EXPECT_TRUE(fs::exists(b.konto()));
        EXPECT_EQ(liste().size(), 1u);
    }
    fs::create_directory(gruppen() / "Hasen" / "Mia");
    löschen(0, Answer::yes);
    frage();
    erwarteMeldung(b, MessageIcon::stop, L"Hinweis", ganz(L"In der Gruppe 'Hasen'"));
    EXPECT_TRUE(fs::exists(b.konto()));
    fs::remove(gruppen() / "Hasen" / "Mia");
    löschen(0, Answer::yes);
    frage();
    EXPECT_TRUE(b.backend.messages.empty());
    EXPECT_FALSE(fs::exists(gruppen() / "Hasen"));
    EXPECT_TRUE(liste().empty());
    EXPECT_EQ(b.control<ScrollBar>(L"ScrGruppe").max(), 0);

    // Of a link the link goes.
    fs::create_directory(b.ordner.pfad() / "Fremd");
    dateiSchreiben(b.ordner.pfad() / "Fremd" / "Wichtig.txt", "x");
    fs::create_directory_symlink(b.ordner.pfad() / "Fremd", gruppen() / "Link");
    menü(L"Klassen");
    löschen(0, Answer::yes);
    EXPECT_FALSE(fs::exists(gruppen() / "Link"));
    EXPECT_TRUE(fs::exists(b.ordner.pfad() / "Fremd" / "Wichtig.txt"));
}

TEST(Klassen, WhateverFailsNothingElseIsTouched) {
    for (int n = 1; n < 20; ++n) {
        SCOPED_TRACE(n);
        AusfallendeDateien dateien;
        Bühne b(&dateien);
        b.kindWählen();
        const auto gruppen = b.daten() / "Gruppen";
        const std::string konto = dateiinhalt(b.konto());
        const auto fremd = b.ordner.pfad() / "Fremd";
        dateiSchreiben(fremd / "Wichtig.txt", "x");
        fs::create_directory_symlink(fremd, gruppen / "Link");
        fs::create_directory(gruppen / "Hasen" / "Mia");
        for (const wchar_t* klasse : {L"Hasen", L"Link", L"..", L"x\\..\\Hasen"}) {
            dateien.ausfallenBei(n);
            klasseLöschen(dateien, b.global, klasse);
            EXPECT_EQ(dateiinhalt(b.konto()), konto) << "a folder lies in the class";
            EXPECT_TRUE(fs::exists(fremd / "Wichtig.txt"));
        }
        dateien.ausfallenBei(n);
        klasseUmbenennen(dateien, b.global, L"Hasen", L"Hasen");
        klasseAnlegen(dateien, b.global, L"Neu");
        EXPECT_EQ(dateiinhalt(b.konto()), konto);
        // The switches arrive all or not at all.
        dateien.ausfallenBei(n);
        const bool gut = schalterSchreiben(dateien, b.global, L"Hasen\\", {});
        Kontodatei datei(b.echteDateien, logikpfad(gruppen / "Hasen" / "KME.ein"));
        EXPECT_TRUE(gleich(datei.lesen(1), 1) == gleich(datei.lesen(100), 1));
        EXPECT_TRUE(!gut || dateien.ausfall() == Vorgang::sonstiger || gleich(datei.lesen(1), 0));
        // Nothing is written through a link.
        dateien.ausfallenBei(0);
        if (!fs::is_symlink(gruppen / "Link"))
            fs::create_directory_symlink(fremd, gruppen / "Link");
        EXPECT_FALSE(schalterSchreiben(dateien, b.global, L"Link\\", {}));
        b.global.AktuelleKlasse = L"Link\\";
        EXPECT_EQ(kontoAnlegen(dateien, b.global, L"Neu"), Kontoanlage::misslungen);
        EXPECT_EQ(std::distance(fs::directory_iterator(fremd), {}), 1);
    }
    AusfallendeDateien dateien;
    Bühne b(&dateien);
    b.kindWählen();
    // Link, sub-folders, list, the account.
    dateien.ausfallenBei(4);
    const Klassenlöschung löschung = klasseLöschen(dateien, b.global, L"Hasen");
    EXPECT_TRUE(löschung.misslungen);
    EXPECT_EQ(löschung.übrig.size(), 1u);
}

TEST_F(Lehrkraft, SwitchesAreSavedWhenTheScreenIsLeft) {
    inDenEinstellungen();
    auto& spiel = b.control<CheckBox>(L"chkÜbung", 3);
    auto& bild = b.control<Picture>(L"Image2", 3);
    EXPECT_EQ(spiel.value(), 1);
    std::vector<std::pair<int, bool>> gesehen;
    b.backend.duringWait = [&](int dauer) { gesehen.emplace_back(dauer, bild.border()); };
    b.user.click(bild);
    EXPECT_EQ(spiel.value(), 0);
    b.user.click(spiel);
    b.user.click(bild);
    b.backend.duringWait = nullptr;
    EXPECT_EQ(gesehen, (std::vector<std::pair<int, bool>>{{50, true}, {50, true}, {50, true}}));
    EXPECT_FALSE(bild.border());
    EXPECT_EQ(spiel.value(), 0);
    EXPECT_EQ(schalter("Hasen"), "11111") << "not before the screen is left";
    menü(L"Hauptmenü");
    EXPECT_EQ(schalter("Hasen"), "11011");
    b.user.click(L"cmd", 3);
    b.user.click(L"chkÜbung", 5);
    b.user.close(rahmen());
    EXPECT_EQ(schalter("Hasen"), "11010");
    Kontodatei datei(b.echteDateien, logikpfad(gruppen() / "Hasen" / "KME.ein"));
    EXPECT_TRUE(gleich(datei.lesen(6), 0) && gleich(datei.lesen(100), 0)) << "as record 5";
    EXPECT_EQ(datei.lesenText(106), L"Text_001.txt");
    b.user.click(L"LblGruppe", 0);
    b.user.pressRow(b.control<FileList>(L"File1"), 0);
    EXPECT_FALSE(b.control<Picture>(L"cmdÜbung", 5).enabled());
}

TEST_F(Lehrkraft, ARenameTakesTheSwitchesAlongAndTouchesNothingElse) {
    const std::string vorlage = dateiinhalt(gruppen() / "kme.ein");
    anlegen(L"Igel");
    const auto umbenennen = [&](const std::wstring& neu) {
        menü(L"Klassen");
        inDenEinstellungen();
        b.user.click(L"chkÜbung", 1);
        b.control<TextBox>(L"txtUmbenennen").setFocus();
        b.user.type(neu + L"\r");
    };
    umbenennen(L"Hirsche mit ß 15");
    EXPECT_TRUE(fs::exists(gruppen() / "Hirsche mit ß 1" / "Mia._"));
    EXPECT_EQ(schalter("Hirsche mit ß 1"), "01111");
    EXPECT_EQ(b.aktiv(), L"einstKlassen");
    EXPECT_EQ(zeile().caption(), L" keine Klasse ausgewählt... ");
    for (const wchar_t* unmöglich : {L"Igel", L"..", L"a/b", L"CON"}) {
        umbenennen(unmöglich);
        EXPECT_EQ(liste(), (std::vector<std::wstring>{L"Hirsche mit ß 1", L"Igel"})) << toUtf8(unmöglich);
        EXPECT_TRUE(b.backend.messages.empty());
    }
    EXPECT_EQ(schalter("Hirsche mit ß 1"), "01111") << "turned four times";
    EXPECT_EQ(schalter("Igel"), "11111");
    // An empty name leaves the screen; a class that is gone is not made again, nor the template written.
    umbenennen(L"");
    EXPECT_EQ(b.aktiv(), L"einstAllgemein");
    fs::remove_all(gruppen() / "Hirsche mit ß 1");
    menü(L"Datenablage");
    EXPECT_FALSE(fs::exists(gruppen() / "Hirsche mit ß 1"));
    EXPECT_EQ(dateiinhalt(gruppen() / "kme.ein"), vorlage);
}

TEST(Schalter, ThatCouldNotBeReadAreNotWritten) {
    AusfallendeDateien dateien;
    Bühne b(&dateien);
    b.kindWählen();
    const auto kme = b.daten() / "Gruppen" / "Hasen" / "KME.ein";
    const std::string vorher = dateiinhalt(kme);
    b.runtime.show(L"einst0");
    b.global.AktuelleKlasse = L"Hasen\\";
    // A link, the folder, the file opened, and then read.
    dateien.ausfallenBei(4);
    b.runtime.show(L"einstAllgemein");
    EXPECT_EQ(dateien.ausfall(), Vorgang::lesen);
    dateien.ausfallenBei(0);
    b.runtime.unload(L"einstAllgemein");
    EXPECT_EQ(dateiinhalt(kme), vorher);
}

TEST_F(Lehrkraft, TheCodeIsChangedByFourCharactersAndAnAdministrator) {
    menü(L"Code");
    EXPECT_EQ(b.caption(L"LblPin"), L"7294");
    auto& neu = b.control<TextBox>(L"textPin");
    const auto übernehmen = [&](const wchar_t* code) {
        neu.setText(L"");
        neu.setFocus();
        b.user.type(code);
        b.user.click(L"cmdPinOk");
        return b.caption(L"LblPin");
    };
    EXPECT_EQ(übernehmen(L"123"), L"7294");
    EXPECT_EQ(neu.text(), L"123");
    EXPECT_EQ(übernehmen(L"12345"), L"1234");
    EXPECT_EQ(b.registry.values["Pin"].bytes, "1234");
    neu.setText(L"");
    neu.setFocus();
    b.user.type(L"5678\r");
    EXPECT_EQ(b.caption(L"LblPin"), L"5678");
    EXPECT_EQ(übernehmen(L"1234"), L"1234");
    EXPECT_TRUE(b.backend.messages.empty());
    b.registry.refuseWrite = true;
    EXPECT_EQ(übernehmen(L"9999"), L"1234");
    std::wstring text = ganz(L"Sie müssen als Administrator");
    text.replace(text.rfind(L"KLOPFMEISE"), 10, L"Klopfmeise");
    erwarteMeldung(b, MessageIcon::information, L"Hinweis", text);
    EXPECT_TRUE(b.backend.quitAsked);
}

} // namespace
} // namespace klopfmeise
