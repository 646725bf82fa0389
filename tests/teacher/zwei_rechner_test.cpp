// Two machines on one data folder, each in the middle of what the other does.

#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/ranges.h"
#include "platform/controls/rich_text_box.h"
#include "store/klassen.h"
#include "tests/ausfallende_dateien.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

#include <set>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

/// A teacher at another machine, in one of the main menu's screens for the class Hasen.
struct Lehrkraftrechner : Bühne {
    Lehrkraftrechner(const Bühne& kind, int schalter) {
        registry.values = kind.registry.values;
        start();
        user.click(L"cmdLehrkraft");
        user.type(L"7294\r");
        user.click(L"LblGruppe", 0);
        user.click(L"cmd", schalter);
    }
};

/// Plays `tun` with the other machine at work before each of its file operations in turn.
template <class Tun>
void vorJedemVorgang(Tun tun) {
    bool bisZumEnde = false;
    for (int n = 1; !bisZumEnde; ++n) {
        SCOPED_TRACE(n);
        ASSERT_LT(n, 300);
        AusfallendeDateien dateien;
        tun(dateien, n);
        bisZumEnde = dateien.ausfall() == Vorgang::keiner;
    }
}

TEST(ZweiRechner, AChildPassesAStageWhileTheTeacherMovesItsSliders) {
    vorJedemVorgang([](AusfallendeDateien& dateien, int n) {
        Bühne kind(&dateien);
        kind.satz(Kontosatz::Durchgangszahl, std::int16_t{1});
        kind.satz(Kontosatz::Zeitmodus, std::int16_t{1});
        kind.satz(Kontosatz::HighBand, 7.0F);
        Lehrkraftrechner lehrkraft(kind, 1);
        lehrkraft.user.pressRow(lehrkraft.control<FileList>(L"File1"), 0);
        kind.öffnen(L"Tastatur0");
        dateien.dazwischen(n, [&] { lehrkraft.user.move(lehrkraft.control<Slider>(L"sldSpeed"), 20); });
        kind.user.type(L" fj f\r");
        const bool früh = dateien.ausfall() != Vorgang::keiner;
        EXPECT_EQ(kind.aktiv(), L"Tastatur0");
        EXPECT_EQ(lehrkraft.aktiv(), L"einstTastatur");
        // What one of them alone writes stays; the place in the course is that of one of them, whole.
        EXPECT_TRUE(gleich(kind.satz(Kontosatz::Tempowert), früh ? 20 : 0));
        EXPECT_TRUE(gleich(kind.satz(Kontosatz::HighBand), 7));
        EXPECT_TRUE(gleich(kind.satz(Kontosatz::Genauigkeit), 100));
        EXPECT_TRUE(gleich(kind.satz(Kontosatz::Lektionsnummer), 1));
        const double stufe = zahlAus(kind.satz(Kontosatz::Stufennummer)).value_or(0);
        EXPECT_TRUE(stufe == 1 || stufe == 2) << stufe;
        lehrkraft.user.click(L"optBalken", 0);
        EXPECT_TRUE(gleich(kind.satz(Kontosatz::Genauigkeit), 100));
    });
}

TEST(ZweiRechner, ATextThatTwoWriteIsAlwaysThatOfOneOfThemAndWhole) {
    vorJedemVorgang([](AusfallendeDateien& dateien, int n) {
        Bühne eine(&dateien);
        const fs::path ordner = eine.daten() / "Data" / "Texte";
        Lehrkraftrechner andere(eine, 2);
        Bühne kind;
        kind.registry.values = eine.registry.values;
        std::set<std::wstring> erlaubt{L"Hallo", L"Hallo!", L"Hallo!?"};
        const auto text = [&] {
            const RtfReading gelesen = readRtf(dateiinhalt(ordner / "Text_001.txt"));
            EXPECT_EQ(gelesen.outcome, RtfOutcome::whole);
            return gelesen.document.plainText();
        };
        eine.start();
        eine.user.click(L"cmdLehrkraft");
        eine.user.type(L"7294\r");
        eine.user.click(L"LblGruppe", 0);
        dateien.dazwischen(n, [&] {
            andere.user.click(L"Text1");
            andere.user.type(L"x");
            erlaubt.insert({L"Hallox", andere.control<RichTextBox>(L"Text1").text()});
            EXPECT_TRUE(erlaubt.contains(text()));
            kind.zurÜbung(2);
            EXPECT_TRUE(erlaubt.contains(kind.control<RichTextBox>(L"Text1").text()));
        });
        eine.user.click(L"cmd", 2);
        erlaubt.insert(eine.control<RichTextBox>(L"Text1").text());
        eine.user.click(L"Text1");
        for (const wchar_t taste : {L'!', L'?'}) {
            eine.user.type(taste);
            erlaubt.insert(eine.control<RichTextBox>(L"Text1").text());
            EXPECT_TRUE(erlaubt.contains(text()));
        }
        EXPECT_EQ(text(), eine.control<RichTextBox>(L"Text1").text()) << "it wrote last";
        EXPECT_EQ(std::distance(fs::directory_iterator(ordner), {}), 1);
        EXPECT_TRUE(eine.backend.messages.empty() && andere.backend.messages.empty());
    });
}

TEST(ZweiRechner, AChildWhoseClassIsRenamedIsToldAndNothingIsMadeUnderTheOldName) {
    vorJedemVorgang([](AusfallendeDateien& dateien, int n) {
        Bühne kind(&dateien);
        kind.satz(Kontosatz::Durchgangszahl, std::int16_t{5});
        const fs::path gruppen = kind.daten() / "Gruppen";
        kind.öffnen(L"Tastatur0");
        const auto umbenennen = [&] {
            EXPECT_TRUE(klasseUmbenennen(kind.echteDateien, kind.global, L"Hasen", L"Igel"));
        };
        dateien.dazwischen(n, umbenennen);
        kind.user.type(L" fj f\rfj f\r");
        if (dateien.ausfall() == Vorgang::keiner) {
            dateien.ausfallenBei(0);
            umbenennen();
        }
        kind.user.type(L"fj f\r");
        ASSERT_EQ(kind.aktiv(), L"Tastatur0");
        EXPECT_TRUE(
            kind.caption(L"lblHinweisName").starts_with(L"Dein Konto kann gerade nicht gelesen werden."));
        kind.user.click(L"imgEnde");
        for (int nummer = 1; nummer <= 5; ++nummer) {
            EXPECT_FALSE(kind.control<Picture>(L"cmdÜbung", nummer).enabled());
            kind.user.click(L"cmdÜbung", nummer);
            EXPECT_EQ(kind.aktiv(), L"Lern1");
        }
        EXPECT_FALSE(fs::exists(gruppen / "Hasen"));
        EXPECT_EQ(std::distance(fs::directory_iterator(gruppen / "Igel"), {}), 2);
        kind.user.click(L"cmdAllesZurück");
        EXPECT_EQ(kind.caption(L"LblGruppe", 0), L"Igel");
    });
}

TEST(ZweiRechner, ATeacherWhoseClassIsRenamedIsToldToo) {
    Bühne b;
    Lehrkraftrechner konten(b, 1);
    Lehrkraftrechner texte(b, 2);
    Lehrkraftrechner allgemein(b, 3);
    konten.user.pressRow(konten.control<FileList>(L"File1"), 0);
    const fs::path gruppen = b.daten() / "Gruppen";
    dateiSchreiben(b.daten() / "Data" / "Texte" / "Zwei.txt", "zwei");
    fs::rename(gruppen / "Hasen", gruppen / "Igel");
    const std::string vorher = dateiinhalt(gruppen / "Igel" / "KME.ein");
    konten.user.move(konten.control<Slider>(L"sldWdh"), 5);
    EXPECT_FALSE(konten.control<Frame>(L"frmEinstellungen").visible());
    EXPECT_EQ(konten.caption(L"lblUnlesbar"), L"Das Konto kann gerade nicht gelesen werden.");
    konten.user.click(L"cmdNeu");
    EXPECT_EQ(konten.caption(L"lblUnlesbar"), L"Der Ordner der Klasse kann gerade nicht gelesen werden.");
    texte.user.choose(*texte.runtime.loaded(L"einst0"), L"Hauptmenü");
    texte.user.click(L"cmd", 2);
    texte.user.pressRow(texte.control<FileList>(L"fileText"), 1);
    EXPECT_EQ(texte.caption(L"lblHinweis"),
              L"Die Auswahl wurde nicht gespeichert: Die Klasse behält ihren Text.");
    allgemein.user.click(L"chkÜbung", 1);
    allgemein.user.choose(*allgemein.runtime.loaded(L"einst0"), L"Klassen");
    EXPECT_EQ(allgemein.caption(L"LblGruppe", 0), L"Igel");
    EXPECT_FALSE(fs::exists(gruppen / "Hasen"));
    EXPECT_EQ(dateiinhalt(gruppen / "Igel" / "KME.ein"), vorher);
}

} // namespace
} // namespace klopfmeise
