#include "platform/values/font.h"
#include "platform/values/text.h"
#include "screens/tastenplan.h"
#include "tests/buehne.h"
#include "tools/kursdatei.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

constexpr Font Beschriftung{L"Courier New", 12};
/// Width of the labels that show titles and hints, in twips.
constexpr int Beschriftungsbreite = 7680;

const std::vector<Kurslektion>& kurs() {
    static const std::vector<Kurslektion> alle = leseKurs(KLOPFMEISE_KURS);
    return alle;
}

/// No word is longer than a line of the typing screens, or less.
bool brechbar(const std::wstring& text, int breite = 63) {
    return !std::regex_search(text, std::wregex(L"[^ \n]{" + std::to_wstring(breite + 1) + L"}"));
}

/// What stands at the edge of a text or twice in it where one blank belongs.
bool sauber(const std::wstring& text) {
    return !text.empty() && text.front() != L' ' && text.back() != L' ' &&
           text.find(L"  ") == std::wstring::npos;
}

TEST(Kurs, StufenHaltenLängeUndBeschriftung) {
    std::set<std::wstring> texte;
    std::set<std::wstring> hinweise;
    for (std::size_t n = 0; n < kurs().size(); ++n) {
        const Kurslektion& lektion = kurs()[n];
        const bool einzeiler = lektion.art == ArtEinzeiler;
        EXPECT_EQ(wrappedLines(lektion.titel, Beschriftung, Beschriftungsbreite), 1) << n + 1;
        std::size_t volle = 0;
        for (std::size_t s = 0; s < lektion.stufen.size(); ++s) {
            const Kursstufe& stufe = lektion.stufen[s];
            SCOPED_TRACE(testing::Message() << "Lektion " << n + 1 << ", Stufe " << s + 1);
            EXPECT_EQ(wrappedLines(stufe.titel, Beschriftung, Beschriftungsbreite), 1);
            EXPECT_LE(wrappedLines(stufe.hinweis, Beschriftung, Beschriftungsbreite), 2);
            EXPECT_TRUE(sauber(stufe.titel) && sauber(stufe.hinweis) && sauber(stufe.text));
            EXPECT_TRUE(brechbar(stufe.text));
            EXPECT_GE(stufe.text.size(), einzeiler ? 40u : 200u);
            EXPECT_LE(stufe.text.size(), einzeiler ? 55u : 600u);
            volle += stufe.text.size() == 55;
            EXPECT_TRUE(texte.insert(stufe.text).second) << "der Text einer früheren Stufe";
            EXPECT_TRUE(hinweise.insert(stufe.hinweis).second) << "der Hinweis einer früheren Stufe";
        }
        EXPECT_GE(volle, einzeiler ? 8u : 0u) << "volle Zeilen in Lektion " << n + 1;
    }
    EXPECT_EQ(texte.size(), 360u);
}

TEST(Kurs, TexteVerlangenNurEingeführteTasten) {
    std::set<wchar_t> bekannt{L' '};
    bool groß = false;
    for (std::size_t n = 0; n < kurs().size(); ++n) {
        SCOPED_TRACE(n + 1);
        const Kurslektion& lektion = kurs()[n];
        std::set<wchar_t> ungeübt;
        for (const std::wstring& taste : lektion.tasten) {
            EXPECT_NE(tasteFür(taste.front()), 0) << toUtf8(taste);
            EXPECT_TRUE(bekannt.insert(taste.front()).second) << "schon eingeführt: " << toUtf8(taste);
            ungeübt.insert(taste.front());
        }
        groß = groß || lektion.umschalt;
        if (groß)
            for (const wchar_t z : std::set(bekannt))
                bekannt.insert(z == L'ß' ? z : upper(z));
        for (const Kursstufe& stufe : lektion.stufen)
            for (const wchar_t z : stufe.text) {
                ungeübt.erase(z);
                EXPECT_TRUE(bekannt.contains(z)) << toUtf8(stufe.titel) << ": " << toUtf8({&z, 1});
            }
        EXPECT_TRUE(ungeübt.empty()) << "übt ihre neue Taste nicht: " << ungeübt.size();
    }
    for (const Taste& taste : tasten())
        for (const wchar_t z : taste.zeichen)
            EXPECT_TRUE(bekannt.contains(z)) << "nie eingeführt: " << toUtf8({&z, 1});
}

TEST(Kurs, PlanDerLehrkräfteStimmtMitDenLektionen) {
    std::map<std::wstring, std::pair<std::wstring, std::wstring>> plan;
    const std::wstring blatt = fromUtf8(dateiinhalt(fs::path(KLOPFMEISE_KURS) / "README.md"));
    // A backslash stands before what Markdown would take for its own.
    const std::wregex reihe(LR"(\| (\d+) \| (.+?) \| (.+?) \| .+ \|)");
    for (std::wsregex_iterator it(blatt.begin(), blatt.end(), reihe), ende; it != ende; ++it) {
        const std::wstring tasten = std::regex_replace(it->str(2), std::wregex(LR"(\\(.))"), L"$1");
        EXPECT_TRUE(plan.emplace(it->str(1), std::pair(tasten, it->str(3))).second);
    }
    EXPECT_EQ(plan.size(), Lektionszahl);
    for (std::size_t n = 0; n < kurs().size(); ++n) {
        SCOPED_TRACE(n + 1);
        std::wstring tasten = kurs()[n].umschalt ? L"Umschalt" : L"";
        for (const std::wstring& taste : kurs()[n].tasten)
            tasten += (tasten.empty() ? L"" : L" ") + taste;
        EXPECT_EQ(std::pair(tasten.empty() ? L"keine" : tasten, kurs()[n].art), plan[std::to_wstring(n + 1)]);
    }
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
    for (int n = 1; n <= 12; ++n) {
        const std::string name = std::string(n < 10 ? "Text_00" : "Text_0") + std::to_string(n) + ".txt";
        const auto länge = fromUtf8(dateiinhalt(fs::path(KLOPFMEISE_KURS) / "texte" / name)).size();
        EXPECT_TRUE(länge >= 500 && länge <= 1800) << name << ": " << länge;
    }
}

} // namespace
} // namespace klopfmeise
