#include "tools/kursdatei.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace klopfmeise {
namespace {

std::string lektion(const std::string& kopf, const std::string& ersteStufe, int weitere = 11) {
    std::string text = kopf + "\n" + ersteStufe;
    for (int i = 0; i < weitere; ++i)
        text += "\nStufe: s\nHinweis: h\nText: t\n";
    return text;
}

const std::string Kopf = "Titel: Die Tasten ü und €\nArt: Einzeiler\nTasten: ü € Umschalt\n";
const std::string KopfFließtext = "Titel: Texte\nArt: Fließtext\nTasten:\n";
const std::string Stufe = "Stufe: eins\nHinweis: Sitz gerade.\nText: üü €€\n";

TEST(Kursdatei, LiestKopfUndStufen) {
    const Kurslektion l = zerlegeKurslektion(lektion(Kopf, Stufe), "x");
    EXPECT_EQ(l.titel, L"Die Tasten ü und €");
    EXPECT_EQ(l.art, ArtEinzeiler);
    EXPECT_EQ(l.tasten, (std::vector<std::wstring>{L"ü", L"€"}));
    EXPECT_TRUE(l.umschalt);
    ASSERT_EQ(l.stufen.size(), 12u);
    EXPECT_EQ(l.stufen[0].titel + l.stufen[0].hinweis + l.stufen[0].text, L"einsSitz gerade.üü €€");
}

TEST(Kursdatei, FügtZeilenDesFließtextsZusammen) {
    const Kurslektion l = zerlegeKurslektion(
        lektion(KopfFließtext, "Stufe: a\nHinweis: b\nText: Der erste\nund der zweite\nTeil.\n"), "x");
    EXPECT_EQ(l.stufen[0].text, L"Der erste und der zweite Teil.");
    EXPECT_TRUE(l.tasten.empty());
    EXPECT_FALSE(l.umschalt);
}

TEST(Kursdatei, NenntDateiUndZeileDesFehlers) {
    const std::pair<std::string, std::string> fälle[] = {
        {"", "x:1: \"Titel:\" erwartet"},
        {lektion("Titel:\nArt: Einzeiler\nTasten:\n", Stufe), "x:1: "},
        {lektion("Titel: a\nArt: Vers\nTasten:\n", Stufe), "x:2: Art"},
        {lektion("Titel: a\nArt: Einzeiler\nTasten: ab\n", Stufe), "x:3: "},
        {lektion("Titel: a\nArt: Einzeiler\nTasten: a  b\n", Stufe), "x:3: "},
        {lektion(Kopf, "\n" + Stufe), "x:5: \"Stufe:\" erwartet"},
        {lektion(Kopf, "Stufe: a\nText: b\n"), "x:6: \"Hinweis:\" erwartet"},
        {lektion(Kopf, "Stufe: a\nHinweis: b\nText: c\nd\n"), "x:8: Leerzeile erwartet"},
        {lektion(KopfFließtext, "Stufe: a\nHinweis: b\nText: c\n d\n"), "x:8: Leerzeichen"},
        {lektion(Kopf, "Stufe: a\nHinweis:  b\nText: c\n"), "x:6: "},
        {lektion(Kopf, "Stufe: a\nHinweis: b\nText: c \n"), "x:7: "},
        {lektion(Kopf, "Stufe: a\r\nHinweis: b\nText: c\n"), "x:5: Steuerzeichen"},
        {lektion(Kopf, "Stufe: \xE4\nHinweis: b\nText: c\n"), "x:5: kein gültiges UTF-8"},
        {lektion(Kopf, "Stufe: \xC0\xAF\nHinweis: b\nText: c\n"), "x:5: kein gültiges UTF-8"},
        {lektion(Kopf, "Stufe: a\xE2\x82\nHinweis: b\nText: c\n"), "x:5: kein gültiges UTF-8"},
        {lektion(Kopf, Stufe, 10), "11 Stufen statt 12"},
        {lektion(Kopf, Stufe, 12), "13 Stufen statt 12"},
    };
    for (const auto& [text, meldung] : fälle)
        try {
            zerlegeKurslektion(text, "x");
            ADD_FAILURE() << "angenommen: " << text;
        } catch (const std::runtime_error& fehler) {
            EXPECT_NE(std::string(fehler.what()).find(meldung), std::string::npos)
                << fehler.what() << " | " << meldung;
        }
    EXPECT_THROW(leseKurslektion("/gibt/es/nicht.txt"), std::runtime_error);
}

} // namespace
} // namespace klopfmeise
