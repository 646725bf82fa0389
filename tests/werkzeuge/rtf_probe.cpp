#include "platform/rtf.h"

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
RtfDokument gestaltet(const RtfDokument& schlicht) {
    static constexpr std::array<std::uint32_t, 3> farben{0x000000, 0xC00000, 0x0000C8};
    RtfDokument bunt;
    unsigned absatzzahl = 0;
    unsigned wortzahl = 0;
    for (const RtfAbsatz& absatz : schlicht.absaetze) {
        RtfAbsatz neu{{}, static_cast<Ausrichtung>(absatzzahl++ % 4)};
        for (const RtfLauf& lauf : absatz.laeufe)
            for (const wchar_t zeichen : lauf.text) {
                if (neu.laeufe.empty() || zeichen == L' ') {
                    const unsigned n = wortzahl++;
                    neu.laeufe.push_back(
                        {{},
                         {n % 5 < 3 ? L"Courier New" : L"Arial", 24 + static_cast<int>(n % 4), n % 2 == 1,
                          n % 3 == 1, n % 4 == 1, farben[n % 3]}});
                }
                neu.laeufe.back().text += zeichen;
            }
        bunt.absaetze.push_back(std::move(neu));
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
    const RtfDokument dokument = rtfLesen(bytes);
    std::ofstream ausgabe(worte[3], std::ios::binary);
    ausgabe << (worte[1] == "schreiben" ? rtfSchreiben(gestaltet(dokument)) : nachUtf8(dokument.klartext()));
    return ausgabe.flush() ? 0 : 1;
}
