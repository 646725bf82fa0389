#include "platform/richtext/rtf.h"
#include "platform/values/text.h"
#include "store/lektionsdatei.h"
#include "store/mdl_dir.h"
#include "tests/buehne.h"
#include "tools/kursdatei.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

const fs::path Texte = fs::path(KLOPFMEISE_KURS) / "texte";
constexpr int SatzTextname = 106;

/// Exit status of the maker; what it says is not shown.
int mache(const fs::path& quelle, const fs::path& texte, const fs::path& ziel) {
    const auto wort = [](const fs::path& pfad) { return " '" + pfad.string() + "'"; };
    return std::system(
        (wort(KLOPFMEISE_DATENORDNER) + wort(quelle) + wort(texte) + wort(ziel) + " 2>/dev/null").c_str());
}

std::map<std::string, std::string> inhalte(const fs::path& ordner) {
    std::map<std::string, std::string> aus;
    for (const auto& eintrag : fs::recursive_directory_iterator(ordner))
        if (eintrag.is_regular_file())
            aus[eintrag.path().lexically_relative(ordner).string()] = dateiinhalt(eintrag.path());
    return aus;
}

TEST(Datenordner, GibtDenKursUnverändertZurück) {
    Wegwerfordner ziel;
    ASSERT_EQ(mache(KLOPFMEISE_KURS, Texte, ziel.pfad()), 0);
    PosixFiles dateien;
    int nummer = 0;
    for (const Kurslektion& quelle : leseKurs(KLOPFMEISE_KURS)) {
        const std::string name = "Lektion" + std::to_string(++nummer) + ".txt";
        int s = 0;
        for (const Kursstufe& soll : quelle.stufen) {
            SCOPED_TRACE(name + ", Stufe " + std::to_string(++s));
            const Lektion ist = lektionLesen(dateien, logikpfad(ziel.pfad() / "Data" / "Tastatur" / name), s);
            ASSERT_TRUE(ist.vollständig());
            EXPECT_EQ(ist.Stufenzahl, static_cast<int>(quelle.stufen.size()));
            EXPECT_EQ(std::tie(ist.Lektionsart, ist.Lektionstitel), std::tie(quelle.art, quelle.titel));
            EXPECT_EQ(std::tie(ist.stufe->Stufentitel, ist.stufe->Stufentext, ist.stufe->Stufenhinweis),
                      std::tie(soll.titel, soll.text, soll.hinweis));
        }
    }
    for (const auto& quelle : fs::directory_iterator(Texte)) {
        const std::string bytes = dateiinhalt(ziel.pfad() / "Data" / "Texte" / quelle.path().filename());
        std::wstring gezeigt = readRtf(bytes).document.plainText() + L"\n";
        std::erase(gezeigt, L'\r');
        EXPECT_EQ(toUtf8(gezeigt), dateiinhalt(quelle.path())) << quelle.path();
    }
    Kontodatei vorlage(dateien, logikpfad(ziel.pfad() / "Gruppen" / "kme.ein"));
    for (int satz = 1; satz <= 5; ++satz)
        EXPECT_EQ(vorlage.lesen(satz), Wert(std::int16_t{1})) << "Übung " << satz;
    const std::wstring text = vorlage.lesenText(SatzTextname);
    EXPECT_TRUE(DateiVorhanden(dateien, logikpfad(ziel.pfad() / "Data" / "Texte") + L"\\" + text))
        << toUtf8(text);
}

TEST(Datenordner, IstJedesMalGleichUndBehältWasSchuleÄnderte) {
    Wegwerfordner ordner;
    ASSERT_EQ(mache(KLOPFMEISE_KURS, Texte, ordner.pfad()), 0);
    auto soll = inhalte(ordner.pfad());
    auto gebaut = inhalte(KLOPFMEISE_DATEN);
    std::erase_if(gebaut, [&](const auto& datei) { return !soll.contains(datei.first); });
    EXPECT_EQ(gebaut, soll);

    const std::map<std::string, std::string> eigenes{{"Gruppen/kme.ein", "der Schule eigen"},
                                                     {"Data/Texte/Schulhof.txt", "eigener Text"}};
    for (const auto& [datei, inhalt] : eigenes)
        dateiSchreiben(ordner.pfad() / datei, soll[datei] = inhalt);
    dateiSchreiben(ordner.pfad() / "Data/Tastatur/Lektion1.txt", "veraltet");
    ASSERT_EQ(mache(KLOPFMEISE_KURS, Texte, ordner.pfad()), 0);
    EXPECT_EQ(inhalte(ordner.pfad()), soll);
}

TEST(Datenordner, ErHatAllesWasDerStartVerlangt) {
    const fs::path daten = KLOPFMEISE_DATEN;
    PosixFiles dateien;
    EXPECT_EQ(zulässigeDatenablage(dateien, logikpfad(daten) + L"\\"), KLOPFMEISE_MIT_BILDERN == 1);
    std::size_t größe = 0;
    for (const auto& [name, inhalt] : inhalte(daten))
        größe += inhalt.size();
    EXPECT_LT(größe, std::size_t{12} << 20);
    // 720 by 368 pixels, rows from the bottom up; one plane, eight bits a pixel, not compressed.
    for (std::size_t n = 1; KLOPFMEISE_MIT_BILDERN == 1 && n <= Lektionszahl; ++n) {
        const std::string bmp =
            dateiinhalt(daten / "Data/Tastatur" / ("Lektion" + std::to_string(n) + ".bmp"));
        EXPECT_EQ(bmp.size(), 54U + 256U * 4U + 720U * 368U) << n;
        EXPECT_EQ(bmp.substr(18, 16), std::string("\xCE\2\0\0\x70\1\0\0\1\0\x8\0\0\0\0\0", 16)) << n;
    }
}

} // namespace
} // namespace klopfmeise
