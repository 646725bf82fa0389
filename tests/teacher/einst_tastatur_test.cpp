#include "platform/controls/button.h"
#include "platform/controls/checks.h"
#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/ranges.h"
#include "platform/controls/text_box.h"
#include "store/dateinamen.h"
#include "store/konten.h"
#include "tests/ausfallende_dateien.h"
#include "tests/meldungen.h"

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

/// The account screen of the class Hasen, as the main menu opens it.
class Kurskonten : public ::testing::Test {
protected:
    explicit Kurskonten(Files* dateien = nullptr)
        : b(dateien) {
        b.start();
        b.user.click(L"cmdLehrkraft");
        b.user.type(L"7294\r");
        b.user.click(L"LblGruppe", 0);
        b.user.click(L"cmd", 1);
    }
    fs::path datei(const std::string& name) { return b.daten() / "Gruppen" / "Hasen" / (name + "._"); }
    FileList& liste() { return b.control<FileList>(L"File1"); }
    Slider& schieber(std::wstring_view name) { return b.control<Slider>(name); }
    int option(std::wstring_view name, int i) { return b.control<OptionButton>(name, i).value(); }
    bool sichtbar(std::wstring_view name) { return b.runtime.active()->find(name)->visible(); }
    void wählen(const std::wstring& name) {
        for (int i = 0; i < liste().itemCount(); ++i)
            if (liste().item(i) == name + L"._")
                b.user.pressRow(liste(), i);
    }
    /// Makes a child of the chosen class with these parameters, without the screen.
    void kind(const std::wstring& name, const Kursparameter& werte) {
        Globale global = b.global;
        global.AktuellesKonto = name;
        kontoAnlegen(b.echteDateien, global, name);
        kursparameterSchreiben(b.echteDateien, global, werte);
        liste().refresh();
    }
    std::wstring zahlen() { return b.captions({L"LblLektion", L"lblStufe", L"lblWdh", L"lblSpeed"}); }

    Bühne b;
};

TEST_F(Kurskonten, ANewAccountIsSelectedAndShowsItsDefaults) {
    EXPECT_EQ(b.aktiv(), L"einstTastatur");
    EXPECT_FALSE(sichtbar(L"frmEinstellungen"));
    b.user.click(L"cmdNeu");
    EXPECT_FALSE(sichtbar(L"cmdNeu"));
    b.user.type(L"Äß./'_\u00E9\u20AC- 7\rOle\r");
    EXPECT_EQ(b.control<TextBox>(L"Text1").text(), L"");
    EXPECT_EQ(liste().selectedName(), L"Ole._");
    EXPECT_EQ(b.global.AktuellesKonto, L"Ole");
    EXPECT_EQ(dateiinhalt(datei("Ä_- 7")), dateiinhalt(b.konto()));
    EXPECT_TRUE(sichtbar(L"frmNeuesKind"));
    b.user.type(L"\r");
    EXPECT_FALSE(sichtbar(L"frmNeuesKind"));
    EXPECT_TRUE(sichtbar(L"cmdNeu") && sichtbar(L"cmdLöschen"));
    EXPECT_TRUE(sichtbar(L"frmEinstellungen"));
    EXPECT_EQ(zahlen(), L"1|1|3|1");
    for (const wchar_t* gruppe : {L"optVorlage", L"optDurchgang", L"optBalken"})
        EXPECT_EQ(std::pair(option(gruppe, 0), option(gruppe, 1)), std::pair(1, 0));
    EXPECT_FALSE(sichtbar(L"frmZeit"));
    EXPECT_EQ(b.caption(L"lblLektionTitel") + b.caption(L"lblStufeTitel"), L"ProbelektionTitel 1");
    EXPECT_EQ(b.control<TextBox>(L"txtStufeText").text(), L"fj f");
    EXPECT_EQ(schieber(L"sldStufe").max(), 2);
}

TEST_F(Kurskonten, ThirtyNamesAreTypedOneAfterTheOtherAndOneThatIsThereChangesNothing) {
    b.user.click(L"cmdNeu");
    std::string vorher;
    for (int i = 1; i <= 30; ++i) {
        b.user.type(L"Kind " + std::to_wstring(i) + L"\r");
        if (i != 20)
            continue;
        // A name that is there stays in the box until the next one is typed.
        vorher = dateiinhalt(datei("Kind 7"));
        b.user.type(L"Kind 7\r");
        EXPECT_EQ(b.control<TextBox>(L"Text1").text(), L"Kind 7");
    }
    EXPECT_EQ(liste().itemCount(), 31);
    b.user.type(L"Kind 7");
    b.user.click(L"cmdText1Ok");
    EXPECT_EQ(b.control<TextBox>(L"Text1").text(), L"Kind 7");
    EXPECT_FALSE(sichtbar(L"frmNeuesKind"));
    EXPECT_EQ(dateiinhalt(datei("Kind 7")), vorher);
    // The parameters and the account view stay those of the child that is selected.
    b.user.click(L"cmdKonto");
    EXPECT_EQ(b.global.AktuellesKonto, L"Kind 30");
    EXPECT_EQ(b.aktiv(), L"Konto");
    EXPECT_TRUE(b.backend.messages.empty());
    b.user.activate(*b.runtime.loaded(L"einstTastatur"));
    EXPECT_EQ(liste().selectedName(), L"Kind 30._");
    b.user.click(L"cmdNeu");
    b.user.type(L"Con");
    b.user.click(L"cmdText1Ok");
    erwarteMeldung(b, MessageIcon::stop, L"Konto kann nicht angelegt werden!", namensregeln);
    EXPECT_TRUE(sichtbar(L"frmNeuesKind"));
    b.user.type(L"\b\b\b");
    b.user.type(L"ABCDEFGHIJKLMNOPQRSTUVWXYZ\r");
    EXPECT_TRUE(fs::exists(datei("ABCDEFGHIJKLMNOPQRST")));
}

TEST_F(Kurskonten, FromLessonTwelveToThreeAndBackEachChildKeepsItsOwn) {
    b.lektion(12, "Fließtext", {"a", "b", "c", "d", "e", "f", "g", "h", "i"});
    b.lektion(3, "Einzeiler", {"k", "l"});
    kind(L"Ada", {.Fehlerstopp = 1,
                  .Zeitmodus = 1,
                  .Lektionsnummer = 12,
                  .Stufennummer = 9,
                  .Durchgangszahl = 5,
                  .Tempowert = 15});
    kind(L"Bea", {.Vorlagemodus = 1, .Zeitmodus = 1, .Lektionsnummer = 3, .Stufennummer = 2});
    const std::pair vorher(dateiinhalt(datei("Ada")), dateiinhalt(datei("Bea")));
    for (int i = 0; i < 2; ++i) {
        wählen(L"Ada");
        EXPECT_EQ(zahlen(), L"12|9|5|1,5");
        EXPECT_TRUE(sichtbar(L"frmZeit"));
        wählen(L"Bea");
        EXPECT_EQ(zahlen(), L"3|2|1|1");
        EXPECT_EQ(option(L"optVorlage", 1), 1);
        EXPECT_EQ(option(L"optDurchgang", 1), 0);
        liste().setFocus();
        b.user.strike(38);
        EXPECT_EQ(liste().selectedName(), L"Ada._");
    }
    b.user.pass(500);
    EXPECT_EQ(std::pair(dateiinhalt(datei("Ada")), dateiinhalt(datei("Bea"))), vorher);
    // What is pressed for one is not taken along to the other, by whatever control.
    for (const auto& [name, wert] : {std::pair(L"sldLektion", 12), std::pair(L"sldStufe", 1),
                                     std::pair(L"sldWdh", 2), std::pair(L"sldSpeed", 30)}) {
        wählen(L"Bea");
        b.user.move(schieber(name), wert);
        wählen(L"Ada");
    }
    for (const wchar_t* name : {L"optVorlage", L"optDurchgang", L"optBalken"})
        for (const int i : {1, 0}) {
            wählen(L"Bea");
            b.user.click(name, i);
            wählen(L"Ada");
        }
    EXPECT_EQ(dateiinhalt(datei("Ada")), vorher.first);
    wählen(L"Bea");
    EXPECT_EQ(zahlen(), L"12|1|2|3");
}

TEST_F(Kurskonten, EachMoveWritesAllSevenAndNothingElse) {
    b.satz(Kontosatz::Genauigkeit, 98.5);
    wählen(L"Mia");
    const std::string vorher = dateiinhalt(b.konto());
    b.user.click(L"optBalken", 1);
    b.user.pass(50);
    EXPECT_TRUE(sichtbar(L"frmZeit"));
    EXPECT_EQ(b.satz(Kontosatz::Zeitmodus), Wert(std::int16_t{1}));
    schieber(L"sldSpeed").setFocus();
    b.user.strike(34); // down by the large step: 10 to 5
    b.user.strike(39);
    EXPECT_EQ(b.caption(L"lblSpeed"), L"0,6");
    for (const auto& [satz, wert] :
         {std::pair(Kontosatz::Lektionsnummer, 1), std::pair(Kontosatz::Stufennummer, 1),
          std::pair(Kontosatz::Durchgangszahl, 3), std::pair(Kontosatz::Tempowert, 6)})
        EXPECT_EQ(b.satz(satz), Wert(std::int32_t{wert}));
    const std::string nachher = dateiinhalt(b.konto());
    EXPECT_EQ(nachher.substr(0, 28 * 128), vorher.substr(0, 28 * 128));
    EXPECT_EQ(nachher.substr(35 * 128), vorher.substr(35 * 128));
    b.user.move(schieber(L"sldStufe"), 2);
    EXPECT_EQ(b.control<TextBox>(L"txtStufeText").text(), L"ff jj");
    // A lesson without a file keeps the titles and the child's stage.
    b.user.move(schieber(L"sldLektion"), 7);
    EXPECT_EQ(zahlen(), L"7|2|3|0,6");
    EXPECT_EQ(b.caption(L"lblStufeTitel"), L"Titel 2");
    b.user.move(schieber(L"sldStufe"), 12);
    b.user.click(L"imgAbbildung");
    EXPECT_EQ(b.runtime.active()->caption(), L"Lektion 7");
    EXPECT_FALSE(b.control<Frame>(L"frmArchiv").visible());
    EXPECT_EQ(b.sound.played.back(), L"knopf.wav");
    b.user.activate(*b.runtime.loaded(L"einstTastatur"));
    // A lesson with fewer stages clips; the record follows with the next move.
    b.user.move(schieber(L"sldLektion"), 1);
    EXPECT_EQ(zahlen() + L"|" + b.caption(L"lblStufeTitel"), L"1|2|3|0,6|Titel 2");
    EXPECT_EQ(b.satz(Kontosatz::Stufennummer), Wert(std::int32_t{12}));
    b.user.move(schieber(L"sldWdh"), 4);
    EXPECT_EQ(b.satz(Kontosatz::Stufennummer), Wert(std::int32_t{2}));
}

TEST_F(Kurskonten, OnlyYesDeletesAndAskedIsForASelectionAlone) {
    b.user.click(L"cmdLöschen");
    EXPECT_TRUE(b.backend.messages.empty());
    wählen(L"Mia");
    for (const Answer antwort : {Answer::no, Answer::cancel}) {
        b.backend.answers = {antwort};
        b.user.click(L"cmdLöschen");
        EXPECT_TRUE(fs::exists(b.konto()));
    }
    dateiSchreiben(b.konto().parent_path() / "Mia" / "alt.txt", "x");
    b.backend.messages.clear();
    b.backend.answers = {Answer::yes};
    b.user.click(L"cmdLöschen");
    ASSERT_EQ(b.backend.messages.size(), 1u);
    EXPECT_EQ(b.backend.messages[0].title, L"Kinderkonto löschen?");
    EXPECT_EQ(b.backend.messages[0].text, L"Soll das Konto von 'Mia' wirklich gelöscht werden?");
    EXPECT_EQ(b.backend.messages[0].buttons, MessageButtons::yesNoCancel);
    EXPECT_FALSE(fs::exists(b.konto()) || fs::exists(b.konto().parent_path() / "Mia" / "alt.txt"));
    EXPECT_EQ(liste().itemCount(), 0);
    EXPECT_FALSE(sichtbar(L"frmEinstellungen"));
}

TEST_F(Kurskonten, AnAccountThatCannotBeReadIsNotWrittenAndAnotherWindowEndsTheScreen) {
    wählen(L"Mia");
    fs::remove(b.konto());
    b.user.move(schieber(L"sldWdh"), 5);
    EXPECT_FALSE(fs::exists(b.konto())) << "a deleted child comes back";
    EXPECT_FALSE(sichtbar(L"frmEinstellungen"));
    EXPECT_TRUE(sichtbar(L"lblUnlesbar"));
    b.user.move(schieber(L"sldWdh"), 4);
    b.user.click(L"cmdNeu");
    EXPECT_FALSE(sichtbar(L"lblUnlesbar")) << "the message is about a child that is no longer listed";
    b.user.choose(*b.runtime.loaded(L"einst0"), L"Hauptmenü");
    EXPECT_FALSE(b.runtime.loaded(L"einstTastatur"));
}

struct Ausfall {
    AusfallendeDateien dateien;
};
class KurskontenMitAusfall : protected Ausfall, public Kurskonten {
protected:
    KurskontenMitAusfall()
        : Kurskonten(&dateien) {}
};

TEST_F(KurskontenMitAusfall, WhateverFailsNothingIsSavedThatWasNotReadAndTheUserIsTold) {
    for (int n = 1;; ++n) {
        SCOPED_TRACE(n);
        const Kursparameter werte{.Zeitmodus = 1, .Lektionsnummer = 12, .Stufennummer = 4, .Tempowert = 7};
        dateien.ausfallenBei(0);
        kind(L"Ada", werte);
        wählen(L"Mia");
        dateien.ausfallenBei(n);
        wählen(L"Ada");
        b.user.move(schieber(L"sldWdh"), 2);
        const Vorgang gestört = dateien.ausfall();
        dateien.ausfallenBei(0);
        Globale global = b.global;
        global.AktuellesKonto = L"Ada";
        Kursparameter nachher = *kursparameterLesen(dateien, global);
        const bool gezeigt = sichtbar(L"frmEinstellungen");
        // What fails at the closing has been written.
        const bool gespeichert = nachher.Durchgangszahl == 2 && gestört != Vorgang::schließen;
        EXPECT_EQ(sichtbar(L"lblUnlesbar"), !gezeigt);
        EXPECT_TRUE(!gezeigt || sichtbar(L"lblUngespeichert") == !gespeichert);
        nachher.Durchgangszahl = 1;
        EXPECT_EQ(nachher, werte);
        if (gestört == Vorgang::keiner)
            break;
    }
    dateien.ausfallenBei(0);
    wählen(L"Mia");
    b.backend.answers = {Answer::yes};
    dateien.ausfallenBei(1);
    b.user.click(L"cmdLöschen");
    b.backend.messages.erase(b.backend.messages.begin());
    erwarteMeldung(b, MessageIcon::stop, L"Hinweis",
                   L"Das Konto von 'Mia' konnte nicht gelöscht werden. Es ist noch da.");
    EXPECT_TRUE(fs::exists(b.konto()));
    dateiSchreiben(b.konto().parent_path() / "Mia" / "alt.txt", "x");
    dateien.ausfallenBei(0);
    wählen(L"Mia");
    b.backend.answers = {Answer::yes};
    dateien.ausfallenBei(4);
    b.user.click(L"cmdLöschen");
    b.backend.messages.erase(b.backend.messages.begin());
    erwarteMeldung(b, MessageIcon::stop, L"Hinweis",
                   L"Das Konto von 'Mia' ist gelöscht, aber im Ordner des Kindes sind noch da: alt.txt.");
}

} // namespace
} // namespace klopfmeise
