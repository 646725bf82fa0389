#include "platform/richtext/rtf.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <map>
#include <unordered_map>

namespace klopfmeise {

namespace {

constexpr std::string_view ausrichtungswort(RtfAlignment alignment) {
    switch (alignment) {
    case RtfAlignment::right:
        return "\\qr";
    case RtfAlignment::center:
        return "\\qc";
    case RtfAlignment::justified:
        return "\\qj";
    case RtfAlignment::left:
        break;
    }
    return "\\ql";
}

class Schreiber {
public:
    [[nodiscard]] std::string schreibe(const RtfDocument& dokument);

private:
    void tabellen(const RtfDocument& dokument);
    void absatz(const RtfParagraph& absatz);
    void format(const RtfFormat& format);
    void schalter(std::string_view an, std::string_view aus, bool neu, bool alt);
    void wort(std::string_view name, long long zahl);
    void text(std::wstring_view text);
    void zeichen(wchar_t zeichen);
    void unicode(std::uint32_t wert);

    std::string aus_;
    std::map<std::wstring, int, std::less<>> schriften_;
    std::unordered_map<std::uint32_t, int> farben_{{0, 0}};
    RtfFormat letztes_;
};

std::string Schreiber::schreibe(const RtfDocument& dokument) {
    tabellen(dokument);
    bool erster = true;
    for (const RtfParagraph& einer : dokument.paragraphs) {
        if (!erster)
            aus_ += "\\par\r\n";
        erster = false;
        absatz(einer);
    }
    aus_ += "}\r\n";
    return std::move(aus_);
}

void Schreiber::tabellen(const RtfDocument& dokument) {
    std::string schriften;
    std::string farben;
    std::swap(aus_, schriften);
    for (const RtfParagraph& einer : dokument.paragraphs)
        for (const RtfRun& lauf : einer.runs) {
            const RtfFormat& format = lauf.format;
            const auto [schrift, schriftNeu] =
                schriften_.try_emplace(format.typeface, static_cast<int>(schriften_.size()));
            if (schriftNeu) {
                wort("{\\f", schrift->second);
                aus_ += "\\fnil\\fcharset0 ";
                text(format.typeface);
                aus_ += ";}";
            }
            const std::uint32_t color = format.color & 0xFFFFFFU;
            if (farben_.try_emplace(color, static_cast<int>(farben_.size())).second) {
                std::swap(aus_, farben);
                wort("\\red", color >> 16U);
                wort("\\green", (color >> 8U) & 0xFFU);
                wort("\\blue", color & 0xFFU);
                aus_ += ';';
                std::swap(aus_, farben);
            }
        }
    std::swap(aus_, schriften);
    aus_ = "{\\rtf1\\ansi\\ansicpg1252\\deff0";
    aus_ += "{\\fonttbl" + (schriften.empty() ? "{\\f0\\fnil\\fcharset0 ;}" : schriften) + "}\r\n";
    aus_ += "{\\colortbl ;" + farben + "}\r\n\\uc1\\plain\\f0\\fs24\r\n";
    for (const auto& [name, nummer] : schriften_)
        if (nummer == 0)
            letztes_.typeface = name;
}

void Schreiber::absatz(const RtfParagraph& absatz) {
    aus_ += "\\pard";
    aus_ += ausrichtungswort(absatz.alignment);
    bool erster = true;
    for (const RtfRun& lauf : absatz.runs) {
        const std::size_t vorher = aus_.size();
        format(lauf.format);
        if (erster || aus_.size() != vorher)
            aus_ += ' ';
        erster = false;
        text(lauf.text);
    }
}

void Schreiber::format(const RtfFormat& format) {
    if (format.typeface != letztes_.typeface)
        wort("\\f", schriften_.find(format.typeface)->second);
    if (format.halfPoints != letztes_.halfPoints)
        wort("\\fs", std::clamp(format.halfPoints, 2, 3276));
    schalter("\\b", "\\b0", format.bold, letztes_.bold);
    schalter("\\i", "\\i0", format.italic, letztes_.italic);
    schalter("\\ul", "\\ulnone", format.underlined, letztes_.underlined);
    if (format.color != letztes_.color)
        wort("\\cf", farben_.find(format.color & 0xFFFFFFU)->second);
    letztes_ = format;
}

void Schreiber::schalter(std::string_view an, std::string_view aus, bool neu, bool alt) {
    if (neu != alt)
        aus_ += neu ? an : aus;
}

void Schreiber::wort(std::string_view name, long long zahl) {
    aus_ += name;
    aus_ += std::to_string(zahl);
}

void Schreiber::text(std::wstring_view text) {
    for (const wchar_t einzelnes : text)
        zeichen(einzelnes);
}

void Schreiber::zeichen(wchar_t zeichen) {
    constexpr std::string_view hex = "0123456789abcdef";
    const auto wert = static_cast<std::uint32_t>(zeichen);
    if (zeichen == L'\t') {
        aus_ += "\\tab ";
    } else if (zeichen == L'\n') {
        aus_ += "\\line ";
    } else if (wert < 0x20) {
        return;
    } else if (const int byte = toWindows1252(zeichen); byte < 0) {
        unicode(wert);
    } else if (byte >= 0x7F || byte == ';') {
        // The semicolon ends a name in the font table, unless it is written as a number.
        aus_ += "\\'";
        aus_ += hex[static_cast<std::size_t>(byte) >> 4U];
        aus_ += hex[static_cast<std::size_t>(byte) & 15U];
    } else {
        if (byte == '\\' || byte == '{' || byte == '}')
            aus_ += '\\';
        aus_ += static_cast<char>(byte);
    }
}

// The numbers of \u are 16-bit and signed; larger characters go out as a surrogate pair.
void Schreiber::unicode(std::uint32_t wert) {
    const auto einheit = [this](std::uint32_t zahl) {
        wort("\\u", static_cast<std::int16_t>(zahl));
        aus_ += '?';
    };
    if (wert > 0x10FFFF || (wert >= 0xD800 && wert <= 0xDFFF)) {
        aus_ += '?';
    } else if (wert > 0xFFFF) {
        einheit(0xD800 + ((wert - 0x10000) >> 10U));
        einheit(0xDC00 + ((wert - 0x10000) & 0x3FFU));
    } else {
        einheit(wert);
    }
}

} // namespace

std::string writeRtf(const RtfDocument& dokument) { return Schreiber{}.schreibe(dokument); }

} // namespace klopfmeise
