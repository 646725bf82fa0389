#include "platform/controls/drawn.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Zähler, KeepTheirPlacesAndGrowAboutTheirMiddle) {
    Bühne b;
    b.öffnen(L"Tastatur1");
    const auto platz = [&](const wchar_t* name) { return b.control<Label>(name).place(); };
    const Rect fehler = platz(L"lblFehler");
    b.user.type(L"fxxxxxxxxxxxx");
    const Rect breiter = platz(L"lblFehler");
    EXPECT_GT(breiter.width, fehler.width);
    EXPECT_LE(std::abs(breiter.left + breiter.right() - fehler.left - fehler.right()), 1);
    b.user.type(L"j f\r");
    EXPECT_EQ(platz(L"lblFehler"), fehler);
}

TEST(Zähler, NeverReachTheirNeighbours) {
    Bühne b;
    dateiSchreiben(b.daten() / "Data" / "Texte" / "Ein_recht_langer_Name.txt", "ab");
    Kontodatei(b.echteDateien, logikpfad(b.daten() / "Gruppen" / "Hasen" / "KME.ein"))
        .schreibenText(106, L"Ein_recht_langer_Name.txt");
    b.satz(Kontosatz::AnschlaegeSchnitt, 123456.0);
    b.öffnen(L"Textübung0");
    const auto& name = b.control<Label>(L"LblBib", 2);
    EXPECT_EQ(name.caption(), L"Ein_recht_langer_Name.txt");
    EXPECT_LT(name.right(), b.control<Label>(L"Label1", 1).left());
    EXPECT_LE(sizeOf(name.caption(), name.shownFont()).width, name.width());
    const auto& schnitt = b.control<Label>(L"lblAnschlägeDurchschnitt");
    EXPECT_GE(schnitt.left(), b.control<Label>(L"Label1", 5).right() - 15);
    EXPECT_LT(schnitt.shownFont().points, schnitt.font().points);
}

} // namespace
} // namespace klopfmeise
