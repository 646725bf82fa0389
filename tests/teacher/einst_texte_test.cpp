#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/rich_text_box.h"
#include "platform/controls/text_box.h"
#include "store/einstellungsdatei.h"
#include "tests/ausfallende_dateien.h"
#include "tests/meldungen.h"

#include <map>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

/// The machine's files on a share that takes no whole files and gives none up while `voll`.
class VolleAblage final : public AusfallendeDateien {
public:
    bool writeAll(const std::wstring& path, std::string_view bytes) override {
        return !voll && AusfallendeDateien::writeAll(path, bytes);
    }
    bool removeFile(const std::wstring& path) override {
        return !voll && AusfallendeDateien::removeFile(path);
    }
    bool voll = false;
};

/// The editor as a teacher comes to it, for the class Hasen, which types Text_001.txt.
class EigeneTexte : public ::testing::Test {
protected:
    fs::path text(const char* name) { return b.daten() / "Data" / "Texte" / name; }
    void kommen() {
        b.start();
        b.user.click(L"cmdLehrkraft");
        b.user.type(L"7294\r");
        weiter();
    }
    void weiter() {
        b.user.click(L"LblGruppe", 0);
        b.user.click(L"cmd", 2);
        ASSERT_EQ(b.aktiv(), L"einstTexte");
    }
    void gehen() { b.user.choose(*b.runtime.loaded(L"einst0"), L"Klassen"); }
    FileList& liste() { return b.control<FileList>(L"fileText"); }
    RichTextBox& box() { return b.control<RichTextBox>(L"Text1"); }
    bool sichtbar() { return b.control<Frame>(L"frmText").visible(); }
    void neu(const std::wstring& name) {
        b.user.click(L"cmdNeuerText");
        b.user.type(name + L"\r");
    }
    std::wstring gewählt() {
        b.kindWählen();
        return textnameLesen(b.echteDateien, b.global);
    }
    std::wstring zeichen(const char* name) { return readRtf(dateiinhalt(text(name))).document.plainText(); }
    std::map<std::string, std::string> ordner() {
        std::map<std::string, std::string> inhalt;
        for (const auto& datei : fs::directory_iterator(text("")))
            if (datei.is_regular_file())
                inhalt[datei.path().filename()] = dateiinhalt(datei.path());
        return inhalt;
    }

    VolleAblage dateien;
    Bühne b{&dateien};
};

TEST_F(EigeneTexte, SelectingChoosesATextAndRewritesItInOneLook) {
    dateiSchreiben(text("Text_001.txt"), "{\\rtf1\\qc\\fs60\\b\\i\\ul Gro\\'df\\par\\b0 x}");
    dateiSchreiben(text("Übung.txt"), "ab\ncd");
    kommen();
    EXPECT_EQ(liste().selectedName(), L"Text_001.txt");
    const RtfFormat schlicht{.typeface = L"Courier New", .halfPoints = 20};
    const RtfDocument einfach{{{{{L"Groß", schlicht}}}, {{{L"x", schlicht}}}}};
    EXPECT_EQ(box().document(), einfach);
    EXPECT_EQ(dateiinhalt(text("Text_001.txt")), writeRtf(einfach, schlicht));
    EXPECT_EQ(box().selectionStart(), 7);
    EXPECT_EQ(b.caption(L"LblLänge"), L"Textlänge: 7 Zeichen");
    EXPECT_TRUE(sichtbar());
    b.user.pressRow(liste(), 1);
    EXPECT_EQ(box().text(), L"ab\r\ncd");
    EXPECT_EQ(gewählt(), L"Übung.txt");
    gehen();
    EXPECT_FALSE(b.runtime.loaded(L"einstTexte"));
    // A name that the list does not hold stays the class's until another text is clicked.
    b.kindWählen();
    textnameSchreiben(b.echteDateien, b.global, L"Text_001.TXT");
    const auto vorher = ordner();
    weiter();
    EXPECT_EQ(liste().selected(), -1);
    EXPECT_FALSE(sichtbar());
    EXPECT_EQ(gewählt(), L"Text_001.TXT");
    EXPECT_EQ(ordner(), vorher);
}

TEST_F(EigeneTexte, EveryKeystrokeIsInTheFileAndNoOther) {
    dateiSchreiben(text("Zwei.txt"), "zwei");
    kommen();
    b.user.click(box());
    const auto erwarte = [&](const std::wstring& gesehen) {
        EXPECT_EQ(box().text(), gesehen);
        EXPECT_EQ(zeichen("Text_001.txt"), gesehen);
    };
    for (const auto& [taste, gesehen] : {std::pair{L'!', L"Hallo!"},
                                         {L'\r', L"Hallo!\r\n"},
                                         {L'M', L"Hallo!\r\nM"},
                                         {L'\b', L"Hallo!\r\n"}}) {
        b.user.type(taste);
        erwarte(gesehen);
    }
    b.user.paste(L"\tI\u200Bgel\nHase");
    erwarte(L"Hallo!\r\n\tIgel\r\nHase");
    EXPECT_EQ(b.caption(L"lblHinweis"), L"Nicht alle Zeichen lassen sich tippen: Tabulator");
    box().movedTo(6, 3);
    b.user.strike(46);
    erwarte(L"Hallo!Igel\r\nHase");
    EXPECT_EQ(b.caption(L"lblHinweis"), L"");
    b.user.type(L'é');
    EXPECT_EQ(b.caption(L"lblHinweis"), L"Nicht alle Zeichen lassen sich tippen: é");
    b.user.strike(37);
    b.user.strike(46);
    b.user.strike(46);
    erwarte(L"Hallo!gel\r\nHase");
    b.user.pass(100);
    EXPECT_EQ(b.caption(L"LblLänge"), L"Textlänge: 15 Zeichen");
    EXPECT_EQ(dateiinhalt(text("Zwei.txt")), "zwei");
}

TEST_F(EigeneTexte, ANewTextIsEmptyAndTheClassTypesIt) {
    kommen();
    const std::string alt = dateiinhalt(text("Text_001.txt"));
    neu(L"Füchse");
    EXPECT_EQ(liste().selectedName(), L"Füchse.txt");
    EXPECT_EQ(b.caption(L"LblLänge"), L"Textlänge: 0 Zeichen");
    EXPECT_EQ(gewählt(), L"Füchse.txt");
    // Nothing stands in it yet, but whoever types into it, in another program too, does so in its look.
    std::string bytes = dateiinhalt(text("Füchse.txt"));
    ASSERT_NE(bytes.find("\\par"), bytes.npos);
    bytes.insert(bytes.find("\\par\r"), " x");
    const RtfRun getippt{L"x", {.typeface = L"Courier New", .halfPoints = 20}};
    EXPECT_EQ(readRtf(bytes).document, (RtfDocument{{{{getippt}}}}));
    b.user.type(L"x");
    EXPECT_EQ(box().document(), (RtfDocument{{{{getippt}}}}));
    b.user.type(L"\bneu");
    EXPECT_EQ(zeichen("Füchse.txt"), L"neu");
    EXPECT_EQ(dateiinhalt(text("Text_001.txt")), alt);
    // Files know no case: the name of a text that is there empties that one.
    neu(L"TEXT_001");
    EXPECT_EQ(liste().selectedName(), L"Text_001.txt");
    EXPECT_EQ(zeichen("Text_001.txt") + gewählt(), L"Text_001.txt");
    EXPECT_EQ(zeichen("Füchse.txt"), L"neu");
    EXPECT_EQ(liste().itemCount(), 2);
    neu(L"");
    EXPECT_FALSE(b.control<Frame>(L"frmNeuerText").visible());
    EXPECT_EQ(liste().itemCount(), 2);
    b.user.click(L"cmdNeuerText");
    b.user.type(std::wstring(25, L'a'));
    b.user.click(L"cmdAufgabeOk");
    EXPECT_EQ(gewählt(), std::wstring(21, L'a') + L".txt");
}

TEST_F(EigeneTexte, NoNameAndNoLinkLeadsOutOfTheFolder) {
    const fs::path draußen = b.ordner.pfad() / "geheim.txt";
    dateiSchreiben(draußen, "geheim");
    fs::create_symlink(draußen, text("Link.txt"));
    fs::create_symlink(b.ordner.pfad() / "fehlt.txt", text("Tot.txt"));
    fs::create_directory(text("Ordner.txt"));
    kommen();
    const auto vorher = ordner();
    for (const wchar_t* name :
         {L" ",  L".",     L"..",  L".x",  L"x.",  L"x ",   L"..\\x", L"../x", L"C:x", L"x*",
          L"x?", L"\"x\"", L"<x>", L"x|y", L"con", L"LPT1", L"Ж",     L"Link", L"Tot", L"Ordner"}) {
        neu(name);
        EXPECT_TRUE(ordner() == vorher) << toUtf8(name);
        EXPECT_EQ(box().text() + gewählt(), L"HalloText_001.txt");
        EXPECT_FALSE(b.control<Frame>(L"frmNeuerText").visible());
    }
    EXPECT_FALSE(fs::exists(b.daten() / "Data" / "x.txt"));
    EXPECT_FALSE(fs::exists(b.ordner.pfad() / "fehlt.txt"));
    EXPECT_TRUE(b.backend.messages.empty());

    ASSERT_EQ(liste().item(0), L"Link.txt");
    b.user.pressRow(liste(), 0);
    EXPECT_FALSE(sichtbar());
    EXPECT_TRUE(b.control<Label>(L"lblUnlesbar").visible());
    EXPECT_EQ(gewählt(), L"Text_001.txt");
    b.user.click(L"cmdTextLöschen");
    EXPECT_FALSE(fs::exists(fs::symlink_status(text("Link.txt"))));
    EXPECT_EQ(dateiinhalt(draußen), "geheim");
    EXPECT_EQ(liste().selectedName(), L"Text_001.txt");
}

TEST_F(EigeneTexte, ADeletedTextGoesWithItsCompanionAndTheLastOneStays) {
    dateiSchreiben(text("A.txt"), "eins");
    dateiSchreiben(text("B.txt"), "zwei");
    dateiSchreiben(text("B.tx1"), "begleiter");
    kommen();
    b.user.pressRow(liste(), 1);
    b.user.click(L"cmdTextLöschen");
    EXPECT_FALSE(fs::exists(text("B.txt")) || fs::exists(text("B.tx1")));
    EXPECT_EQ(liste().selectedName() + gewählt(), L"A.txtA.txt");
    EXPECT_EQ(box().text(), L"eins");
    b.user.click(L"cmdTextLöschen");
    EXPECT_TRUE(b.backend.messages.empty());
    b.user.click(L"cmdTextLöschen");
    erwarteMeldung(b, MessageIcon::none, L"Klopfmeise",
                   L"Es muss mindestens ein Text in der Liste der eigenen Texte enthalten sein. Der aktuelle "
                   L"Text kann daher nicht gelöscht werden.");
    EXPECT_TRUE(fs::exists(text("Text_001.txt")));
}

TEST_F(EigeneTexte, WhatCannotBeReadWholeOrChosenIsToldAndNeverWritten) {
    const std::string lang(rtfMaxCharacters + 1, 'a');
    dateiSchreiben(text("Lang.txt"), lang);
    dateiSchreiben(text("Школа.txt"), "a");
    kommen();
    b.user.pressRow(liste(), 0);
    EXPECT_EQ(b.caption(L"lblHinweis"),
              L"Der Text ist zu lang. Er ist hier gekürzt und lässt sich nicht ändern.");
    EXPECT_EQ(gewählt(), L"Lang.txt");
    b.user.click(box());
    b.user.type(L"x");
    EXPECT_EQ(dateiinhalt(text("Lang.txt")), lang);
    neu(L"Kurz");
    b.user.type(L"y");
    EXPECT_EQ(zeichen("Kurz.txt"), L"y");
    // Of a paste that is too long what fits is there, and the rest is told of until the next change.
    b.user.paste(std::wstring(rtfMaxCharacters, L'z'));
    EXPECT_EQ(box().text().size(), rtfMaxCharacters);
    const std::wstring passteNicht =
        L"Ein Text fasst höchstens 100.000 Zeichen. Was nicht hineinpasste, fehlt.";
    EXPECT_EQ(b.caption(L"lblHinweis"), passteNicht);
    b.user.pass(200);
    b.user.strike(37);
    EXPECT_EQ(b.caption(L"lblHinweis"), passteNicht);
    b.user.type(L'\b');
    EXPECT_EQ(b.caption(L"lblHinweis"), L"");
    b.user.type(L"ab");
    EXPECT_EQ(b.caption(L"lblHinweis"), passteNicht);
    EXPECT_EQ(dateiinhalt(text("Lang.txt")), lang);
    b.user.pressRow(liste(), 3);
    EXPECT_EQ(b.caption(L"lblHinweis"),
              L"Die Auswahl wurde nicht gespeichert: Die Klasse behält ihren Text.");
    EXPECT_EQ(gewählt(), L"Kurz.txt");
}

TEST_F(EigeneTexte, WhatCouldNotBeSavedStaysInTheBoxUntilItIs) {
    dateiSchreiben(text("Zwei.txt"), "zwei");
    kommen();
    b.user.click(box());
    dateien.voll = true;
    b.user.type(L"!");
    EXPECT_EQ(b.caption(L"lblHinweis"),
              L"Der Text kann gerade nicht gespeichert werden. Er bleibt hier stehen.");
    const std::wstring bleibt =
        L"Der Text 'Text_001.txt' kann gerade nicht gespeichert werden. Er bleibt geöffnet, damit nichts "
        L"verloren geht.";
    for (const bool liste2 : {true, false}) {
        if (liste2)
            b.user.pressRow(liste(), 1);
        else
            neu(L"Drei");
        erwarteMeldung(b, MessageIcon::stop, L"Hinweis", bleibt);
        EXPECT_EQ(liste().selectedName() + box().text() + gewählt(), L"Text_001.txtHallo!Text_001.txt");
    }
    // Nor is it lost when it cannot be deleted; one message is enough.
    b.user.click(L"cmdTextLöschen");
    erwarteMeldung(b, MessageIcon::stop, L"Hinweis",
                   L"Der Text 'Text_001.txt' konnte nicht gelöscht werden.");
    // The choice of the same text is no reason to load the old one.
    b.user.pressRow(liste(), 0);
    EXPECT_EQ(box().text(), L"Hallo!");
    dateien.voll = false;
    b.user.pass(2000);
    EXPECT_EQ(b.caption(L"lblHinweis"), L"");
    EXPECT_EQ(zeichen("Text_001.txt"), L"Hallo!");

    b.user.click(box());
    dateien.voll = true;
    b.user.type(L"?");
    b.backend.answers = {Answer::yes, Answer::no};
    gehen();
    EXPECT_EQ(b.backend.messages.size(), 2u);
    EXPECT_EQ(b.aktiv(), L"einstKlassen");
    EXPECT_EQ(zeichen("Text_001.txt"), L"Hallo!");
    EXPECT_EQ(zeichen("Zwei.txt"), L"zwei");
}

TEST_F(EigeneTexte, WhateverOperationFailsNoTextIsLost) {
    bool bisZumEnde = false;
    for (int n = 1; !bisZumEnde; ++n) {
        SCOPED_TRACE(n);
        ASSERT_LT(n, 500);
        dateiSchreiben(text("Text_001.txt"), "eins");
        dateiSchreiben(text("Zwei.txt"), "zwei");
        fs::remove(text("Drei.txt"));
        if (b.aktiv().empty())
            kommen();
        else
            weiter();
        dateien.ausfallenBei(n);
        if (liste().selected() < 0)
            b.user.pressRow(liste(), 0);
        b.user.click(box());
        b.user.type(L"!");
        b.user.pressRow(liste(), 1);
        neu(L"Drei");
        b.user.type(L"x");
        b.user.click(L"cmdTextLöschen");
        gehen();
        bisZumEnde = dateien.ausfall() == Vorgang::keiner;
        dateien.ausfallenBei(0);
        gehen();
        b.backend.messages.clear();
        for (const char* name : {"Text_001.txt", "Zwei.txt"})
            if (fs::exists(text(name))) {
                const std::wstring da = zeichen(name);
                EXPECT_TRUE(da.starts_with(name[0] == 'T' ? L"eins" : L"zwei")) << toUtf8(da);
            }
        EXPECT_GE(ordner().size(), 1u);
    }
}

} // namespace
} // namespace klopfmeise
