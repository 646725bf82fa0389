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
#include <set>

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

void prüfeLektionen(const fs::path& ordner) {
    PosixFiles dateien;
    int nummer = 0;
    for (const Kurslektion& quelle : leseKurs(KLOPFMEISE_KURS)) {
        const std::string name = "Lektion" + std::to_string(++nummer) + ".txt";
        for (int s = 1; s <= static_cast<int>(quelle.stufen.size()); ++s) {
            SCOPED_TRACE(name + ", Stufe " + std::to_string(s));
            const Kursstufe& soll = quelle.stufen[static_cast<std::size_t>(s - 1)];
            const Lektion ist = lektionLesen(dateien, logikpfad(ordner / "Data" / "Tastatur" / name), s);
            ASSERT_TRUE(ist.vollständig());
            EXPECT_EQ(ist.Stufenzahl, static_cast<int>(quelle.stufen.size()));
            EXPECT_EQ(ist.Lektionsart, quelle.art);
            EXPECT_EQ(ist.Lektionstitel, quelle.titel);
            EXPECT_EQ(ist.stufe->Stufentitel, soll.titel);
            EXPECT_EQ(ist.stufe->Stufentext, soll.text);
            EXPECT_EQ(ist.stufe->Stufenhinweis, soll.hinweis);
        }
    }
}

std::wstring alsAnzeige(std::wstring text) {
    while (text.ends_with(L'\n'))
        text.pop_back();
    for (std::size_t i = 0; (i = text.find(L'\n', i)) != std::wstring::npos; i += 2)
        text.replace(i, 1, L"\r\n");
    return text;
}

TEST(Datenordner, GibtDenKursUnverändertZurück) {
    Wegwerfordner ziel;
    ASSERT_EQ(mache(KLOPFMEISE_KURS, Texte, ziel.pfad()), 0);
    prüfeLektionen(ziel.pfad());

    std::size_t zahl = 0;
    for (const auto& quelle : fs::directory_iterator(Texte)) {
        ++zahl;
        const std::string bytes = dateiinhalt(ziel.pfad() / "Data" / "Texte" / quelle.path().filename());
        EXPECT_TRUE(bytes.starts_with("{\\rtf")) << quelle.path();
        EXPECT_EQ(readRtf(bytes).document.plainText(), alsAnzeige(fromUtf8(dateiinhalt(quelle.path()))))
            << quelle.path();
    }
    EXPECT_GE(zahl, 12u);

    PosixFiles dateien;
    Kontodatei vorlage(dateien, logikpfad(ziel.pfad() / "Gruppen" / "kme.ein"));
    for (int satz = 1; satz <= 5; ++satz)
        EXPECT_EQ(vorlage.lesen(satz), Wert(std::int16_t{1})) << "Übung " << satz;
    const std::wstring text = vorlage.lesenText(SatzTextname);
    EXPECT_TRUE(DateiVorhanden(dateien, logikpfad(ziel.pfad() / "Data" / "Texte") + L"\\" + text))
        << toUtf8(text);
}

TEST(Datenordner, IstJedesMalGleichUndBehältWasSchuleÄnderte) {
    Wegwerfordner eins;
    Wegwerfordner zwei;
    ASSERT_EQ(mache(KLOPFMEISE_KURS, Texte, eins.pfad()), 0);
    ASSERT_EQ(mache(KLOPFMEISE_KURS, Texte, zwei.pfad()), 0);
    EXPECT_EQ(inhalte(eins.pfad()), inhalte(zwei.pfad()));

    const fs::path lektion = eins.pfad() / "Data" / "Tastatur" / "Lektion1.txt";
    dateiSchreiben(eins.pfad() / "Gruppen" / "kme.ein", "der Schule eigen");
    dateiSchreiben(eins.pfad() / "Data" / "Texte" / "Schulhof.txt", "eigener Text");
    dateiSchreiben(lektion, "veraltet");
    ASSERT_EQ(mache(KLOPFMEISE_KURS, Texte, eins.pfad()), 0);
    EXPECT_EQ(dateiinhalt(eins.pfad() / "Gruppen" / "kme.ein"), "der Schule eigen");
    EXPECT_EQ(dateiinhalt(eins.pfad() / "Data" / "Texte" / "Schulhof.txt"), "eigener Text");
    EXPECT_EQ(dateiinhalt(lektion), dateiinhalt(zwei.pfad() / "Data" / "Tastatur" / "Lektion1.txt"));
}

TEST(Datenordner, MeldetWasErNichtSchreibenKann) {
    Wegwerfordner ordner;
    const fs::path texte = ordner.pfad() / "texte";
    dateiSchreiben(texte / "Text_001.txt", "kein Zeichen der Dateien: \xE2\x86\x92\n");
    EXPECT_NE(mache(KLOPFMEISE_KURS, texte, ordner.pfad() / "a"), 0);
    EXPECT_NE(mache(ordner.pfad() / "nirgends", Texte, ordner.pfad() / "b"), 0);
}

std::uint32_t zahl(const std::string& bytes, std::size_t stelle, std::size_t länge) {
    std::uint32_t wert = 0;
    for (std::size_t i = 0; i < länge; ++i)
        wert |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes.at(stelle + i))) << (8 * i);
    return wert;
}

TEST(Datenordner, ErHatAllesWasDerStartVerlangt) {
    const fs::path daten = KLOPFMEISE_DATEN;
    prüfeLektionen(daten);
    for (const auto& quelle : fs::directory_iterator(Texte))
        EXPECT_TRUE(fs::is_regular_file(daten / "Data" / "Texte" / quelle.path().filename()))
            << quelle.path();

    PosixFiles dateien;
    EXPECT_EQ(zulässigeDatenablage(dateien, logikpfad(daten) + L"\\"), KLOPFMEISE_MIT_BILDERN == 1);
    std::size_t größe = 0;
    for (const auto& [name, inhalt] : inhalte(daten))
        größe += inhalt.size();
    EXPECT_LT(größe, std::size_t{12} << 20);
}

TEST(Datenordner, LektionsbilderSind256FarbigUndPassenInsFenster) {
    if (KLOPFMEISE_MIT_BILDERN == 0)
        GTEST_SKIP() << "ohne Qt werden keine Bilder gezeichnet";
    std::set<std::string> verschiedene;
    for (int n = 1; n <= static_cast<int>(Lektionszahl); ++n) {
        SCOPED_TRACE(n);
        const std::string bmp = dateiinhalt(fs::path(KLOPFMEISE_DATEN) / "Data" / "Tastatur" /
                                            ("Lektion" + std::to_string(n) + ".bmp"));
        ASSERT_GE(bmp.size(), 54u);
        EXPECT_EQ(bmp.substr(0, 2), "BM");
        EXPECT_EQ(zahl(bmp, 2, 4), bmp.size());
        EXPECT_EQ(zahl(bmp, 18, 4), 718u); // 10770 twips
        EXPECT_EQ(zahl(bmp, 22, 4), 368u); // 5520 twips, rows from the bottom up
        EXPECT_EQ(zahl(bmp, 26, 2), 1u);   // planes
        EXPECT_EQ(zahl(bmp, 28, 2), 8u);   // bits a pixel
        EXPECT_EQ(zahl(bmp, 30, 4), 0u);   // not compressed
        EXPECT_EQ(bmp.size() - zahl(bmp, 10, 4), 720u * 368u);
        verschiedene.insert(bmp);
    }
    // Lessons that add no keys may share a picture with the one before.
    EXPECT_GE(verschiedene.size(), 21u);
}

} // namespace
} // namespace klopfmeise
