#include "verwaltung/konsole.h"

#include "platform/values/text.h"

#include <algorithm>
#include <istream>
#include <ostream>
#include <string>

namespace klopfmeise {

namespace {

/// Control characters, bytes that are no character, and marks that turn the direction of writing.
bool steuernd(wchar_t c) {
    return c < L' ' || (c >= 0x7F && c <= 0x9F) || (c >= 0xDC80 && c <= 0xDCFF) ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

std::string gezeigt(std::wstring_view text) {
    std::wstring aus(text);
    std::ranges::replace_if(aus, steuernd, L'?');
    return toUtf8(aus);
}

} // namespace

void Konsole::zeile(std::wstring_view text) { aus_ << gezeigt(text) << '\n'; }

void Konsole::fehler(std::wstring_view text) {
    // In the order in which things were said, should both go to the same place.
    aus_.flush();
    fehler_ << "klopfmeise-verwaltung: " << gezeigt(text) << '\n';
}

void Konsole::roh(std::string_view bytes) { aus_ << bytes; }

bool Konsole::frage(std::wstring_view text) {
    if (stets_ == Stets::fragen && !mensch_) {
        fehler(std::wstring(text) +
               L" Es ist niemand da zum Fragen; alle Antworten sind nein. Mit --ja sind alle ja.");
        stets_ = Stets::nein;
    }
    if (stets_ != Stets::fragen) {
        if (stets_ == Stets::ja)
            aus_ << gezeigt(text) << " ja\n";
        return stets_ == Stets::ja;
    }
    for (;;) {
        aus_ << gezeigt(text) << " [j/n/alle/keine] " << std::flush;
        std::string antwort;
        if (!std::getline(ein_, antwort)) {
            aus_ << '\n';
            stets_ = Stets::nein;
            return false;
        }
        const std::wstring wort = upper(fromUtf8(antwort));
        if (wort == L"ALLE")
            stets_ = Stets::ja;
        if (wort == L"KEINE")
            stets_ = Stets::nein;
        if (wort == L"J" || wort == L"JA" || wort == L"ALLE")
            return true;
        if (wort == L"N" || wort == L"NEIN" || wort == L"KEINE")
            return false;
    }
}

bool Konsole::gut() const { return aus_.good(); }

} // namespace klopfmeise
