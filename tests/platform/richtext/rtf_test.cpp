#include "platform/richtext/rtf.h"
#include "tests/probe.h"

#include <algorithm>
#include <filesystem>
#include <random>

namespace klopfmeise {
namespace {

using Texts = std::vector<std::pair<std::string, std::wstring>>;

RtfDocument read(std::string_view bytes) { return readRtf(bytes).document; }

void expectTexts(const Texts& cases) {
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(read(bytes).plainText(), text) << bytes;
}

/// What a word processor wrote.
std::string testDocument(const std::string& name) {
    return dateiinhalt(fs::path(__FILE__).parent_path() / "documents" / name);
}

std::string repeated(std::string_view piece, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

TEST(RtfReading, LinesParagraphsAndWhatIsNoText) {
    expectTexts({
        {R"({\rtf1})", L""},
        {"{\\rtf1 a\r\nb\\par c\\line d\\\ne\\\r\nf\\line}behind", L"ab\r\nc\r\nd\r\ne\r\nf\r\n"},
        {R"({\rtf1 a\cell b\cell\row c\sect d\par\sect e})", L"a\tb\t\r\nc\r\nd\r\ne"},
        {R"({\rtf1 a\nestcell b\nestcell{\*\nesttableprops\trowd x\nestrow}{\nonesttables\par}c\nestcell)"
         R"({\*\nesttableprops\nestrow}d\cell\row e})",
         L"a\tb\t\r\nc\t\r\nd\t\r\ne"},
        // Rich-text boxes and word processors end the last paragraph too, and drop that end on loading.
        {R"({\rtf1 a\par b\par })", L"a\r\nb"},
        {"{\\rtf1 a\\par\r\n{\\b\\v x}\\pard\\plain}\r\n", L"a"},
        {R"({\rtf1\par})", L""},
        {R"({\rtf1{\fonttbl{\f0 x;}}{\colortbl x;}{\pict\bin3 }}{})"
         R"({\field{\*\fldinst x}{\fldrslt a}}{\listtext 1.\tab}{\pntext\'b7}{\footnote x}})",
         L"a"},
        {R"({\rtf1{\v\u-10179?}a{\v x}\v x\v0 b{\deleted x}\v x\plain c\neuesWort17 d\neu-3e})", L"abcde"},
    });
}

TEST(RtfReading, Characters) {
    expectTexts({
        {R"({\rtf1 \{\\\}\tab\~\_x\-y\emdash\lquote s\rquote})", L"{\\}\t -xy—‘s’"},
        {"{\\rtf1\\ansi K\\'e4se \xFC \\'80\x80\\'DF\\'81}", L"Käse ü €€ß"},
        {R"({\rtf1 \u8364?a\u228\'e4b\u-3913 ?\u916  c})", L"€aäb\uF0B7Δc"},
        {R"({\rtf1\uc2 \u8364 EUa{\uc0\u228 b}\u228\'c3\'a4c\uc1\u8212\emdash d})", L"€aäbäc—d"},
        {R"({\rtf1 \u-10179?\u-8704?a\uc0 \u55357\uc1 \u56832\'3f})", L"😀a😀"},
        {R"({\rtf1 \u-10179?a\u-8704?b\u-10179?\u-10179?\par\u1114112?})",
         L"\uFFFDa\uFFFDb\uFFFD\uFFFD\r\n\uFFFD"},
        {"{\\rtf1 a\\u8364\\par b\\u8364{c\\u8364}d\\u8364\\b e\\u8364\\\nf}", L"a€\r\nb€c€d€e€\r\nf"},
        {"{\\rtf1 a\0b\x01\\bin3 }}}\\bin2\\{c}"s, L"abc"},
        // What no key types becomes a blank, a hyphen or nothing.
        {R"({\rtf1 a\~b\emspace c\enspace d\qmspace e\_f\zwj g\zwnj h\-i\ltrmark j})", L"a b c d e-fghij"},
        {R"({\rtf1 a\'a0b\u8239?c\u8203?d\'ade\u-257?f\u8209?g\'81\u8232?h\u8233?i\u127?})",
         L"a b cdef-g\r\nh\r\ni"},
        {"\xA0 \xAD.", L"  ."},
        {"\xC2\xA0\xE2\x80\xAF\xE2\x80\x8B\xEF\xBB\xBF\xE2\x80\xA8.", L"  \r\n."},
    });
}

// Each page with two of its letters; a font's character set goes before the document's page.
TEST(RtfReading, CodePages) {
    const std::string fonts =
        R"({\fonttbl{\f0 A;}{\f1\fcharset0 B;}{\f2\fcharset238 \'b9;}{\f3\fcharset204 D;})"
        R"({\f4\fcharset161 E;}{\f5\fcharset1\cpg850 F;}{\f6\fcharset254 G;})"
        R"({\f7\fcharset77 H;}{\f8\fcharset162 I;}})";
    const std::string bytes = fonts + "\\f0\\'e4\xB9\\f1\\'b9{\\f2\\'b9\xEA}\\f3\\'c6\\'ff\\f4\\'e1\\'d9\\f5"
                                      "\\'84\\'9b\\f6\\'84\\'e0\\f7\\'8a\\'a7\\f8\\'fe\\plain\\'b9}";
    const std::wstring named = L"¹ąęЖяαΩäøäαäßş";
    expectTexts({{"{\\rtf1\\ansi" + bytes, L"ä¹" + named + L"¹"},
                 {"{\\rtf1\\ansi\\ansicpg1250" + bytes, L"äą" + named + L"ą"},
                 {"{\\rtf1\\mac" + bytes, L"‰π" + named + L"π"},
                 {R"({\rtf1\pca\'84\'81\'e1\'f0})", L"äüß"},
                 {R"({\rtf1\ansi\ansicpg932 \'e4})", L"ä"}});
}

TEST(RtfReading, BrokenDocumentsGiveWhatCanBeRead) {
    expectTexts({{R"({\rtf1 a{b)", L"ab"},
                 {R"({\rtf1 a\)", L"a"},
                 {R"({\rtf1 a\'zzb}c}})", L"azzb"},
                 {R"({\rtf1 a\bin999999999999 bcd)", L"a"},
                 {R"({\rtf1 a\bin-5 b\uc-1\u228 c\u99999999999999999999?d)", L"abäc\uFFFD?d"},
                 {"{\\rtf1 " + repeated("{\\b ", 100'000) + "a" + repeated("}", 100'000) + "b}c", L"ab"}});
    const auto document = read(R"({\rtf1\fs99999999999 a\fs-4\f-1\cf-1\cf99999 b\f99999 c})");
    ASSERT_EQ(document.paragraphs[0].runs.size(), 2U);
    EXPECT_EQ(document.paragraphs[0].runs[0].format.halfPoints, 3276);
    EXPECT_EQ(document.paragraphs[0].runs[1], (RtfRun{L"bc", {}}));

    // Only the last character or line end may come of a cut word.
    const std::string whole = testDocument("letter.rtf");
    const std::wstring text = read(whole).plainText();
    for (std::size_t length = 5; length < whole.size(); ++length) {
        std::wstring part = read(std::string_view(whole).substr(0, length)).plainText();
        part.resize(part.size() - std::min<std::size_t>(part.size(), 2));
        ASSERT_TRUE(text.starts_with(part)) << length;
    }
}

TEST(RtfReading, FormatsAndAlignments) {
    const auto document = read(
        R"({\rtf1\deff1{\fonttbl{\f0\fmodern\fcharset0 Courier New;}{\f1\fswiss\fcharset238{\*\panose 020b})"
        R"(B\'fcro CE{\*\falt Arial};}{\f2  Offen }}{\colortbl;\red255\green0\blue0;\red1\green2\blue300;})"
        R"(a\f0\fs20\cf1\b b{\b0\i c\i0\uldb\cf2 d}e\ul f\ulnone\cf0\plain g\f2\ul\ul0 h\f7 i\b\b0 j})");
    const RtfFormat red{L"Courier New", 20, true, false, false, 0xFF0000};
    const RtfFormat italic{L"Courier New", 20, false, true, false, 0xFF0000};
    const RtfFormat blue{L"Courier New", 20, false, false, true, 0x0102FF};
    const RtfFormat underlined{L"Courier New", 20, true, false, true, 0xFF0000};
    const RtfFormat own{L"Büro CE"};
    const std::vector<RtfRun> expected{{L"a", own},  {L"b", red},        {L"c", italic},
                                       {L"d", blue}, {L"e", red},        {L"f", underlined},
                                       {L"g", own},  {L"h", {L"Offen"}}, {L"ij", own}};
    EXPECT_EQ(document.paragraphs, std::vector{RtfParagraph{expected}});

    std::vector<RtfAlignment> alignments;
    for (const auto& paragraph :
         read(R"({\rtf1\qc a\par b\qr\par\pard c\par{\pard\qj d\par}e\par\qc f\par\qr})").paragraphs)
        alignments.push_back(paragraph.alignment);
    using enum RtfAlignment;
    EXPECT_EQ(alignments, (std::vector{center, right, left, justified, left, center}));
}

TEST(RtfReading, PlainText) {
    expectTexts({{"", L""},
                 {"\xFC\xDF\r\nb\rc\n\nd\t\x80\r\n", L"üß\r\nb\r\nc\r\n\r\nd\t€\r\n"},
                 {"\xEF\xBB\xBFä\n€😀", L"ä\r\n€😀"},
                 {"\xEF\xBB\xBF\xC3(\xC0\x80\xED\xA0\xF4\x90\xE2",
                  L"\uFFFD(\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
                 {"ä \xE4", L"Ã¤ ä"},
                 {"\xFF\xFE\xE4\0\r\0\n\0\xAC\x20\x3D\xD8\x00\xDE\x00\xDE\x3D\xD8"s, L"ä\r\n€😀\uFFFD\uFFFD"},
                 {"\xFE\xFF\0\xE4\xD8\x3D\0a\xD8\x3D\xDE\0x"s, L"ä\uFFFDa😀"},
                 {"\xEF\xBB\xBF{\\rtf1 a}", L"a"}});
    EXPECT_EQ(documentFromPlainText(L"\n\na\nb\rc\n\rd\x02\n").document.plainText(),
              L"\r\n\r\na\r\nb\r\nc\r\n\r\nd\r\n");
}

TEST(RtfReading, ATextBeyondTheBoundIsCutAndSaysSo) {
    using enum RtfOutcome;
    const std::string most(rtfMaxCharacters, 'a');
    const std::string lines = repeated("ab\\par\r\n", rtfMaxCharacters / 4);
    const std::tuple<std::string, std::size_t, RtfOutcome> cases[]{
        {"{\\rtf1 " + most + "{\\v b}\\par}b", rtfMaxCharacters, whole},
        {"{\\rtf1 " + most + "\\par\\par}", rtfMaxCharacters, cut},
        {"{\\rtf1 " + most + "b}", rtfMaxCharacters, cut},
        {"{\\rtf1 " + most.substr(1) + "\\line}", rtfMaxCharacters - 1, cut},
        {"{\\rtf1 " + lines + "}", rtfMaxCharacters - 2, whole},
        {"{\\rtf1 " + lines + "ab}", rtfMaxCharacters, cut},
        {most, rtfMaxCharacters, whole},
        {most + "\n", rtfMaxCharacters, cut},
        // Far behind the bound a cut may go through a character.
        {repeated("ä", 400'000), rtfMaxCharacters, cut},
        {"a" + repeated("ä", 400'000), rtfMaxCharacters, cut},
    };
    for (const auto& [bytes, size, expected] : cases) {
        SCOPED_TRACE(bytes.substr(0, 20));
        const auto [document, outcome] = readRtf(bytes);
        EXPECT_EQ(outcome, expected);
        EXPECT_EQ(document.plainText().size(), size);
        const auto again = readRtf(writeRtf(document));
        EXPECT_TRUE(again.document == document && again.outcome == whole) << "it is a document by itself";
    }
}

TEST(RtfReading, APhotoIsPassedOverAndNotHeld) {
    static constexpr std::size_t block = std::size_t{1} << 20U;
    // A document with so many bytes of a picture, made on demand.
    const auto withPicture = [](std::size_t count) {
        const std::string before = "{\\rtf1 a{\\pict\\jpegblip ";
        const std::string behind = "}b}";
        return readRtf([=](std::int64_t offset, std::size_t size) {
            EXPECT_LE(size, block);
            const auto at = static_cast<std::size_t>(offset);
            const std::size_t end = before.size() + count;
            return at < before.size() ? before.substr(at, size)
                   : at < end         ? std::string(std::min(size, end - at), 'f')
                                      : behind.substr(std::min(at - end, behind.size()), size);
        });
    };
    const auto large = withPicture(40 * block);
    EXPECT_EQ(large.document.plainText(), L"ab");
    EXPECT_EQ(large.outcome, RtfOutcome::whole);
    EXPECT_EQ(withPicture(block * block).outcome, RtfOutcome::cut);
}

TEST(RtfReading, TheEdgesOfBlocksAreNotSeenAndAFailingSourceGivesNothing) {
    for (const auto& bytes : {testDocument("letter.rtf"), "Grüße\r\n\r\na"s}) {
        const auto inPieces = [&](std::size_t size, std::size_t failsFrom = std::string::npos) {
            return readRtf([=, &bytes](std::int64_t offset, std::size_t) {
                const auto at = static_cast<std::size_t>(offset);
                return at < failsFrom ? std::optional(bytes.substr(std::min(at, bytes.size()), size))
                                      : std::nullopt;
            });
        };
        for (const std::size_t size : {1U, 2U, 3U, 7U})
            EXPECT_EQ(inPieces(size).document, read(bytes)) << size;
        EXPECT_EQ(inPieces(9, 1).outcome, RtfOutcome::failed);
        EXPECT_EQ(inPieces(9, 1).document.plainText(), L"");
    }
}

/// A document of every kind of character and format, in the shape that reading gives.
RtfDocument randomDocument(std::mt19937& random) {
    const auto upTo = [&random](std::size_t n) { return static_cast<std::size_t>(random() % (n + 1)); };
    const auto flip = [&] { return upTo(1) == 1; };
    const std::wstring supply = L"aZ 09\t\n\\{};'?-~¡ä€λ\uD7FF\uE000\uFFFD\U00010000\U0010FFFF";
    const std::wstring names[] = {L"", L"Courier New", L"Grüß; {Schrift} λ"};
    RtfDocument document;
    for (std::size_t i = upTo(5) + 1; i > 0; --i) {
        RtfParagraph paragraph{{}, static_cast<RtfAlignment>(upTo(3))};
        for (std::size_t j = upTo(4); j > 0; --j) {
            const auto color = static_cast<std::uint32_t>(flip() ? upTo(0xFFFFFF) : 0);
            const int size = static_cast<int>(upTo(3274)) + 2;
            RtfRun run{{}, {names[upTo(2)], size, flip(), flip(), flip(), color}};
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
        const auto plain = [](char c) { return c == '\r' || c == '\n' || (c >= ' ' && c < 0x7F); };
        ASSERT_TRUE(std::ranges::all_of(bytes, plain)) << bytes;
    }
    EXPECT_TRUE(writeRtf({{{{{L"a", {}}}}}}).ends_with("a\\par\r\n}\r\n"));
    EXPECT_EQ(read(writeRtf({})), RtfDocument{{{}}});
}

TEST(RtfReading, ADocumentOfAWordProcessor) {
    const auto letter = read(testDocument("letter.rtf"));
    ASSERT_EQ(letter.plainText(), L"Grüße aus Köln\r\nKäse, Öl & Brot:\t3,50 € rot und schräg 😀\r\n\r\n\r\n"
                                  L"Zeile eins\r\nZeile zwei {Klammer} \\ Strich „so“ – ß");
    ASSERT_EQ(letter.paragraphs.size(), 5U);
    EXPECT_EQ(letter.paragraphs[0],
              (RtfParagraph{{{L"Grüße aus Köln", {L"Arial", 32, true}}}, RtfAlignment::center}));
    EXPECT_EQ(letter.paragraphs[1].runs.at(3).format,
              (RtfFormat{L"Courier New", 24, false, true, false, 0x0000C8}));
}

} // namespace
} // namespace klopfmeise
