#include "platform/richtext/rtf.h"

#include <array>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

// rtf_probe schreiben TEXT RTF: a text file becomes RTF, with fonts, colours and alignments in turn
// rtf_probe lesen RTF TEXT: the plain text of a document, in UTF-8

namespace {

using namespace klopfmeise;

std::string nachUtf8(std::wstring_view text) {
    std::string bytes;
    for (const wchar_t zeichen : text) {
        const auto wert = static_cast<std::uint32_t>(zeichen);
        const unsigned folgen = wert < 0x80 ? 0 : wert < 0x800 ? 1 : wert < 0x10000 ? 2 : 3;
        constexpr std::array<std::uint32_t, 4> marken{0x00, 0xC0, 0xE0, 0xF0};
        bytes += static_cast<char>(marken[folgen] | (wert >> (6 * folgen)));
        for (unsigned i = folgen; i > 0; --i)
            bytes += static_cast<char>(0x80U | ((wert >> (6 * (i - 1))) & 0x3FU));
    }
    return bytes;
}

/// Each word gets a format of its own and each paragraph an alignment, so that every part of the writer is
/// used.
RtfDocument gestaltet(const RtfDocument& schlicht) {
    static constexpr std::array<std::uint32_t, 3> farben{0x000000, 0xC00000, 0x0000C8};
    RtfDocument bunt;
    unsigned absatzzahl = 0;
    unsigned wortzahl = 0;
    for (const RtfParagraph& absatz : schlicht.paragraphs) {
        RtfParagraph neu{{}, static_cast<RtfAlignment>(absatzzahl++ % 4)};
        for (const RtfRun& lauf : absatz.runs)
            for (const wchar_t zeichen : lauf.text) {
                if (neu.runs.empty() || zeichen == L' ') {
                    const unsigned n = wortzahl++;
                    neu.runs.push_back({{},
                                        {n % 5 < 3 ? L"Courier New" : L"Arial", 24 + static_cast<int>(n % 4),
                                         n % 2 == 1, n % 3 == 1, n % 4 == 1, farben[n % 3]}});
                }
                neu.runs.back().text += zeichen;
            }
        bunt.paragraphs.push_back(std::move(neu));
    }
    return bunt;
}

} // namespace

int main(int anzahl, char** argumente) {
    const std::vector<std::string> worte(argumente, argumente + anzahl);
    if (worte.size() != 4 || (worte[1] != "schreiben" && worte[1] != "lesen")) {
        std::cerr << "rtf_probe schreiben|lesen EINGABE AUSGABE\n";
        return 2;
    }
    std::ifstream eingabe(worte[2], std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(eingabe), {}};
    if (!eingabe) {
        std::cerr << worte[2] << ": nicht lesbar\n";
        return 1;
    }
    const RtfDocument dokument = readRtf(bytes);
    std::ofstream ausgabe(worte[3], std::ios::binary);
    ausgabe << (worte[1] == "schreiben" ? writeRtf(gestaltet(dokument)) : nachUtf8(dokument.plainText()));
    return ausgabe.flush() ? 0 : 1;
}
