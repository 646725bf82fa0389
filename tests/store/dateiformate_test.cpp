#include "store/lektionsdatei.h"
#include "tests/probe.h"

#include <random>

namespace klopfmeise {
namespace {

TEST(Wert, EachTagReadsAndWritesItsBytesAndWhatIsUnknownOrCutOffReadsAsEmpty) {
    for (const auto& [bytes, wert] : {std::pair<std::string, Wert>{"\x02\x00\xFB\xFF"s, std::int16_t{-5}},
                                      {"\x03\x00\x40\x9C\x00\x00"s, std::int32_t{40000}},
                                      {"\x04\x00\x00\x00\x20\x41"s, 10.0F},
                                      {"\x05\x00\x00\x00\x00\x00\x00\xC0\x52\x40"s, 75.0},
                                      {"\x08\x00\x03\x00\x31\x32\xE4"s, L"12ä"s},
                                      {"\x00\x00"s, Wert{}}}) {
        EXPECT_EQ(wertAus(bytes + "Rest"), wert);
        EXPECT_EQ(bytesAus(wert, 128), bytes);
        for (std::size_t länge = 0; länge < bytes.size(); ++länge)
            EXPECT_TRUE(istLeer(wertAus(bytes.substr(0, länge))));
    }
    for (const std::string& bytes : {"\x07\x00\x01\x02"s, "\x08\x00\xFF\xFF"s, "\xFF\xFF\x01\x02\x03\x04"s})
        EXPECT_TRUE(istLeer(wertAus(bytes)));
}

TEST(Wert, ComparesByWhatItSays) {
    EXPECT_TRUE(gleich(Wert{}, 0) && gleich(Wert{}, L""));
    EXPECT_TRUE(gleich(Wert{L"120"s}, 120) && gleich(Wert{L" 1,5 "s}, 1.5));
    EXPECT_FALSE(gleich(Wert{L"zwölf"s}, 12) || gleich(Wert{L""s}, 0) || gleich(Wert{std::int16_t{0}}, L""));
    EXPECT_TRUE(gleich(oderNull(Wert{std::nan("")}), 0));
    EXPECT_EQ(textAus(Wert{0.1F}, L','), L"0,1");
    EXPECT_EQ(textAus(Wert{98.5}, L','), L"98,5");
    EXPECT_EQ(ganzzahl(-32768), Wert{std::int16_t{-32768}});
}

TEST(Kontodateien, WriteOneSlotAndLeaveTheOthersByteForByte) {
    const Wegwerfordner ordner;
    PosixFiles dateien;
    const fs::path konto = ordner.pfad() / "Mia._";
    const std::wstring pfad = logikpfad(konto);
    std::string vorher(1000, '\0');
    std::mt19937 zufall(3);
    for (char& c : vorher)
        c = static_cast<char>(zufall());
    dateiSchreiben(konto, vorher);
    Kontodatei(dateien, pfad).schreiben(3, 98.5);
    // Longer than its slot: cut to it.
    Kontodatei(dateien, pfad).schreiben(1, std::wstring(500, L'x'));
    const std::string nachher = dateiinhalt(konto);
    vorher.replace(256, 10, bytesAus(98.5, 128));
    EXPECT_EQ(nachher.substr(128), vorher.substr(128));
    EXPECT_EQ(nachher.substr(120, 8), "xxxxxxxx");
    EXPECT_EQ(Kontodatei(dateien, pfad).lesenText(106), L"");
    EXPECT_TRUE(Kontodatei(dateien, pfad).schreibenText(106, L"Übung für Grüße.txt"));
    EXPECT_EQ(Kontodatei(dateien, pfad).lesenText(106), L"Übung für Grüße.txt");
}

TEST(Lektionsdatei, FindsTheStageByItsWholeMarker) {
    const std::string datei = "12\r\nEinzeiler\r\nGr\xFC\xDF"
                              "e\r\nUnterstufe12\r\nzw\xF6lf\r\ntext12\r\nhinweis12\r\nnebenher\r\n"
                              "Unterstufe1\r\neins\r\nfff jjj\r\nhinweis1";
    const Lektion eins = lektionAus(datei, 1);
    ASSERT_TRUE(eins.vollständig() && eins.einzeiler());
    EXPECT_EQ(eins.Lektionstitel, L"Grüße");
    EXPECT_EQ(eins.stufe->Stufentext, L"fff jjj");
    EXPECT_EQ(eins.stufe->Stufenhinweis, L"hinweis1");
    EXPECT_EQ(lektionAus(datei, 12).stufe->Stufentitel, L"zwölf");
    EXPECT_FALSE(lektionAus(datei, 2).vollständig());
}

TEST(Lektionsdatei, BrokenFilesTellWhatTheyHave) {
    EXPECT_FALSE(lektionAus("", 1).vollständig());
    EXPECT_FALSE(lektionAus("2\r\nEinzeiler \r\n", 1).einzeiler());
    for (const char* zahl : {"zwei", "0", "-3", "1e9", "2.5", ""}) {
        const Lektion lektion =
            lektionAus(std::string(zahl) + "\r\nEinzeiler\r\nT\r\nUnterstufe1\r\na\r\nb\r\nc\r\n", 1);
        EXPECT_FALSE(lektion.vollständig()) << zahl;
        EXPECT_EQ(lektion.Lektionstitel, L"T") << zahl;
    }
    for (const auto& [rest, da] : {std::pair("b", false), {"\nc\n", false}, {"b\nc", true}})
        EXPECT_EQ(lektionAus("1\nEinzeiler\nT\nUnterstufe1\na\n"s + rest, 1).stufe.has_value(), da) << rest;
}

} // namespace
} // namespace klopfmeise
