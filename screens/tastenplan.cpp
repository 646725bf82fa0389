#include "screens/tastenplan.h"

#include "screens/zeichencodes.h"

#include <algorithm>
#include <array>

namespace klopfmeise {

namespace {

constexpr int Raster = 735;
constexpr int Tastenmaß = 660;

/// Place of a key in a row of equal keys that begins with key `erste` at `links`.
constexpr Rect imRaster(int nummer, int erste, int links, int oben) {
    return {links + Raster * (nummer - erste), oben, Tastenmaß, Tastenmaß};
}

constexpr Rect lage(int nummer) {
    constexpr int Reihe1 = 645;
    constexpr int Reihe2 = Reihe1 + Raster;
    constexpr int Reihe3 = Reihe2 + Raster;
    constexpr int Reihe4 = Reihe3 + Raster;
    constexpr int Reihe5 = Reihe4 + Raster;
    switch (nummer) {
    case 1:
        return {675, Reihe1, 675, Tastenmaß};
    case TasteRück:
        return {10230, Reihe1, 1185, Tastenmaß};
    case TasteTabulator:
        return {675, Reihe2, 870, Tastenmaß};
    case TasteEingabe:
        return {10650, Reihe2, 765, Raster + Tastenmaß};
    case TasteFeststell:
        return {675, Reihe3, 1080, Tastenmaß};
    case TasteUmschaltLinks:
        return {675, Reihe4, 870, Tastenmaß};
    case TasteUmschaltRechts:
        return {9705, Reihe4, 1710, Tastenmaß};
    case TasteStrgLinks:
        return {675, Reihe5, 1185, Tastenmaß};
    case TasteAlt:
        return {2985, Reihe5, 1185, Tastenmaß};
    case TasteLeer:
        return {4245, Reihe5, 3390, Tastenmaß};
    case TasteAltGr:
        return {7710, Reihe5, 1080, Tastenmaß};
    case TasteStrgRechts:
        return {10230, Reihe5, 1185, Tastenmaß};
    default:
        break;
    }
    if (nummer < TasteRück)
        return imRaster(nummer, 2, 1410, Reihe1);
    if (nummer < TasteEingabe)
        return imRaster(nummer, 16, 1620, Reihe2);
    if (nummer < TasteUmschaltLinks)
        return imRaster(nummer, 30, 1830, Reihe3);
    return imRaster(nummer, 43, 1620, Reihe4);
}

struct Belegung {
    std::wstring_view name;
    std::wstring_view zeichen;
    int finger;
};

/// The double quote is missing on purpose: the course does not teach it, although the key of the 2 shows it.
constexpr std::array<Belegung, Tastenzahl> Belegungen{{
    {L"Zirkumflex", L"^°", 1},
    {L"1", L"1!", 1},
    {L"2", L"2²", 1},
    {L"3", L"3§³", 2},
    {L"4", L"4$", 3},
    {L"5", L"5%", 4},
    {L"6", L"6&", 4},
    {L"7", L"7/{", 7},
    {L"8", L"8([", 7},
    {L"9", L"9)]", 8},
    {L"0", L"0=}", 9},
    {L"ß", L"ß?\\", 10},
    {L"Akut", L"´`", 10},
    {L"Rücktaste", L"", 10},
    {L"Tabulator", L"", 0},
    {L"Q", L"qQ@", 1},
    {L"W", L"wW", 2},
    {L"E", L"eE€", 3},
    {L"R", L"rR", 4},
    {L"T", L"tT", 4},
    {L"Z", L"zZ", 7},
    {L"U", L"uU", 7},
    {L"I", L"iI", 8},
    {L"O", L"oO", 9},
    {L"P", L"pP", 10},
    {L"Ü", L"üÜ", 10},
    {L"Plus", L"+*~", 10},
    {L"Eingabetaste", L"", 10},
    {L"Feststelltaste", L"", 0},
    {L"A", L"aA", 1},
    {L"S", L"sS", 2},
    {L"D", L"dD", 3},
    {L"F", L"fF", 4},
    {L"G", L"gG", 4},
    {L"H", L"hH", 7},
    {L"J", L"jJ", 7},
    {L"K", L"kK", 8},
    {L"L", L"lL", 9},
    {L"Ö", L"öÖ", 10},
    {L"Ä", L"äÄ", 10},
    {L"Raute", L"#'", 10},
    {L"Umschalttaste links", L"", 0},
    {L"Kleiner als", L"<>|", 1},
    {L"Y", L"yY", 1},
    {L"X", L"xX", 2},
    {L"C", L"cC", 3},
    {L"V", L"vV", 4},
    {L"B", L"bB", 4},
    {L"N", L"nN", 7},
    {L"M", L"mM", 7},
    {L"Komma", L",;", 8},
    {L"Punkt", L".:", 9},
    {L"Bindestrich", L"-_", 10},
    {L"Umschalttaste rechts", L"", 0},
    {L"Strg links", L"", 0},
    {L"Alt", L"", 0},
    {L"Leertaste", L" ", 5},
    {L"Alt Gr", L"", 0},
    {L"Strg rechts", L"", 0},
}};

constexpr auto Tasten = [] {
    std::array<Taste, Tastenzahl> alle{};
    for (int nummer = 1; nummer <= Tastenzahl; ++nummer) {
        const auto i = static_cast<std::size_t>(nummer - 1);
        alle[i] = {nummer, Belegungen[i].name, Belegungen[i].zeichen, Belegungen[i].finger, lage(nummer)};
    }
    return alle;
}();

constexpr std::array<Rect, Fingerzahl> Fingerbilder{{
    {1485, 5025, 660, 1125},
    {2190, 4455, 720, 1695},
    {2985, 4335, 720, 1815},
    {3750, 4470, 780, 1680},
    {6720, 5475, 360, 360},
    {6480, 5310, 855, 840},
    {7605, 4440, 705, 1710},
    {8400, 4320, 720, 1830},
    {9180, 4455, 720, 1695},
    {9945, 5025, 660, 1125},
}};

} // namespace

std::span<const Taste> tasten() { return Tasten; }

const Taste& taste(int nummer) { return Tasten.at(static_cast<std::size_t>(nummer - 1)); }

int tasteFür(wchar_t zeichen) {
    const auto treffer = std::ranges::find_if(
        Tasten, [zeichen](const Taste& t) { return t.zeichen.find(zeichen) != std::wstring_view::npos; });
    return treffer == Tasten.end() ? 0 : treffer->nummer;
}

int tasteFürZeichencode(wchar_t code) {
    if (code == CodeRück)
        return TasteRück;
    if (code == CodeEingabe)
        return TasteEingabe;
    return tasteFür(code);
}

std::vector<int> tastenFürTastencode(int code) {
    switch (code) {
    case 9:
        return {TasteTabulator};
    case 16:
        return {TasteUmschaltLinks, TasteUmschaltRechts};
    case 17:
        return {TasteStrgLinks, TasteStrgRechts};
    case 18:
        return {TasteAlt};
    case 20:
        return {TasteFeststell};
    default:
        return {};
    }
}

std::vector<int> fingerFür(int tastennummer) {
    const int finger = taste(tastennummer).finger;
    if (finger == 0)
        return {};
    if (finger == 5)
        return {5, 6};
    return {finger};
}

const Rect& fingerbild(int finger) { return Fingerbilder.at(static_cast<std::size_t>(finger - 1)); }

} // namespace klopfmeise
