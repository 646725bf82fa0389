#include "platform/values/font.h"
#include "platform/values/text.h"
#include "screens/tastenplan.h"
#include "tests/buehne.h"
#include "tools/kursdatei.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

constexpr Font Beschriftung{L"Courier New", 12};
/// Width of the labels that show titles and hints, in twips.
constexpr int Beschriftungsbreite = 7680;

/// No word is longer than a line of the typing screens, or less.
bool brechbar(const std::wstring& text, int breite = 63) {
    return !std::regex_search(text, std::wregex(L"[^ \n]{" + std::to_wstring(breite + 1) + L"}"));
}

/// What stands at the edge of a text or twice in it where one blank belongs.
bool sauber(const std::wstring& text) {
    return !text.empty() && text.front() != L' ' && text.back() != L' ' &&
           text.find(L"  ") == std::wstring::npos;
}

TEST(Kurs, TitelUndHinweisePassenInIhreLabels) {
    for (const Kurslektion& lektion : leseKurs(KLOPFMEISE_KURS)) {
        EXPECT_EQ(wrappedLines(lektion.titel, Beschriftung, Beschriftungsbreite), 1) << toUtf8(lektion.titel);
        for (const Kursstufe& stufe : lektion.stufen) {
            SCOPED_TRACE(toUtf8(lektion.titel + L": " + stufe.titel));
            EXPECT_EQ(wrappedLines(stufe.titel, Beschriftung, Beschriftungsbreite), 1);
            EXPECT_LE(wrappedLines(stufe.hinweis, Beschriftung, Beschriftungsbreite), 2);
            EXPECT_TRUE(sauber(stufe.titel) && sauber(stufe.hinweis) && sauber(stufe.text));
            EXPECT_TRUE(brechbar(stufe.text));
        }
    }
}

TEST(Kurs, LehrtJedesZeichenDesTastenplans) {
    std::set<wchar_t> gelehrt{L' '};
    for (const Kurslektion& lektion : leseKurs(KLOPFMEISE_KURS))
        for (const std::wstring& taste : lektion.tasten)
            gelehrt.insert({taste.front(), taste.front() == L'ß' ? L'ß' : upper(taste.front())});
    for (const Taste& taste : tasten())
        for (const wchar_t z : taste.zeichen)
            EXPECT_TRUE(gelehrt.contains(z)) << toUtf8({&z, 1});
}

TEST(Kurs, HeftZeigtJedeStufeUndJedesBild) {
    if constexpr (!KLOPFMEISE_MIT_BILDERN)
        GTEST_SKIP() << "ohne Bilder gebaut";
    const std::string heft = dateiinhalt(fs::path(KLOPFMEISE_DATEN).parent_path() / "Kursheft.html");
    const auto steht = [&](const std::wstring& text) {
        std::string html = toUtf8(text);
        for (const auto& [zeichen, name] : {std::pair{"&", "&amp;"}, {"<", "&lt;"}, {">", "&gt;"}})
            html = std::regex_replace(html, std::regex(zeichen), name);
        return heft.find('>' + html + '<') != std::string::npos;
    };
    for (const Kurslektion& lektion : leseKurs(KLOPFMEISE_KURS))
        for (const Kursstufe& stufe : lektion.stufen)
            EXPECT_TRUE(steht(stufe.titel) && steht(stufe.text) && steht(stufe.hinweis))
                << toUtf8(stufe.titel);
    for (int n = 1; n <= 30; ++n)
        EXPECT_NE(heft.find("Tastatur der Lektion " + std::to_string(n) + "\" src=\"data:image/png;base64,"),
                  std::string::npos);
}

TEST(Kurs, FreieTexteSindTippbar) {
    for (const auto& datei : fs::directory_iterator(fs::path(KLOPFMEISE_KURS) / "texte")) {
        SCOPED_TRACE(datei.path().filename());
        EXPECT_EQ(datei.path().extension(), ".txt");
        std::wistringstream text(fromUtf8(dateiinhalt(datei.path())));
        EXPECT_TRUE(brechbar(text.str(), 60));
        for (std::wstring zeile; std::getline(text, zeile);) {
            EXPECT_TRUE(sauber(zeile)) << toUtf8(zeile);
            for (const wchar_t z : zeile)
                EXPECT_NE(tasteFür(z), 0) << toUtf8({&z, 1}) << " in: " << toUtf8(zeile);
        }
    }
}

} // namespace
} // namespace klopfmeise
