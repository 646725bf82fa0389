#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

TEST(Kontoansicht, ShowsTheAccountAlikeFromBothSidesAndChangesNoByte) {
    Bühne b;
    b.start();
    b.user.click(L"LblGruppe", 0);
    b.user.pressRow(b.control<FileList>(L"File1"), 0);
    b.user.click(L"cmdKonto");
    ASSERT_EQ(b.aktiv(), L"Konto");
    EXPECT_TRUE(b.runtime.active()->topMost());
    const auto zeigt = [&](const std::vector<std::wstring>& werte) {
        const std::vector<std::wstring> felder{L"LblLektion",
                                               L"lblStufe",
                                               L"lblGenau",
                                               L"lblRichtig",
                                               L"lblAnschlägeDurchschnitt",
                                               L"lblHighWolken",
                                               L"lblHighTetris",
                                               L"lblHighFließband"};
        for (std::size_t i = 0; i < felder.size(); ++i)
            EXPECT_EQ(b.caption(felder[i]), werte[i]) << i;
    };
    zeigt({L"1", L"1", L"100,00 %", L"0", L"0", L"0", L"0", L"0"});
    b.user.activate(*b.runtime.loaded(L"Lern1"));
    EXPECT_FALSE(b.runtime.loaded(L"Konto"));
    EXPECT_TRUE(b.control<Frame>(L"frmSprache").visible());
    EXPECT_EQ(b.caption(L"LblName"), L"Mia");

    b.satz(Kontosatz::Lektionsnummer, std::int32_t{7});
    b.satz(Kontosatz::Genauigkeit, 98.745);
    b.satz(Kontosatz::AnschlaegeSchnitt, L"120"s);
    b.satz(Kontosatz::HighBand, 12.5F);
    b.satz(Kontosatz::HighSteine, 110.0);
    const std::string vorher = dateiinhalt(b.konto());
    for (const wchar_t* name : {L"Mia._", L"Mia"}) {
        b.global.AktuellesKonto = name;
        b.runtime.show(L"Konto");
        zeigt({L"7", L"1", L"98,75 %", L"0", L"120", L"0", L"110", L"12,5"});
        b.user.close(*b.runtime.active());
    }
    EXPECT_EQ(dateiinhalt(b.konto()), vorher);

    // An account that cannot be read is not an empty one.
    std::filesystem::remove(b.konto());
    std::filesystem::create_directory(b.konto());
    b.runtime.show(L"Konto");
    zeigt(std::vector<std::wstring>(8, L"–"));
    EXPECT_TRUE(b.control<Label>(L"lblUnlesbar").visible());
    EXPECT_EQ(b.caption(L"lblUnlesbar"), L"Das Konto kann gerade nicht gelesen werden.");
    b.user.close(*b.runtime.active());
    std::filesystem::remove(b.konto());
    b.runtime.show(L"Konto");
    zeigt({L"1", L"1", L"100,00 %", L"0", L"0", L"0", L"0", L"0"});
    EXPECT_FALSE(b.control<Label>(L"lblUnlesbar").visible());
}

} // namespace
} // namespace klopfmeise
