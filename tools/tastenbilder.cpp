// Makes the pictures of the 59 keys, one SVG file a key: `tastenbilder OUTDIR`.
// The pictures are drawn with what SVG Tiny knows, since Qt SVG draws no more than that.

#include "course/tastenlegende.h"
#include "screens/tastenplan.h"
#include "tools/tastenfarben.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

namespace {

using namespace klopfmeise;

constexpr int TwipsJePunkt = 15;

/// The cap leaves this rim of the picture free, in pixels: the frame behind a lit key shows through it.
constexpr double Rim = 2;
/// Height of the shaded side below the face.
constexpr double Seite = 3.5;

/// UTF-8 with the characters escaped that mean something to XML. Legends lie below U+10000.
std::string xml(std::wstring_view text) {
    std::string aus;
    for (const wchar_t zeichen : text) {
        const auto z = static_cast<unsigned>(zeichen);
        if (z == '<')
            aus += "&lt;";
        else if (z == '>')
            aus += "&gt;";
        else if (z == '&')
            aus += "&amp;";
        else if (z == '"')
            aus += "&quot;";
        else if (z < 0x80)
            aus += static_cast<char>(z);
        else {
            if (z >= 0x800) {
                aus += static_cast<char>(0xE0 | (z >> 12));
                aus += static_cast<char>(0x80 | ((z >> 6) & 0x3F));
            } else
                aus += static_cast<char>(0xC0 | (z >> 6));
            aus += static_cast<char>(0x80 | (z & 0x3F));
        }
    }
    return aus;
}

class Tastenbild {
public:
    explicit Tastenbild(const Taste& dieTaste)
        : taste(dieTaste)
        , breite(dieTaste.lage.width / static_cast<double>(TwipsJePunkt))
        , höhe(dieTaste.lage.height / static_cast<double>(TwipsJePunkt)) {}

    std::string svg() {
        aus << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << breite << "\" height=\"" << höhe
            << "\" viewBox=\"0 0 " << breite << ' ' << höhe << "\">\n";
        kappe();
        beschriftung();
        aus << "</svg>\n";
        return aus.str();
    }

private:
    void kappe() {
        const Kappenfarbe& farbe = kappenfarbe(taste);
        const double b = breite - 2 * Rim;
        const double h = höhe - 2 * Rim;
        rechteck(Rim, Rim, b, h, 7, farbe.rand);
        rechteck(Rim + 1, Rim + 0.5, b - 2, h - Seite, 6, farbe.fläche);
        // Light from above left: a soft bright line along the upper edge of the face.
        aus << "<path d=\"M" << Rim + 6 << ' ' << Rim + 2 << " H" << breite - Rim - 6
            << "\" stroke=\"#ffffff\" stroke-opacity=\"0.65\" stroke-width=\"1.6\" stroke-linecap=\"round\" "
               "fill=\"none\"/>\n";
    }

    void beschriftung() {
        const double mx = breite / 2;
        const double my = (höhe - Seite) / 2 + 0.5;
        switch (taste.nummer) {
        case TasteRück:
            pfeil(mx, my, 30, true);
            return;
        case TasteTabulator:
            tabulator(mx, my);
            return;
        case TasteEingabe:
            eingabe(mx, my);
            return;
        case TasteFeststell:
            feststell(mx, my);
            return;
        case TasteUmschaltLinks:
        case TasteUmschaltRechts:
            umschalt(mx, my);
            return;
        default:
            break;
        }
        const Tastenlegende& legende = Tastenlegenden[static_cast<std::size_t>(taste.nummer - 1)];
        if (legende.haupt.size() > 1) {
            text(mx, my + 5, 14, true, "middle", legende.haupt);
            return;
        }
        if (legende.umschalt.empty()) {
            text(8.5, 26, 20, true, "start", legende.haupt);
            if (!legende.altGr.empty())
                text(breite - 5.5, 36, 13, false, "end", legende.altGr);
        } else {
            text(8.5, zugabe(legende.umschalt) > 0 ? 20 : 18.5, 14 + zugabe(legende.umschalt), false, "start",
                 legende.umschalt);
            text(8.5, 35.5, 18 + zugabe(legende.haupt), true, "start", legende.haupt);
            if (!legende.altGr.empty())
                text(breite - 6.5, 35, 14 + zugabe(legende.altGr), false, "end", legende.altGr);
        }
        if (legende.haupt == L"F" || legende.haupt == L"J")
            rechteck(mx - 6, höhe - 10.5, 12, 2.6, 1.3, Tinte);
    }

    /// Marks that are mere dots and strokes are printed larger, in pixels, or a child overlooks them.
    static double zugabe(std::wstring_view legende) {
        return legende.find_first_of(L"^°´`'.,;:-_~*²³") == std::wstring_view::npos ? 0 : 4;
    }

    void rechteck(double x, double y, double b, double h, double radius, std::string_view farbe) {
        aus << "<rect x=\"" << x << "\" y=\"" << y << "\" width=\"" << b << "\" height=\"" << h << "\" rx=\""
            << radius << "\" ry=\"" << radius << "\" fill=\"" << farbe << "\"/>\n";
    }

    void text(double x, double y, double größe, bool fett, std::string_view anker, std::wstring_view inhalt) {
        aus << "<text x=\"" << x << "\" y=\"" << y << "\" font-family=\"Liberation Sans\" font-size=\""
            << größe << "\" font-weight=\"" << (fett ? "bold" : "normal") << "\" text-anchor=\"" << anker
            << "\" fill=\"" << Tinte << "\">" << xml(inhalt) << "</text>\n";
    }

    void linie(const std::string& pfad) {
        aus << "<path d=\"" << pfad << "\" fill=\"none\" stroke=\"" << Tinte
            << "\" stroke-width=\"2.4\" stroke-linecap=\"round\" stroke-linejoin=\"round\"/>\n";
    }

    static std::string punkt(double x, double y) { return std::to_string(x) + ' ' + std::to_string(y) + ' '; }

    /// Horizontal arrow of the given length around the point, its head at the left or the right end.
    void pfeil(double x, double y, double länge, bool nachLinks) {
        const double richtung = nachLinks ? -1 : 1;
        const double spitze = x + richtung * länge / 2;
        const double flügel = spitze - richtung * 6;
        linie("M" + punkt(x - richtung * länge / 2, y) + "L" + punkt(spitze, y) + "M" + punkt(flügel, y - 6) +
              "L" + punkt(spitze, y) + "L" + punkt(flügel, y + 6));
    }

    void tabulator(double x, double y) {
        pfeil(x + 2, y - 6, 22, true);
        linie("M" + punkt(x - 13, y - 12) + "V" + std::to_string(y));
        pfeil(x - 2, y + 6, 22, false);
        linie("M" + punkt(x + 13, y) + "V" + std::to_string(y + 12));
    }

    void eingabe(double x, double y) {
        linie("M" + punkt(x + 12, y - 16) + "V" + std::to_string(y + 6) + "H" + std::to_string(x - 12) + "M" +
              punkt(x - 5, y - 1) + "L" + punkt(x - 12, y + 6) + "L" + punkt(x - 5, y + 13));
    }

    /// Outline of an upward arrow whose shaft ends at y + fuß.
    void pfeilkontur(double x, double y, double fuß) {
        linie("M" + punkt(x, y - 11) + "L" + punkt(x + 10.5, y) + "H" + std::to_string(x + 5) + "V" +
              std::to_string(y + fuß) + "H" + std::to_string(x - 5) + "V" + std::to_string(y) + "H" +
              std::to_string(x - 10.5) + "Z");
    }

    void umschalt(double x, double y) { pfeilkontur(x, y, 10); }

    void feststell(double x, double y) {
        pfeilkontur(x, y, 5);
        linie("M" + punkt(x - 5, y + 10.5) + "H" + std::to_string(x + 5));
    }

    const Taste& taste;
    double breite;
    double höhe;
    std::ostringstream aus;
};

void schreibe(const std::filesystem::path& datei, const std::string& inhalt) {
    std::ofstream strom(datei, std::ios::binary);
    strom << inhalt;
    strom.close();
    if (!strom)
        throw std::runtime_error("kann nicht schreiben: " + datei.string());
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 2) {
        std::cerr << "Aufruf: tastenbilder ZIELORDNER\n";
        return 2;
    }
    const std::filesystem::path ziel = argv[1];
    std::filesystem::create_directories(ziel);
    for (const Taste& taste : tasten()) {
        const std::string nummer = std::to_string(taste.nummer);
        schreibe(ziel / ("taste_" + (nummer.size() < 2 ? "0" + nummer : nummer) + ".svg"),
                 Tastenbild(taste).svg());
    }
    return 0;
} catch (const std::exception& fehler) {
    std::cerr << "tastenbilder: " << fehler.what() << '\n';
    return 1;
}
