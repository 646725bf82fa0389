// Makes the booklet on which a teacher reads the whole course: kursheft KURS BILDER ZIEL.html

#include "platform/values/text.h"
#include "tools/kursdatei.h"

#include <QBuffer>
#include <QImage>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <numeric>
#include <ranges>
#include <stdexcept>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using namespace klopfmeise;

namespace {

constexpr std::string_view Kopf = R"(<!DOCTYPE html>
<html lang="de">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Klopfmeise: der Kurs</title>
<style>
body { font: 11pt/1.45 "Liberation Sans", Arial, sans-serif; color: #222; max-width: 62em; margin: 2em auto; padding: 0 1em; }
h1 { font-size: 22pt; margin: 0 0 .2em; }
h2 { font-size: 15pt; border-bottom: 3px solid #cc6666; padding-bottom: .15em; margin: 2.2em 0 .6em; }
h2 small { font-weight: normal; color: #555; }
table { border-collapse: collapse; width: 100%; }
th, td { text-align: left; vertical-align: top; padding: .25em .6em; border-bottom: 1px solid #d8d8d8; }
th { background: #eccfc8; }
td.zahl, th.zahl { text-align: right; white-space: nowrap; }
img { display: block; width: 100%; max-width: 44em; margin: .6em auto; }
ol { padding-left: 2em; }
li { margin: 0 0 .8em; break-inside: avoid; }
li b { display: block; }
.text { font-family: "Liberation Mono", "Courier New", monospace; background: #f5f1ea; padding: .15em .4em; white-space: pre-wrap; overflow-wrap: anywhere; }
.hinweis { color: #555; }
a { color: #7a2f2f; }
@media print {
  body { margin: 0; max-width: none; font-size: 10pt; }
  section.lektion { break-before: page; }
  img { max-width: 34em; }
  a { color: inherit; text-decoration: none; }
}
</style>
</head>
<body>
)";

std::string html(std::wstring_view text) {
    std::string aus;
    for (const char c : toUtf8(std::wstring(text)))
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
        default:
            aus += c;
        }
    return aus;
}

std::string neueTasten(const Kurslektion& lektion) {
    std::wstring alle = lektion.umschalt ? L"Umschalttaste" : L"";
    for (const std::wstring& taste : lektion.tasten)
        alle += (alle.empty() ? L"" : L" ") + taste;
    return alle.empty() ? "–" : html(alle);
}

std::size_t zeichenzahl(const Kurslektion& lektion) {
    return std::accumulate(lektion.stufen.begin(), lektion.stufen.end(), std::size_t{},
                           [](std::size_t summe, const Kursstufe& s) { return summe + s.text.size(); });
}

/// The lesson's picture inside the page, so that one file is the whole booklet.
std::string bild(const fs::path& datei) {
    const QImage gelesen(QString::fromStdString(datei.string()));
    QByteArray png;
    QBuffer puffer(&png);
    if (gelesen.isNull() || !gelesen.save(&puffer, "PNG"))
        throw std::runtime_error(datei.string() + ": kein lesbares Bild");
    return "data:image/png;base64," + png.toBase64().toStdString();
}

void plan(std::ostream& aus, const std::vector<Kurslektion>& kurs) {
    aus << "<table>\n<tr><th class=\"zahl\">Lektion</th><th>Titel</th><th>Neue Tasten</th><th>Art</th>"
           "<th class=\"zahl\">Zeichen je Stufe</th><th class=\"zahl\">in allem</th></tr>\n";
    for (std::size_t n = 1; n <= kurs.size(); ++n) {
        const Kurslektion& lektion = kurs[n - 1];
        const auto länge = [](const Kursstufe& s) { return s.text.size(); };
        const auto [kurz, lang] = std::ranges::minmax(lektion.stufen | std::views::transform(länge));
        const std::string bis = kurz == lang ? "" : " bis " + std::to_string(lang);
        aus << "<tr><td class=\"zahl\"><a href=\"#lektion" << n << "\">" << n << "</a></td><td>"
            << html(lektion.titel) << "</td><td>" << neueTasten(lektion) << "</td><td>" << html(lektion.art)
            << "</td><td class=\"zahl\">" << kurz << bis << "</td><td class=\"zahl\">" << zeichenzahl(lektion)
            << "</td></tr>\n";
    }
    aus << "</table>\n";
}

void lektionZeigen(std::ostream& aus, const Kurslektion& lektion, std::size_t nummer,
                   const fs::path& bilder) {
    aus << "<section class=\"lektion\" id=\"lektion" << nummer << "\">\n<h2>Lektion " << nummer << ": "
        << html(lektion.titel) << " <small>neu: " << neueTasten(lektion)
        << "</small></h2>\n<img alt=\"Tastatur der Lektion " << nummer << "\" src=\""
        << bild(bilder / ("Lektion" + std::to_string(nummer) + ".bmp")) << "\">\n<ol>\n";
    for (const Kursstufe& stufe : lektion.stufen)
        aus << "<li><b>" << html(stufe.titel) << "</b><div class=\"text\">" << html(stufe.text)
            << "</div><span class=\"hinweis\">" << html(stufe.hinweis) << "</span></li>\n";
    aus << "</ol>\n</section>\n";
}

void freieTexte(std::ostream& aus, const fs::path& ordner) {
    std::vector<fs::path> dateien;
    for (const auto& eintrag : fs::directory_iterator(ordner))
        if (eintrag.path().extension() == ".txt")
            dateien.push_back(eintrag.path());
    std::ranges::sort(dateien);
    aus << "<section class=\"lektion\" id=\"texte\">\n<h2>Texte für „Text tippen“</h2>\n";
    for (const fs::path& datei : dateien) {
        std::ifstream strom(datei, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(strom), {}};
        if (!strom && !strom.eof())
            throw std::runtime_error(datei.string() + ": nicht lesbar");
        aus << "<h3>" << html(datei.stem().wstring()) << "</h3>\n<div class=\"text\">" << html(fromUtf8(text))
            << "</div>\n";
    }
    aus << "</section>\n";
}

void machen(const fs::path& ordner, const fs::path& bilder, const fs::path& ziel) {
    const std::vector<Kurslektion> kurs = leseKurs(ordner);
    std::ofstream aus(ziel, std::ios::binary);
    aus << Kopf << "<h1>Klopfmeise: der Kurs</h1>\n<p>" << kurs.size() << " Lektionen mit je "
        << StufenJeLektion << " Stufen, und die <a href=\"#texte\">Texte für „Text tippen“</a>.</p>\n";
    plan(aus, kurs);
    for (std::size_t n = 1; n <= kurs.size(); ++n)
        lektionZeigen(aus, kurs[n - 1], n, bilder);
    freieTexte(aus, ordner / "texte");
    aus << "</body>\n</html>\n";
    if (!aus.flush())
        throw std::runtime_error(ziel.string() + ": lässt sich nicht schreiben");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "Aufruf: kursheft KURS BILDER ZIEL.html\n";
        return 2;
    }
    try {
        machen(argv[1], argv[2], argv[3]);
    } catch (const std::exception& fehler) {
        std::cerr << fehler.what() << '\n';
        return 1;
    }
    return 0;
}
