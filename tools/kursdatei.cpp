#include "tools/kursdatei.h"

#include "platform/values/utf8.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace klopfmeise {

namespace {

[[noreturn]] void melde(const std::string& name, std::size_t zeile, const std::string& text) {
    throw std::runtime_error(name + ":" + std::to_string(zeile) + ": " + text);
}

/// Strict UTF-8 up to U+FFFF: overlong forms, surrogates and longer sequences are errors.
std::wstring ausUtf8(std::string_view bytes, const std::string& name, std::size_t zeile) {
    std::wstring aus;
    for (std::size_t i = 0; i < bytes.size();) {
        const auto [zeichen, länge] = utf8CharacterAt(bytes, i);
        if (länge == 0 || zeichen > 0xFFFF)
            melde(name, zeile, "kein gültiges UTF-8");
        if (zeichen < 0x20)
            melde(name, zeile, "Steuerzeichen in der Zeile");
        aus += zeichen;
        i += länge;
    }
    return aus;
}

class Leser {
public:
    Leser(std::string_view utf8, const std::string& dateiname)
        : name(dateiname) {
        for (std::size_t anfang = 0; anfang < utf8.size();) {
            const std::size_t ende = std::min(utf8.find('\n', anfang), utf8.size());
            zeilen.push_back(ausUtf8(utf8.substr(anfang, ende - anfang), name, zeilen.size() + 1));
            anfang = ende + 1;
        }
    }

    Kurslektion lektion() {
        Kurslektion aus;
        aus.titel = feld(L"Titel:", "Titel:");
        aus.art = feld(L"Art:", "Art:");
        if (aus.art != ArtEinzeiler && aus.art != ArtFließtext)
            melde(name, stelle, "Art muss Einzeiler oder Fließtext sein");
        neueTasten(aus, feld(L"Tasten:", "Tasten:", true));
        while (stelle < zeilen.size()) {
            leerzeile();
            aus.stufen.push_back(stufe(aus.art == ArtFließtext));
        }
        if (aus.stufen.size() != StufenJeLektion)
            melde(name, zeilen.size(),
                  std::to_string(aus.stufen.size()) + " Stufen statt " + std::to_string(StufenJeLektion));
        return aus;
    }

private:
    /// What stands behind the key word of the next line.
    std::wstring feld(std::wstring_view wort, const char* wortUtf8, bool leerErlaubt = false) {
        if (stelle >= zeilen.size() || !zeilen[stelle].starts_with(wort))
            melde(name, stelle + 1, std::string("\"") + wortUtf8 + "\" erwartet");
        std::wstring inhalt = zeilen[stelle++].substr(wort.size());
        if (inhalt.empty()) {
            if (!leerErlaubt)
                melde(name, stelle, std::string("hinter \"") + wortUtf8 + "\" fehlt der Text");
            return inhalt;
        }
        if (inhalt.front() != L' ' || inhalt.size() == 1 || inhalt[1] == L' ' || inhalt.back() == L' ')
            melde(name, stelle,
                  std::string("hinter \"") + wortUtf8 + "\" steht genau ein Leerzeichen, am Ende keines");
        return inhalt.substr(1);
    }

    void leerzeile() {
        if (!zeilen[stelle].empty())
            melde(name, stelle + 1, "Leerzeile erwartet");
        ++stelle;
    }

    void neueTasten(Kurslektion& aus, const std::wstring& liste) const {
        for (std::size_t anfang = 0; anfang < liste.size();) {
            const std::size_t ende = std::min(liste.find(L' ', anfang), liste.size());
            const std::wstring wort = liste.substr(anfang, ende - anfang);
            if (wort == L"Umschalt")
                aus.umschalt = true;
            else if (wort.size() == 1)
                aus.tasten.push_back(wort);
            else
                melde(name, stelle,
                      "hinter \"Tasten:\" stehen einzelne Zeichen oder Umschalt, je ein Leerzeichen "
                      "dazwischen");
            anfang = ende + 1;
        }
    }

    Kursstufe stufe(bool fließtext) {
        Kursstufe aus;
        aus.titel = feld(L"Stufe:", "Stufe:");
        aus.hinweis = feld(L"Hinweis:", "Hinweis:");
        aus.text = feld(L"Text:", "Text:");
        while (fließtext && stelle < zeilen.size() && !zeilen[stelle].empty()) {
            const std::wstring& zeile = zeilen[stelle++];
            if (zeile.front() == L' ' || zeile.back() == L' ')
                melde(name, stelle, "Leerzeichen am Rand einer Textzeile");
            aus.text += L' ' + zeile;
        }
        return aus;
    }

    const std::string& name;
    std::vector<std::wstring> zeilen;
    std::size_t stelle = 0; ///< index of the next line, so also the number of the line read last
};

} // namespace

Kurslektion zerlegeKurslektion(std::string_view utf8, const std::string& name) {
    return Leser(utf8, name).lektion();
}

Kurslektion leseKurslektion(const std::filesystem::path& datei) {
    std::ifstream strom(datei, std::ios::binary);
    const std::string inhalt{std::istreambuf_iterator<char>(strom), {}};
    if (!strom)
        throw std::runtime_error(datei.string() + ": nicht lesbar");
    return zerlegeKurslektion(inhalt, datei.string());
}

std::vector<Kurslektion> leseKurs(const std::filesystem::path& ordner) {
    std::vector<Kurslektion> kurs;
    for (std::size_t n = 1; n <= Lektionszahl; ++n)
        kurs.push_back(
            leseKurslektion(ordner / ((n < 10 ? "Lektion0" : "Lektion") + std::to_string(n) + ".txt")));
    return kurs;
}

} // namespace klopfmeise
