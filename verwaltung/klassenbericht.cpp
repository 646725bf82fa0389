#include "verwaltung/klassenbericht.h"

#include "platform/values/text.h"
#include "platform/values/utf8.h"
#include "store/lektionsdatei.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace klopfmeise {

namespace {

constexpr wchar_t komma = L',';
constexpr const wchar_t* unbekannt = L"–";
constexpr std::size_t spaltenzahl = 9;
using Felder = std::array<std::wstring, spaltenzahl>;

const Felder überschriften{L"Name",      L"Lektion", L"Stufe",  L"Genauigkeit", L"Texte",
                           L"Anschläge", L"Wolken",  L"Steine", L"Fließband"};

bool fertig(const Kontostand& stand) { return zahlAus(stand.Lektionsnummer).value_or(0) > Lektionenzahl; }

Felder felder(const Berichtszeile& zeile) {
    Felder aus;
    aus.fill(unbekannt);
    aus[0] = zeile.name;
    if (!zeile.stand)
        return aus;
    const Kontostand& stand = *zeile.stand;
    aus[1] = fertig(stand) ? L"fertig" : textAus(stand.Lektionsnummer, komma);
    if (!fertig(stand))
        aus[2] = textAus(stand.Stufennummer, komma);
    aus[3] = formatted(stand.Genauigkeit, 2, komma);
    aus[4] = textAus(stand.texte.TexteGesamt, komma);
    aus[5] = textAus(stand.texte.AnschlaegeSchnitt, komma);
    aus[6] = textAus(stand.HighWolken, komma);
    aus[7] = textAus(stand.HighSteine, komma);
    aus[8] = textAus(stand.HighBand, komma);
    return aus;
}

std::string kinderzahl(const Klassenbericht& bericht) {
    return bericht.kinder.size() == 1 ? "1 Kind" : std::to_string(bericht.kinder.size()) + " Kinder";
}

/// Of a character that would break line or markup.
std::wstring ohneSteuerzeichen(std::wstring text) {
    std::ranges::replace_if(
        text, [](wchar_t c) { return c < L' ' || (c >= 0x7F && c <= 0x9F); }, L'?');
    return text;
}

std::string feldtext(const std::wstring& text) { return toUtf8(ohneSteuerzeichen(text)); }

std::string csvFeld(const std::wstring& text) {
    const std::string inhalt = feldtext(text);
    if (inhalt.find_first_of(";\"") == std::string::npos)
        return inhalt;
    std::string aus = "\"";
    for (const char c : inhalt)
        aus += c == '"' ? std::string("\"\"") : std::string(1, c);
    return aus + "\"";
}

std::string htmlText(const std::wstring& text) {
    std::string aus;
    for (const char c : feldtext(text)) {
        switch (c) {
        case '&':
            aus += "&amp;";
            break;
        case '<':
            aus += "&lt;";
            break;
        case '>':
            aus += "&gt;";
            break;
        case '"':
            aus += "&quot;";
            break;
        default:
            aus += c;
        }
    }
    return aus;
}

/// A number with a bar of this share of the cell behind it.
std::string balken(const std::wstring& text, double prozent) {
    const auto breite = static_cast<int>(std::lround(std::clamp(prozent, 0.0, 100.0)));
    return "<td class=\"b\"><i style=\"width:" + std::to_string(breite) + "%\"></i><span>" + htmlText(text) +
           "</span></td>";
}

/// How much of the course is done, by whole lessons. Percent.
double kursanteil(const Kontostand& stand) {
    return 100 * (zahlAus(stand.Lektionsnummer).value_or(1) - 1) / Lektionenzahl;
}

constexpr const char* stil = R"(body{font:11pt sans-serif;margin:1.5cm}
h1{font-size:16pt;margin:0}
table{border-collapse:collapse;width:100%;margin-top:1em}
th,td{border:1px solid #808080;padding:.25em .5em;text-align:right}
th{background:#eccfc8}
th:first-child,td:first-child{text-align:left}
tr{break-inside:avoid}
thead{display:table-header-group}
.b{position:relative;min-width:5em}
.b i{position:absolute;left:0;top:0;bottom:0;background:#c0ffc0}
.b span{position:relative}
*{print-color-adjust:exact;-webkit-print-color-adjust:exact}
@page{size:A4 landscape;margin:1cm}
@media print{body{margin:0}}
)";

} // namespace

std::string alsTabelle(const Klassenbericht& bericht) {
    std::vector<Felder> zeilen{überschriften};
    std::ranges::transform(bericht.kinder, std::back_inserter(zeilen), felder);
    std::array<std::size_t, spaltenzahl> breiten{};
    for (Felder& zeile : zeilen)
        for (std::size_t i = 0; i < spaltenzahl; ++i) {
            zeile[i] = ohneSteuerzeichen(zeile[i]);
            breiten[i] = std::max(breiten[i], zeile[i].size());
        }
    std::string aus = "Klasse " + feldtext(bericht.klasse) + ", " + toUtf8(bericht.datum) + ", " +
                      kinderzahl(bericht) + "\n\n";
    for (const Felder& zeile : zeilen) {
        std::wstring text = zeile[0] + std::wstring(breiten[0] - zeile[0].size(), L' ');
        for (std::size_t i = 1; i < spaltenzahl; ++i)
            text += std::wstring(breiten[i] - zeile[i].size() + 2, L' ') + zeile[i];
        aus += toUtf8(text) + "\n";
    }
    return aus;
}

std::string alsCsv(const Klassenbericht& bericht) {
    std::string aus(utf8ByteOrderMark);
    const auto zeile = [&](const Felder& felder) {
        for (std::size_t i = 0; i < spaltenzahl; ++i)
            aus += (i == 0 ? "" : ";") + csvFeld(felder[i]);
        aus += "\r\n";
    };
    zeile(überschriften);
    for (const Berichtszeile& kind : bericht.kinder)
        zeile(felder(kind));
    return aus;
}

std::string alsHtml(const Klassenbericht& bericht) {
    const std::string titel = "Klasse " + htmlText(bericht.klasse);
    std::string aus = "<!DOCTYPE html>\n<html lang=\"de\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
                      titel + "</title>\n<style>\n" + stil + "</style>\n</head>\n<body>\n<h1>" + titel +
                      "</h1>\n<p>" + htmlText(bericht.datum) + ", " + kinderzahl(bericht) +
                      "</p>\n<table>\n<thead><tr>";
    for (const std::wstring& wort : überschriften)
        aus += "<th>" + htmlText(wort == L"Anschläge" ? L"Anschläge pro Minute" : wort) + "</th>";
    aus += "</tr></thead>\n<tbody>\n";
    for (const Berichtszeile& kind : bericht.kinder) {
        const Felder zeile = felder(kind);
        aus += "<tr>";
        for (std::size_t i = 0; i < spaltenzahl; ++i)
            if (kind.stand && i == 1)
                aus += balken(zeile[i], kursanteil(*kind.stand));
            else if (kind.stand && i == 3)
                aus += balken(zeile[i] + L" %", kind.stand->Genauigkeit);
            else
                aus += "<td>" + htmlText(zeile[i]) + "</td>";
        aus += "</tr>\n";
    }
    return aus + "</tbody>\n</table>\n</body>\n</html>\n";
}

} // namespace klopfmeise
