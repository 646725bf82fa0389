#include "platform/richtext/rtf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace klopfmeise {
namespace {

struct Textfall {
    std::string bytes;
    std::wstring plainText;
};

void prüfe(const std::vector<Textfall>& fälle) {
    for (const Textfall& fall : fälle)
        EXPECT_EQ(readRtf(fall.bytes).plainText(), fall.plainText) << fall.bytes;
}

std::string testdatei(const std::string& name) {
    const std::filesystem::path hier = __FILE__;
    std::ifstream datei(hier.parent_path() / "documents" / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(datei), {}};
}

std::string wiederholt(std::string_view stück, std::size_t anzahl) {
    std::string text;
    text.reserve(stück.size() * anzahl);
    for (std::size_t i = 0; i < anzahl; ++i)
        text += stück;
    return text;
}

TEST(RtfLesen, ZeilenUndAbsätze) {
    prüfe({{"{\\rtf1 a}", L"a"},
           {"{\\rtf1 a\\par}", L"a\r\n"},
           {"{\\rtf1 a\\par b\\par\r\n}\0", L"a\r\nb\r\n"},
           {"{\\rtf1 a\\line b\\\nc\\\r\nd}", L"a\r\nb\r\nc\r\nd"},
           {"{\\rtf1 a\r\nb\nc}", L"abc"},
           {"{\\rtf1 a\\cell b\\cell\\row c\\sect d\\par\\sect e}", L"a\tb\t\r\nc\r\nd\r\ne"},
           {"{\\rtf1}", L""},
           {"{\\rtf1 a}dahinter", L"a"}});
}

TEST(RtfLesen, Zeichen) {
    prüfe({{"{\\rtf1 \\{\\\\\\}\\tab\\~\\_x\\-y\\emdash\\lquote s\\rquote}",
            L"{\\}\t\u00A0-xy\u2014\u2018s\u2019"},
           {"{\\rtf1\\ansi K\\'e4se \xFC \\'80\x80\\'DF\\'81}", L"K\u00E4se \u00FC \u20AC\u20AC\u00DF\x81"},
           {"{\\rtf1 \\u8364?a\\u228\\'e4b\\u-3913 ?\\u916  c}", L"\u20ACa\u00E4b\uF0B7\u0394c"},
           {"{\\rtf1\\uc2 \\u8364 EUa{\\uc0\\u228 b}\\u228\\'c3\\'a4c\\uc1\\u8212\\emdash d}",
            L"\u20ACa\u00E4b\u00E4c\u2014d"},
           {"{\\rtf1 \\u-10179?\\u-8704?a\\uc0 \\u55357\\uc1 \\u56832\\'3f}", L"\U0001F600a\U0001F600"},
           {"{\\rtf1 \\u-10179?a\\u-8704?b\\u-10179?\\u-10179?\\par\\u1114112?}",
            L"\uFFFDa\uFFFDb\uFFFD\uFFFD\r\n\uFFFD"},
           {"{\\rtf1 a\\u8364\\par b\\u8364{c\\u8364}d\\u8364\\b e\\u8364\\\nf}",
            L"a\u20AC\r\nb\u20ACc\u20ACd\u20ACe\u20AC\r\nf"},
           {"{\\rtf1\\uc2 \\u228\\bin1 xya\\u-32768??b}", L"\u00E4a\u8000b"},
           {"{\\rtf1 a\\'0a\\'0d\\u10?\\u0?\\'09b}", L"a\tb"},
           {std::string("{\\rtf1 a\0b\x01\\bin3 }}}\\bin2\\{c}", 29), L"abc"}});
}

TEST(RtfLesen, WasNichtZumTextGehört) {
    prüfe({{"{\\rtf1{\\*\\unbekannt x{y}}{\\info{\\title x}}{\\stylesheet{\\s0 x;}}{\\header x\\par}{\\pict "
            "00ff}a}",
            L"a"},
           {"{\\rtf1{\\fonttbl{\\f0 x;}}{\\colortbl x;}{\\pict\\bin3 }}{}b}", L"b"},
           {"{\\rtf1{\\field{\\*\\fldinst x}{\\fldrslt Link}}{\\listtext 1.\\tab}{\\pntext\\'b7}{\\footnote "
            "x}}",
            L"Link"},
           {"{\\rtf1{\\v\\u-10179?}a}", L"a"},
           {"{\\rtf1 a{\\v x}\\v x\\v0 b{\\deleted x}\\v x\\plain c\\neuesWort17 d\\neu-3e}", L"abcde"}});
}

TEST(RtfLesen, Kaputtes) {
    prüfe({{"{\\rtf1 a{b", L"ab"},
           {"{\\rtf1 a\\", L"a"},
           {"{\\rtf1 a\\'", L"a"},
           {"{\\rtf1 a\\'zzb", L"azzb"},
           {"{\\rtf1 a}b}}", L"a"},
           {"{\\rtf1 a\\bin999999999999 bcd", L"a"},
           {"{\\rtf1 a\\bin-5 b\\uc-1\\u228 c\\u99999999999999999999?d", L"ab\u00E4c\uFFFD?d"},
           {"{\\rtf", L""},
           {"{\\rtf1 " + wiederholt("{\\b ", 100'000) + "a" + wiederholt("}", 100'000) + "b}c", L"ab"}});
    const auto dokument = readRtf("{\\rtf1\\fs99999999999 a\\fs-4\\f-1\\cf-1\\cf99999 b\\f99999 c}");
    ASSERT_EQ(dokument.paragraphs[0].runs.size(), 2U);
    EXPECT_EQ(dokument.paragraphs[0].runs[0].format.halfPoints, 3276);
    EXPECT_EQ(dokument.paragraphs[0].runs[1], (RtfRun{L"bc", {}}));
}

// A cut document keeps what stands before the cut; only the last character or line end may come of a cut
// word.
TEST(RtfLesen, AbgeschnittenesBehältSeinenAnfang) {
    const std::string ganz = testdatei("brief.rtf");
    const std::wstring text = readRtf(ganz).plainText();
    for (std::size_t länge = 5; länge < ganz.size(); ++länge) {
        std::wstring teil = readRtf(std::string_view(ganz).substr(0, länge)).plainText();
        teil.resize(teil.size() - std::min<std::size_t>(teil.size(), 2));
        ASSERT_TRUE(text.starts_with(teil)) << länge;
    }
}

TEST(RtfLesen, Zeichenformate) {
    const auto dokument =
        readRtf("{\\rtf1\\deff1{\\fonttbl{\\f0\\fmodern\\fcharset0 Courier New;}"
                "{\\f1\\fswiss\\fcharset238{\\*\\panose 020b}B\\'fcro CE{\\*\\falt Arial};}{\\f2  Offen }}"
                "{\\colortbl;\\red255\\green0\\blue0;\\red1\\green2\\blue300;}"
                "a\\f0\\fs20\\cf1\\b b{\\b0\\i c\\i0\\uldb\\cf2 d}e\\ul f\\ulnone\\cf0\\plain "
                "g\\f2\\ul\\ul0 h\\f7 i\\b\\b0 j}");
    const RtfFormat rot{L"Courier New", 20, true, false, false, 0xFF0000};
    RtfFormat rotUnterstrichen = rot;
    rotUnterstrichen.underlined = true;
    const std::vector<RtfRun> erwartet{{L"a", {L"B\u00FCro CE"}},
                                       {L"b", rot},
                                       {L"c", {L"Courier New", 20, false, true, false, 0xFF0000}},
                                       {L"d", {L"Courier New", 20, false, false, true, 0x0102FF}},
                                       {L"e", rot},
                                       {L"f", rotUnterstrichen},
                                       {L"g", {L"B\u00FCro CE"}},
                                       {L"h", {L"Offen"}},
                                       {L"ij", {L"B\u00FCro CE"}}};
    ASSERT_EQ(dokument.paragraphs.size(), 1U);
    EXPECT_EQ(dokument.paragraphs[0].runs, erwartet);

    const auto ohneGruppen = readRtf("{\\rtf1{\\fonttbl\\f0\\fnil Arial;\\f1 Courier;}x\\f1 y}");
    EXPECT_EQ(ohneGruppen.paragraphs[0].runs,
              (std::vector<RtfRun>{{L"x", {L"Arial"}}, {L"y", {L"Courier"}}}));
}

TEST(RtfLesen, Ausrichtungen) {
    const auto dokument =
        readRtf("{\\rtf1\\qc a\\par b\\qr\\par\\pard c\\par{\\pard\\qj d\\par}e\\par\\qc f}");
    std::vector<RtfAlignment> gelesen;
    for (const RtfParagraph& absatz : dokument.paragraphs)
        gelesen.push_back(absatz.alignment);
    using enum RtfAlignment;
    EXPECT_EQ(gelesen, (std::vector{center, right, left, justified, left, center}));
}

TEST(RtfLesen, ReinerText) {
    prüfe({{"", L""},
           {"{\\rt a\\par}", L"{\\rt a\\par}"},
           {"Gr\xFC\xDF"
            "e\r\nb\rc\n\nd\t\x80\r\n",
            L"Gr\u00FC\u00DF"
            L"e\r\nb\r\nc\r\n\r\nd\t\u20AC\r\n"},
           {"\xEF\xBB\xBF\xC3\xA4\n\xE2\x82\xAC\xF0\x9F\x98\x80", L"\u00E4\r\n\u20AC\U0001F600"},
           {"\xEF\xBB\xBF\xC3(\xC0\x80\xED\xA0\x80\xF4\x90\x80\x80\xE2\x82",
            L"\uFFFD(\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
           {"\xC3\xA4\x01"
            "b",
            L"\u00C3\u00A4b"},
           {"\xEF\xBB\xBF{\\rtf1 a}", L"a"}});
}

TEST(RtfLesen, GroßesBleibtInGrenzenUndVerliertKeinenText) {
    const std::string lang = "{\\rtf1 " + std::string(17U << 20U, 'a');
    EXPECT_EQ(readRtf(lang).plainText().size(), rtfMaxLength - 7);

    const auto läufe = readRtf("{\\rtf1 " + wiederholt("\\b x\\b0 y", 300'000) + "\\par z}");
    EXPECT_EQ(läufe.plainText().size(), 600'003U);
    EXPECT_LE(läufe.paragraphs[0].runs.size(), 200'000U);

    const auto absätze = readRtf(wiederholt("\n", 600'000));
    EXPECT_EQ(absätze.plainText().size(), 1'200'000U);
    EXPECT_LE(absätze.paragraphs.size(), 500'000U);
}

/// A document of every kind of character and format, in the shape that reading gives.
RtfDocument zufälligesDokument(std::mt19937& zufall) {
    const auto bis = [&zufall](std::size_t n) { return static_cast<std::size_t>(zufall() % (n + 1)); };
    const std::wstring vorrat =
        L"aZ "
        L"09\t\n\\{};'?-"
        L"\u007F\u0080\u0081\u00A0\u00AD\u00E4\u20AC\u03BB\u2028\uD7FF\uE000\uFFFD\U00010000\U0010FFFF";
    const std::wstring namen[] = {L"", L"Courier New", L"Gr\u00FC\u00DF; {Schrift} \u03BB"};
    RtfDocument dokument;
    for (std::size_t a = bis(5) + 1; a > 0; --a) {
        RtfParagraph absatz{{}, static_cast<RtfAlignment>(bis(3))};
        for (std::size_t l = bis(4); l > 0; --l) {
            RtfRun lauf{{},
                        {namen[bis(2)], static_cast<int>(bis(3274)) + 2, bis(1) == 1, bis(1) == 1,
                         bis(1) == 1,
                         static_cast<std::uint32_t>(bis(0xFFFFFF)) & (bis(1) == 1 ? 0xFFFFFFU : 0U)}};
            for (std::size_t z = bis(9) + 1; z > 0; --z)
                lauf.text += vorrat[bis(vorrat.size() - 1)];
            if (absatz.runs.empty() || absatz.runs.back().format != lauf.format)
                absatz.runs.push_back(std::move(lauf));
        }
        dokument.paragraphs.push_back(std::move(absatz));
    }
    return dokument;
}

TEST(RtfSchreiben, GeschriebenesLiestSichWiederGleich) {
    std::mt19937 zufall(20240607);
    for (int i = 0; i < 2000; ++i) {
        const RtfDocument dokument = zufälligesDokument(zufall);
        const std::string bytes = writeRtf(dokument);
        ASSERT_EQ(readRtf(bytes), dokument) << bytes;
        ASSERT_TRUE(std::ranges::all_of(
            bytes, [](char c) { return c == '\r' || c == '\n' || (c >= ' ' && c < 0x7F); }));
    }
    const RtfDocument leer{{{}}};
    EXPECT_EQ(readRtf(writeRtf(leer)), leer);
    EXPECT_EQ(readRtf(writeRtf({})), leer);
}

TEST(RtfSchreiben, UntauglichesVerdirbtDasÜbrigeNicht) {
    const RtfRun lauf{
        {L'a', L'\r', L'\x01', static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0x110000), L'b'},
        {L"", 0, false, false, false, 0xFF123456}};
    const auto gelesen = readRtf(writeRtf({{{{lauf, {L"", {}}, lauf, lauf}}}}));
    EXPECT_EQ(gelesen.plainText(), L"a??ba??ba??b");
    ASSERT_EQ(gelesen.paragraphs[0].runs.size(), 1U);
    EXPECT_EQ(gelesen.paragraphs[0].runs[0].format, (RtfFormat{L"", 2, false, false, false, 0x123456}));
}

TEST(RtfKlartext, HinUndZurück) {
    for (const std::wstring text : {L"", L"a", L"a\r\n", L"\r\n\r\na\tb \u20AC\r\n\r\n"}) {
        EXPECT_EQ(documentFromPlainText(text).plainText(), text);
        EXPECT_EQ(readRtf(writeRtf(documentFromPlainText(text))).plainText(), text);
    }
    EXPECT_EQ(documentFromPlainText(L"a\nb\rc\n\rd\x02").plainText(), L"a\r\nb\r\nc\r\n\r\nd");
}

// Both documents were written by a word processor.
TEST(RtfLesen, BriefAusDerTextverarbeitung) {
    const auto brief = readRtf(testdatei("brief.rtf"));
    EXPECT_EQ(brief.plainText(),
              L"Gr\u00FC\u00DF"
              L"e aus K\u00F6ln\r\n"
              L"K\u00E4se, \u00D6l & Brot:\t3,50 \u20AC rot und schr\u00E4g \U0001F600\r\n\r\n\r\n"
              L"Zeile eins\r\nZeile zwei {Klammer} \\ Strich \u201Eso\u201C \u2013 \u00DF\r\n");
    ASSERT_EQ(brief.paragraphs.size(), 6U);
    const auto& titel = brief.paragraphs[0];
    EXPECT_EQ(titel.alignment, RtfAlignment::center);
    ASSERT_EQ(titel.runs.size(), 1U);
    EXPECT_EQ(titel.runs[0].format, (RtfFormat{L"Arial", 32, true, false, false, 0}));
    const auto& käse = brief.paragraphs[1];
    EXPECT_EQ(käse.alignment, RtfAlignment::left);
    ASSERT_EQ(käse.runs.size(), 5U);
    EXPECT_EQ(käse.runs[1], (RtfRun{L"rot", {L"Courier New", 24, false, false, false, 0xFF0000}}));
    EXPECT_EQ(käse.runs[3].format, (RtfFormat{L"Courier New", 24, false, true, false, 0x0000C8}));
    EXPECT_TRUE(brief.paragraphs[2].runs.empty());
    EXPECT_EQ(brief.paragraphs[4].alignment, RtfAlignment::right);
    EXPECT_TRUE(brief.paragraphs[4].runs[0].format.underlined);
}

TEST(RtfLesen, ListeTabelleFußnoteAusDerTextverarbeitung) {
    const auto liste = readRtf(testdatei("liste.rtf"));
    EXPECT_EQ(liste.plainText(),
              L"Einkauf\r\n\u00C4pfel\r\nM\u00F6hren\r\nMontag\tM\u00FCsli\t\r\n"
              L"Mehr steht in der Fu\u00DFnote, und \u0395\u03BB\u03BB\u03AC\u03B4\u03B1 auch.\r\n");
    EXPECT_EQ(liste.paragraphs[4].alignment, RtfAlignment::justified);
}

} // namespace
} // namespace klopfmeise
