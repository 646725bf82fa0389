#include "store/lektionsdatei.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Lektionsdatei, FindsTheStageByItsWholeMarker) {
    const std::string datei = "12\r\nEinzeiler\r\nGr\xFC\xDF"
                              "e\r\nUnterstufe12\r\nzw\xF6lf\r\ntext12\r\nhinweis12\r\nnebenher\r\n"
                              "Unterstufe1\r\neins\r\nfff jjj\r\nhinweis1";
    const Lektion eins = lektionAus(datei, 1);
    ASSERT_TRUE(eins.vollständig());
    EXPECT_TRUE(eins.einzeiler());
    EXPECT_EQ(eins.Lektionstitel, L"Grüße");
    EXPECT_EQ(eins.stufe->Stufentext, L"fff jjj");
    EXPECT_EQ(eins.stufe->Stufenhinweis, L"hinweis1");
    EXPECT_EQ(lektionAus(datei, 12).stufe->Stufentitel, L"zwölf");
    EXPECT_FALSE(lektionAus(datei, 2).vollständig());
}

TEST(Lektionsdatei, BrokenFilesTellWhatTheyHave) {
    EXPECT_FALSE(lektionAus("", 1).vollständig());
    EXPECT_FALSE(lektionAus("2\r\nEinzeiler \r\n", 1).einzeiler());
    for (const char* zahl : {"zwei", "0", "-3", "1e9", "2.5", "99999999999999999999", ""}) {
        const Lektion lektion =
            lektionAus(std::string(zahl) + "\r\nEinzeiler\r\nT\r\nUnterstufe1\r\na\r\nb\r\nc\r\n", 1);
        EXPECT_FALSE(lektion.vollständig()) << zahl;
        EXPECT_EQ(lektion.Lektionstitel, L"T") << zahl;
    }
    EXPECT_FALSE(lektionAus("1\nEinzeiler\nT\nUnterstufe1\na\nb", 1).stufe);
    EXPECT_FALSE(lektionAus("1\nEinzeiler\nT\nUnterstufe1\na\n\nc\n", 1).stufe);
    EXPECT_TRUE(lektionAus("1\nEinzeiler\nT\nUnterstufe1\na\nb\nc", 1).stufe);
}

} // namespace
} // namespace klopfmeise
