#include "course/tastenplan.h"
#include "platform/values/font.h"
#include "platform/values/text.h"
#include "tests/buehne.h"
#include "tools/kursdatei.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

constexpr Font Beschriftung{L"Courier New", 12};
/// Width of the labels that show titles and hints, in twips.
constexpr int Beschriftungsbreite = 7680;

/// Characters of a line of the typing screens.
constexpr std::size_t Zeilenbreite = 63;

const std::vector<Kurslektion>& kurs() {
    static const std::vector<Kurslektion> alle = leseKurs(KLOPFMEISE_KURS);
    return alle;
}

std::vector<std::wstring> zerlegt(const std::wstring& text, wchar_t trenner) {
    std::vector<std::wstring> teile;
    std::wistringstream strom(text);
    for (std::wstring teil; std::getline(strom, teil, trenner);)
        teile.push_back(teil);
    return teile;
}

std::size_t längstesWort(std::wstring text) {
    std::ranges::replace(text, L'\n', L' ');
    std::size_t länge = 0;
    for (const std::wstring& wort : zerlegt(text, L' '))
        länge = std::max(länge, wort.size());
    return länge;
}

/// What stands at the edge of a text or twice in it where one blank belongs.
bool sauber(const std::wstring& text) {
    return !text.empty() && text.front() != L' ' && text.back() != L' ' &&
           text.find(L"  ") == std::wstring::npos;
}

void lerneGroßbuchstaben(std::set<wchar_t>& bekannt) {
    for (const wchar_t z : std::set(bekannt))
        bekannt.insert(z == L'ß' ? z : upper(z));
}

/// One row of the table in lektionen/README.md, its cells without the signs that only serve the look.
std::vector<std::wstring> zellen(const std::wstring& zeile) {
    std::vector<std::wstring> aus(1);
    for (std::size_t i = 1; i < zeile.size(); ++i) {
        if (zeile[i] == L'\\' && i + 1 < zeile.size())
            aus.back() += zeile[++i];
        else if (zeile[i] == L'|')
            aus.emplace_back();
        else
            aus.back() += zeile[i];
    }
    for (std::wstring& zelle : aus) {
        zelle.erase(0, zelle.find_first_not_of(L' '));
        zelle.erase(zelle.find_last_not_of(L' ') + 1);
    }
    return aus;
}

struct Planzeile {
    std::wstring tasten;
    std::wstring art;
    bool operator==(const Planzeile&) const = default;
};

TEST(Kurs, StufenHaltenLängeUndBeschriftung) {
    std::map<std::wstring, std::string> texte;
    std::map<std::wstring, std::string> hinweise;
    for (std::size_t n = 0; n < kurs().size(); ++n) {
        const Kurslektion& lektion = kurs()[n];
        const bool einzeiler = lektion.art == ArtEinzeiler;
        EXPECT_EQ(wrappedLines(lektion.titel, Beschriftung, Beschriftungsbreite), 1) << n + 1;
        std::size_t volle = 0;
        for (std::size_t s = 0; s < lektion.stufen.size(); ++s) {
            const Kursstufe& stufe = lektion.stufen[s];
            const std::string wo = "Lektion " + std::to_string(n + 1) + ", Stufe " + std::to_string(s + 1);
            SCOPED_TRACE(wo);
            EXPECT_EQ(wrappedLines(stufe.titel, Beschriftung, Beschriftungsbreite), 1);
            EXPECT_LE(wrappedLines(stufe.hinweis, Beschriftung, Beschriftungsbreite), 2);
            EXPECT_TRUE(sauber(stufe.titel) && sauber(stufe.hinweis) && sauber(stufe.text));
            EXPECT_GE(stufe.text.size(), einzeiler ? 40u : 200u);
            EXPECT_LE(stufe.text.size(), einzeiler ? 55u : 600u);
            EXPECT_LE(längstesWort(stufe.text), Zeilenbreite);
            volle += stufe.text.size() == 55;
            const auto [text, neuerText] = texte.emplace(stufe.text, wo);
            EXPECT_TRUE(neuerText) << "derselbe Text wie in " << text->second;
            const auto [hinweis, neuerHinweis] = hinweise.emplace(stufe.hinweis, wo);
            EXPECT_TRUE(neuerHinweis) << "derselbe Hinweis wie in " << hinweis->second;
        }
        EXPECT_GE(volle, einzeiler ? 8u : 0u) << "volle Zeilen in Lektion " << n + 1;
    }
    EXPECT_EQ(texte.size(), 360u);
}

TEST(Kurs, TexteVerlangenNurEingeführteTasten) {
    std::set<wchar_t> bekannt{L' '};
    bool groß = false;
    for (std::size_t n = 0; n < kurs().size(); ++n) {
        const Kurslektion& lektion = kurs()[n];
        std::set<wchar_t> ungeübt;
        for (const std::wstring& taste : lektion.tasten) {
            EXPECT_NE(tasteFür(taste.front()), 0) << toUtf8(taste);
            EXPECT_TRUE(bekannt.insert(taste.front()).second) << "schon eingeführt: " << toUtf8(taste);
            ungeübt.insert(taste.front());
        }
        groß = groß || lektion.umschalt;
        if (groß)
            lerneGroßbuchstaben(bekannt);
        for (std::size_t s = 0; s < lektion.stufen.size(); ++s)
            for (const wchar_t z : lektion.stufen[s].text) {
                ungeübt.erase(z);
                EXPECT_TRUE(bekannt.contains(z))
                    << "Lektion " << n + 1 << ", Stufe " << s + 1 << ": " << toUtf8(std::wstring(1, z))
                    << " ist noch nicht eingeführt";
            }
        EXPECT_TRUE(ungeübt.empty()) << "Lektion " << n + 1 << " übt ihre neue Taste nicht: "
                                     << toUtf8(std::wstring(ungeübt.begin(), ungeübt.end()));
    }
    for (const Taste& taste : tasten())
        for (const wchar_t z : taste.zeichen)
            EXPECT_TRUE(bekannt.contains(z)) << "nie eingeführt: " << toUtf8(std::wstring(1, z));
}

TEST(Kurs, PlanDerLehrkräfteStimmtMitDenLektionen) {
    std::map<std::wstring, Planzeile> plan;
    const std::wstring blatt = fromUtf8(dateiinhalt(fs::path(KLOPFMEISE_KURS) / "README.md"));
    for (const std::wstring& zeile : zerlegt(blatt, L'\n'))
        if (const auto z = zellen(zeile); zeile.starts_with(L"| ") && z.size() == 5 && !z[0].empty() &&
                                          std::iswdigit(static_cast<std::wint_t>(z[0].front()))) {
            EXPECT_TRUE(plan.try_emplace(z[0], Planzeile{z[1] == L"keine" ? L"" : z[1], z[2]}).second);
            EXPECT_FALSE(z[3].empty()) << toUtf8(zeile);
        }
    EXPECT_EQ(plan.size(), Lektionszahl);
    for (std::size_t n = 0; n < kurs().size(); ++n) {
        Planzeile ist{kurs()[n].umschalt ? L"Umschalt" : L"", kurs()[n].art};
        for (const std::wstring& taste : kurs()[n].tasten)
            ist.tasten += (ist.tasten.empty() ? L"" : L" ") + taste;
        const Planzeile& soll = plan[std::to_wstring(n + 1)];
        EXPECT_EQ(ist, soll) << "Lektion " << n + 1 << ": " << toUtf8(ist.tasten) << " | "
                             << toUtf8(soll.tasten);
    }
}

TEST(Kurs, FreieTexteSindTippbar) {
    constexpr std::size_t längstesErlaubtesWort = 60;
    for (const auto& datei : fs::directory_iterator(fs::path(KLOPFMEISE_KURS) / "texte")) {
        SCOPED_TRACE(datei.path().filename());
        EXPECT_EQ(datei.path().extension(), ".txt");
        const std::wstring text = fromUtf8(dateiinhalt(datei.path()));
        EXPECT_FALSE(text.empty());
        EXPECT_LE(längstesWort(text), längstesErlaubtesWort);
        for (const std::wstring& zeile : zerlegt(text, L'\n')) {
            EXPECT_TRUE(sauber(zeile)) << toUtf8(zeile);
            for (const wchar_t z : zeile)
                EXPECT_NE(tasteFür(z), 0) << toUtf8(std::wstring(1, z)) << " in: " << toUtf8(zeile);
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
