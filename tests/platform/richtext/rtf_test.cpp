#include "platform/richtext/rtf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>

namespace klopfmeise {
namespace {

RtfDocument read(std::string_view bytes) { return readRtf(bytes).document; }

struct TextCase {
    std::string bytes;
    std::wstring plainText;
};

void expectTexts(const std::vector<TextCase>& cases) {
    for (const TextCase& each : cases)
        EXPECT_EQ(read(each.bytes).plainText(), each.plainText) << each.bytes;
}

std::string testDocument(const std::string& name) {
    const std::filesystem::path here = __FILE__;
    std::ifstream file(here.parent_path() / "documents" / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string repeated(std::string_view piece, std::size_t count) {
    std::string text;
    text.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

TEST(RtfReading, LinesAndParagraphs) {
    expectTexts(
        {{"{\\rtf1 a}", L"a"},
         {"{\\rtf1 a\\par b}", L"a\r\nb"},
         {"{\\rtf1 a\\line b\\line}", L"a\r\nb\r\n"},
         {"{\\rtf1 a\\line b\\\nc\\\r\nd}", L"a\r\nb\r\nc\r\nd"},
         {"{\\rtf1 a\r\nb\nc}", L"abc"},
         {"{\\rtf1 a\\cell b\\cell\\row c\\sect d\\par\\sect e}", L"a\tb\t\r\nc\r\nd\r\ne"},
         {"{\\rtf1 a\\nestcell b\\nestcell{\\*\\nesttableprops\\trowd x\\nestrow}"
          "{\\nonesttables\\par}c\\nestcell{\\*\\nesttableprops\\nestrow}d\\cell\\row e}",
          L"a\tb\t\r\nc\t\r\nd\t\r\ne"},
         {"{\\rtf1{\\header{\\*\\nesttableprops\\nestrow}}{\\*\\neu{\\nesttableprops\\nestrow}}a}", L"a"},
         {"{\\rtf1}", L""},
         {"{\\rtf1 a}dahinter", L"a"}});
}

// Rich-text boxes and word processors end the last paragraph too, and drop that end on loading.
TEST(RtfReading, TheEndOfTheLastParagraphOpensNoFurtherOne) {
    expectTexts({{"{\\rtf1 a\\par b\\par }", L"a\r\nb"},
                 {"{\\rtf1 a\\par\r\n}\r\n", L"a"},
                 {"{\\rtf1 a\\par{\\b\\v x}\\pard\\plain}", L"a"},
                 {"{\\rtf1 a\\par\\par}", L"a\r\n"},
                 {"{\\rtf1 a\\par\\par\\par}", L"a\r\n\r\n"},
                 {"{\\rtf1\\par}", L""},
                 {"{\\rtf1\\par\\par}", L"\r\n"},
                 {"{\\rtf1 a\\cell\\row}", L"a\t"},
                 {"{\\rtf1 a\\sect}", L"a"}});
    EXPECT_EQ(read("{\\rtf1\\qr a\\par\\qc}").paragraphs,
              (std::vector<RtfParagraph>{{{{L"a", {}}}, RtfAlignment::right}}));
}

TEST(RtfReading, Characters) {
    expectTexts(
        {{"{\\rtf1 \\{\\\\\\}\\tab\\~\\_x\\-y\\emdash\\lquote s\\rquote}", L"{\\}\t -xy\u2014\u2018s\u2019"},
         {"{\\rtf1\\ansi K\\'e4se \xFC \\'80\x80\\'DF\\'81}", L"K\u00E4se \u00FC \u20AC\u20AC\u00DF"},
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

// Each page with two of its letters; a font's character set goes before the document's page.
TEST(RtfReading, CodePages) {
    const std::string fonts = "{\\fonttbl{\\f0 A;}{\\f1\\fcharset0 B;}{\\f2\\fcharset238 \\'b9;}"
                              "{\\f3\\fcharset204 D;}{\\f4\\fcharset161 E;}{\\f5\\fcharset1\\cpg850 F;}"
                              "{\\f6\\fcharset254 G;}{\\f7\\fcharset77 H;}{\\f8\\fcharset162 I;}}";
    const std::string bytes =
        "\\f0\\'e4\xB9\\f1\\'b9{\\f2\\'b9\xEA}\\f3\\'c6\\'ff\\f4\\'e1\\'d9\\f5\\'84\\'9b"
        "\\f6\\'84\\'e0\\f7\\'8a\\'a7\\f8\\'fe\\plain\\'b9}";
    const std::wstring named =
        L"\u00B9\u0105\u0119\u0416\u044F\u03B1\u03A9\u00E4\u00F8\u00E4\u03B1\u00E4\u00DF\u015F";
    expectTexts({{"{\\rtf1\\ansi" + fonts + bytes, L"\u00E4\u00B9" + named + L"\u00B9"},
                 {"{\\rtf1\\ansi\\ansicpg1250" + fonts + bytes, L"\u00E4\u0105" + named + L"\u0105"},
                 {"{\\rtf1\\mac" + fonts + bytes, L"\u2030\u03C0" + named + L"\u03C0"},
                 {"{\\rtf1\\mac\\'8a\\'9f\\'a7\\'ca x\\'f0}", L"\u00E4\u00FC\u00DF  x"},
                 {"{\\rtf1\\pc\\'84\\'81\\'e1}", L"\u00E4\u00FC\u00DF"},
                 {"{\\rtf1\\pca\\'84\\'81\\'e1\\'f0}", L"\u00E4\u00FC\u00DF"},
                 {"{\\rtf1\\ansi\\ansicpg1251 \\'cf\\u1086\\'ee}", L"\u041F\u043E"},
                 {"{\\rtf1\\ansi\\ansicpg932 \\'e4}", L"\u00E4"}});
    const auto document = read("{\\rtf1\\ansi\\deff2" + fonts + "\\'b9}");
    EXPECT_EQ(document.paragraphs[0].runs, (std::vector<RtfRun>{{L"\u0105", {L"\u0105"}}}));
}

TEST(RtfReading, WhatNoKeyTypesBecomesABlankAHyphenOrNothing) {
    expectTexts({{"{\\rtf1 a\\~b\\emspace c\\enspace d\\qmspace e\\_f\\zwj g\\zwnj h\\-i\\ltrmark j}",
                  L"a b c d e-fghij"},
                 {"{\\rtf1 a\\'a0b\\u8239?c\\u8203?d\\'ade\\u-257?f\\u8209?g\\'81\\u8232?h\\u8233?i\\u127?}",
                  L"a b cdef-g\r\nh\r\ni"},
                 {"a\xA0"
                  "b\xAD"
                  "c",
                  L"a bc"},
                 {"\xC2\xA0\xE2\x80\xAF\xE2\x80\x8B\xEF\xBB\xBF\xE2\x80\xA8.", L"  \r\n."}});
}

TEST(RtfReading, WhatIsNoTextIsLeftOut) {
    expectTexts(
        {{"{\\rtf1{\\*\\unbekannt x{y}}{\\info{\\title x}}{\\stylesheet{\\s0 x;}}{\\header x\\par}{\\pict "
          "00ff}a}",
          L"a"},
         {"{\\rtf1{\\fonttbl{\\f0 x;}}{\\colortbl x;}{\\pict\\bin3 }}{}b}", L"b"},
         {"{\\rtf1{\\field{\\*\\fldinst x}{\\fldrslt Link}}{\\listtext 1.\\tab}{\\pntext\\'b7}{\\footnote "
          "x}}",
          L"Link"},
         {"{\\rtf1{\\v\\u-10179?}a}", L"a"},
         {"{\\rtf1 a{\\v x}\\v x\\v0 b{\\deleted x}\\v x\\plain c\\neuesWort17 d\\neu-3e}", L"abcde"}});
}

TEST(RtfReading, BrokenDocumentsGiveWhatCanBeRead) {
    expectTexts({{"{\\rtf1 a{b", L"ab"},
                 {"{\\rtf1 a\\", L"a"},
                 {"{\\rtf1 a\\'", L"a"},
                 {"{\\rtf1 a\\'zzb", L"azzb"},
                 {"{\\rtf1 a}b}}", L"a"},
                 {"{\\rtf1 a\\bin999999999999 bcd", L"a"},
                 {"{\\rtf1 a\\bin-5 b\\uc-1\\u228 c\\u99999999999999999999?d", L"ab\u00E4c\uFFFD?d"},
                 {"{\\rtf", L""},
                 {"{\\rtf1 " + repeated("{\\b ", 100'000) + "a" + repeated("}", 100'000) + "b}c", L"ab"}});
    const auto document = read("{\\rtf1\\fs99999999999 a\\fs-4\\f-1\\cf-1\\cf99999 b\\f99999 c}");
    ASSERT_EQ(document.paragraphs[0].runs.size(), 2U);
    EXPECT_EQ(document.paragraphs[0].runs[0].format.halfPoints, 3276);
    EXPECT_EQ(document.paragraphs[0].runs[1], (RtfRun{L"bc", {}}));
}

// A cut document keeps what stands before the cut; only the last character or line end may come of a cut
// word.
TEST(RtfReading, ACutDocumentKeepsItsBeginning) {
    const std::string whole = testDocument("letter.rtf");
    const std::wstring text = read(whole).plainText();
    for (std::size_t length = 5; length < whole.size(); ++length) {
        std::wstring part = read(std::string_view(whole).substr(0, length)).plainText();
        part.resize(part.size() - std::min<std::size_t>(part.size(), 2));
        ASSERT_TRUE(text.starts_with(part)) << length;
    }
}

TEST(RtfReading, CharacterFormats) {
    const auto document =
        read("{\\rtf1\\deff1{\\fonttbl{\\f0\\fmodern\\fcharset0 Courier New;}"
             "{\\f1\\fswiss\\fcharset238{\\*\\panose 020b}B\\'fcro CE{\\*\\falt Arial};}{\\f2  Offen }}"
             "{\\colortbl;\\red255\\green0\\blue0;\\red1\\green2\\blue300;}"
             "a\\f0\\fs20\\cf1\\b b{\\b0\\i c\\i0\\uldb\\cf2 d}e\\ul f\\ulnone\\cf0\\plain "
             "g\\f2\\ul\\ul0 h\\f7 i\\b\\b0 j}");
    const RtfFormat red{L"Courier New", 20, true, false, false, 0xFF0000};
    RtfFormat redUnderlined = red;
    redUnderlined.underlined = true;
    const std::vector<RtfRun> expected{{L"a", {L"B\u00FCro CE"}},
                                       {L"b", red},
                                       {L"c", {L"Courier New", 20, false, true, false, 0xFF0000}},
                                       {L"d", {L"Courier New", 20, false, false, true, 0x0102FF}},
                                       {L"e", red},
                                       {L"f", redUnderlined},
                                       {L"g", {L"B\u00FCro CE"}},
                                       {L"h", {L"Offen"}},
                                       {L"ij", {L"B\u00FCro CE"}}};
    ASSERT_EQ(document.paragraphs.size(), 1U);
    EXPECT_EQ(document.paragraphs[0].runs, expected);

    const auto withoutGroups = read("{\\rtf1{\\fonttbl\\f0\\fnil Arial;\\f1 Courier;}x\\f1 y}");
    EXPECT_EQ(withoutGroups.paragraphs[0].runs,
              (std::vector<RtfRun>{{L"x", {L"Arial"}}, {L"y", {L"Courier"}}}));
}

TEST(RtfReading, Alignments) {
    const auto document = read("{\\rtf1\\qc a\\par b\\qr\\par\\pard c\\par{\\pard\\qj d\\par}e\\par\\qc f}");
    std::vector<RtfAlignment> readBack;
    for (const RtfParagraph& paragraph : document.paragraphs)
        readBack.push_back(paragraph.alignment);
    using enum RtfAlignment;
    EXPECT_EQ(readBack, (std::vector{center, right, left, justified, left, center}));
}

TEST(RtfReading, PlainText) {
    expectTexts({{"", L""},
                 {"a\n", L"a\r\n"},
                 {"{\\rt a\\par}", L"{\\rt a\\par}"},
                 {"Gr\xFC\xDF"
                  "e\r\nb\rc\n\nd\t\x80\r\n",
                  L"Gr\u00FC\u00DF"
                  L"e\r\nb\r\nc\r\n\r\nd\t\u20AC\r\n"},
                 {"\xEF\xBB\xBF\xC3\xA4\n\xE2\x82\xAC\xF0\x9F\x98\x80", L"\u00E4\r\n\u20AC\U0001F600"},
                 {"\xEF\xBB\xBF\xC3(\xC0\x80\xED\xA0\x80\xF4\x90\x80\x80\xE2\x82",
                  L"\uFFFD(\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
                 {"\xC3\xA4\x01"
                  "b\xF0\x9F\x98\x80",
                  L"\u00E4b\U0001F600"},
                 {"\xC3\xA4 \xE4", L"\u00C3\u00A4 \u00E4"},
                 {"\xC3\xA4\xC3", L"\u00C3\u00A4\u00C3"},
                 {std::string("\xFF\xFE\xE4\0\r\0\n\0\xAC\x20\x3D\xD8\x00\xDE\x00\xDE\x3D\xD8", 18),
                  L"\u00E4\r\n\u20AC\U0001F600\uFFFD\uFFFD"},
                 {std::string("\xFE\xFF\0\xE4\xD8\x3D\0a\xD8\x3D\xDE\0x", 13), L"\u00E4\uFFFDa\U0001F600"},
                 {"\xEF\xBB\xBF{\\rtf1 a}", L"a"}});
}

TEST(RtfReading, ATextBeyondTheBoundIsCutAndSaysSo) {
    struct Case {
        std::string bytes;
        std::size_t size;
        RtfOutcome outcome;
    };
    const std::string most(rtfMaxCharacters, 'a');
    const std::string lines = repeated("ab\\par\r\n", rtfMaxCharacters / 4);
    const std::vector<Case> cases{
        {"{\\rtf1 " + most + "\\par}", rtfMaxCharacters, RtfOutcome::whole},
        {"{\\rtf1 " + most + "\\par\\par}", rtfMaxCharacters, RtfOutcome::cut},
        {"{\\rtf1 " + most + "b}", rtfMaxCharacters, RtfOutcome::cut},
        {"{\\rtf1 " + most + "{\\v b}}b", rtfMaxCharacters, RtfOutcome::whole},
        {"{\\rtf1 " + lines + "ab}", rtfMaxCharacters - 2 + 2, RtfOutcome::cut},
        {"{\\rtf1 " + lines + "}", rtfMaxCharacters - 2, RtfOutcome::whole},
        {"{\\rtf1 " + most.substr(1) + "\\line}", rtfMaxCharacters - 1, RtfOutcome::cut},
        {"{\\rtf1 " + repeated("\\b x\\b0 y", 300'000) + "}", rtfMaxCharacters, RtfOutcome::cut},
        {most, rtfMaxCharacters, RtfOutcome::whole},
        {most + "\n", rtfMaxCharacters, RtfOutcome::cut},
        {repeated("\xC3\xA4", rtfMaxCharacters), rtfMaxCharacters, RtfOutcome::whole},
        {repeated("\xC3\xA4", 400'000), rtfMaxCharacters, RtfOutcome::cut},
        {"a" + repeated("\xC3\xA4", 400'000), rtfMaxCharacters, RtfOutcome::cut},
        {repeated("\n", 600'000), rtfMaxCharacters, RtfOutcome::cut},
    };
    for (const Case& each : cases) {
        const auto [document, outcome] = readRtf(each.bytes);
        const std::string begin = each.bytes.substr(0, 20);
        EXPECT_EQ(outcome, each.outcome) << begin;
        EXPECT_EQ(document.plainText().size(), each.size) << begin;
        // What was read is a whole document by itself.
        EXPECT_EQ(readRtf(writeRtf(document)).document, document) << begin;
        EXPECT_EQ(readRtf(writeRtf(document)).outcome, RtfOutcome::whole) << begin;
    }
}

/// A source of bytes made on demand: `before`, then so many of `filler`, then `behind`.
struct LongSource {
    std::string before;
    std::size_t count;
    char filler;
    std::string behind;

    std::optional<std::string> operator()(std::int64_t offset, std::size_t size) const {
        largest_ = std::max(largest_, size);
        const auto from = static_cast<std::size_t>(offset);
        std::string piece;
        for (std::size_t at = from; piece.size() < size && at < before.size(); ++at)
            piece += before[at];
        if (const std::size_t at = from + piece.size(); at >= before.size() && at < before.size() + count)
            piece.append(std::min(size - piece.size(), before.size() + count - at), filler);
        const std::size_t at = from + piece.size() - before.size() - count;
        if (from + piece.size() >= before.size() + count && at < behind.size())
            piece += behind.substr(at, size - piece.size());
        read_ += piece.size();
        return piece;
    }
    mutable std::size_t read_ = 0;
    mutable std::size_t largest_ = 0;
};

TEST(RtfReading, APhotoIsPassedOverAndNotHeld) {
    constexpr std::size_t photo = std::size_t{40} << 20U;
    const LongSource hexadecimal{"{\\rtf1 a{\\pict\\jpegblip ", photo, 'f', "}b}"};
    const LongSource binary{"{\\rtf1 a{\\pict\\bin" + std::to_string(photo) + " ", photo, '}', "}b}"};
    for (const LongSource* source : {&hexadecimal, &binary}) {
        const auto [document, outcome] = readRtf(std::cref(*source));
        EXPECT_EQ(document.plainText(), L"ab");
        EXPECT_EQ(outcome, RtfOutcome::whole);
        EXPECT_LE(source->largest_, std::size_t{1} << 20U);
    }
    EXPECT_LE(binary.read_, std::size_t{1} << 20U);

    const LongSource endless{"{\\rtf1 a{\\pict ", std::size_t{1} << 40U, 'f', "}b}"};
    const auto [document, outcome] = readRtf(std::cref(endless));
    EXPECT_EQ(document.plainText(), L"a");
    EXPECT_EQ(outcome, RtfOutcome::cut);
}

TEST(RtfReading, TheEdgesOfBlocksAreNotSeenAndAFailingSourceGivesNothing) {
    for (const std::string& bytes : {testDocument("letter.rtf"), testDocument("list.rtf"),
                                     std::string("Gr\xC3\xBC\xC3\x9F"
                                                 "e\r\n\r\na")}) {
        const auto inPieces = [&bytes](std::size_t size) {
            return readRtf([&bytes, size](std::int64_t offset, std::size_t) {
                return std::optional(
                    bytes.substr(std::min(static_cast<std::size_t>(offset), bytes.size()), size));
            });
        };
        for (const std::size_t size : {1U, 2U, 3U, 7U})
            EXPECT_EQ(inPieces(size).document, read(bytes)) << size;
        const auto [document, outcome] = readRtf([&bytes](std::int64_t offset, std::size_t) {
            return offset == 0 ? std::optional(bytes.substr(0, 9)) : std::nullopt;
        });
        EXPECT_EQ(outcome, RtfOutcome::failed);
        EXPECT_EQ(document.plainText(), L"");
    }
}

/// A document of every kind of character and format, in the shape that reading gives.
RtfDocument randomDocument(std::mt19937& random) {
    const auto upTo = [&random](std::size_t n) { return static_cast<std::size_t>(random() % (n + 1)); };
    const std::wstring supply = L"aZ "
                                L"09\t\n\\{};'?-"
                                L"~\u00A1\u00E4\u20AC\u03BB\uD7FF\uE000\uFFFD\U00010000\U0010FFFF";
    const std::wstring names[] = {L"", L"Courier New", L"Gr\u00FC\u00DF; {Schrift} \u03BB"};
    RtfDocument document;
    for (std::size_t i = upTo(5) + 1; i > 0; --i) {
        RtfParagraph paragraph{{}, static_cast<RtfAlignment>(upTo(3))};
        for (std::size_t j = upTo(4); j > 0; --j) {
            RtfRun run{{},
                       {names[upTo(2)], static_cast<int>(upTo(3274)) + 2, upTo(1) == 1, upTo(1) == 1,
                        upTo(1) == 1,
                        static_cast<std::uint32_t>(upTo(0xFFFFFF)) & (upTo(1) == 1 ? 0xFFFFFFU : 0U)}};
            for (std::size_t k = upTo(9) + 1; k > 0; --k)
                run.text += supply[upTo(supply.size() - 1)];
            if (paragraph.runs.empty() || paragraph.runs.back().format != run.format)
                paragraph.runs.push_back(std::move(run));
        }
        document.paragraphs.push_back(std::move(paragraph));
    }
    return document;
}

TEST(RtfWriting, WhatIsWrittenReadsTheSame) {
    std::mt19937 random(20240607);
    for (int i = 0; i < 2000; ++i) {
        const RtfDocument document = randomDocument(random);
        const std::string bytes = writeRtf(document);
        ASSERT_EQ(read(bytes), document) << bytes;
        ASSERT_TRUE(std::ranges::all_of(
            bytes, [](char c) { return c == '\r' || c == '\n' || (c >= ' ' && c < 0x7F); }));
    }
    // Lines that a user left empty, at the end too.
    for (std::size_t lines = 1; lines < 4; ++lines) {
        RtfDocument document{{{{{L"a", {}}}}}};
        document.paragraphs.resize(lines);
        EXPECT_EQ(read(writeRtf(document)), document);
    }
    EXPECT_TRUE(writeRtf({{{{{L"a", {}}}}}}).ends_with("a\\par\r\n}\r\n"));
    const RtfDocument empty{{{}}};
    EXPECT_EQ(read(writeRtf(empty)), empty);
    EXPECT_EQ(read(writeRtf({})), empty);
}

TEST(RtfWriting, WhatIsUnfitDoesNotSpoilTheRest) {
    const RtfRun run{
        {L'a', L'\r', L'\x01', static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0x110000), L'b'},
        {L"", 0, false, false, false, 0xFF123456}};
    const auto readBack = read(writeRtf({{{{run, {L"", {}}, run, run}}}}));
    EXPECT_EQ(readBack.plainText(), L"a??ba??ba??b");
    ASSERT_EQ(readBack.paragraphs[0].runs.size(), 1U);
    EXPECT_EQ(readBack.paragraphs[0].runs[0].format, (RtfFormat{L"", 2, false, false, false, 0x123456}));
}

TEST(RtfPlainText, ThereAndBack) {
    for (const std::wstring text : {L"", L"a", L"a\r\n", L"\r\n\r\na\tb \u20AC\r\n\r\n"}) {
        EXPECT_EQ(documentFromPlainText(text).document.plainText(), text);
        EXPECT_EQ(read(writeRtf(documentFromPlainText(text).document)).plainText(), text);
    }
    EXPECT_EQ(documentFromPlainText(L"a\nb\rc\n\rd\x02").document.plainText(), L"a\r\nb\r\nc\r\n\r\nd");
}

// Both documents were written by a word processor.
TEST(RtfReading, ALetterOfAWordProcessor) {
    const auto letter = read(testDocument("letter.rtf"));
    EXPECT_EQ(letter.plainText(),
              L"Gr\u00FC\u00DF"
              L"e aus K\u00F6ln\r\n"
              L"K\u00E4se, \u00D6l & Brot:\t3,50 \u20AC rot und schr\u00E4g \U0001F600\r\n\r\n\r\n"
              L"Zeile eins\r\nZeile zwei {Klammer} \\ Strich \u201Eso\u201C \u2013 \u00DF");
    ASSERT_EQ(letter.paragraphs.size(), 5U);
    const auto& title = letter.paragraphs[0];
    EXPECT_EQ(title.alignment, RtfAlignment::center);
    ASSERT_EQ(title.runs.size(), 1U);
    EXPECT_EQ(title.runs[0].format, (RtfFormat{L"Arial", 32, true, false, false, 0}));
    const auto& cheese = letter.paragraphs[1];
    EXPECT_EQ(cheese.alignment, RtfAlignment::left);
    ASSERT_EQ(cheese.runs.size(), 5U);
    EXPECT_EQ(cheese.runs[1], (RtfRun{L"rot", {L"Courier New", 24, false, false, false, 0xFF0000}}));
    EXPECT_EQ(cheese.runs[3].format, (RtfFormat{L"Courier New", 24, false, true, false, 0x0000C8}));
    EXPECT_TRUE(letter.paragraphs[2].runs.empty());
    EXPECT_EQ(letter.paragraphs[4].alignment, RtfAlignment::right);
    EXPECT_TRUE(letter.paragraphs[4].runs[0].format.underlined);
}

TEST(RtfReading, AListATableAndANoteOfAWordProcessor) {
    const auto list = read(testDocument("list.rtf"));
    EXPECT_EQ(list.plainText(),
              L"Einkauf\r\n\u00C4pfel\r\nM\u00F6hren\r\nMontag\tM\u00FCsli\t\r\n"
              L"Mehr steht in der Fu\u00DFnote, und \u0395\u03BB\u03BB\u03AC\u03B4\u03B1 auch.");
    EXPECT_EQ(list.paragraphs[4].alignment, RtfAlignment::justified);
}

} // namespace
} // namespace klopfmeise
