#include "platform/controls/drawn.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

TEST(Kontoansicht, ShowsTheAccountAlikeFromBothSidesAndChangesNoByte) {
    Bühne b;
    b.start();
    b.anmelden();
    b.user.click(L"cmdKonto");
    ASSERT_EQ(b.aktiv(), L"Konto");
    const auto felder = [&] {
        return b.captions({L"LblLektion", L"lblStufe", L"lblGenau", L"lblRichtig",
                           L"lblAnschlägeDurchschnitt", L"lblHighWolken", L"lblHighTetris",
                           L"lblHighFließband"});
    };
    EXPECT_EQ(felder(), L"1|1|100,00 %|0|0|0|0|0");
    b.user.activate(*b.runtime.loaded(L"Lern1"));
    EXPECT_FALSE(b.runtime.loaded(L"Konto"));

    b.satz(Kontosatz::Lektionsnummer, std::int32_t{7});
    b.satz(Kontosatz::Genauigkeit, 98.745);
    b.satz(Kontosatz::AnschlaegeSchnitt, L"120"s);
    b.satz(Kontosatz::HighBand, 12.5F);
    b.satz(Kontosatz::HighSteine, 110.0);
    const std::string vorher = dateiinhalt(b.konto());
    // An account that cannot be read, a folder in its place, is not an empty one.
    for (const bool lesbar : {true, false, true})
        for (const wchar_t* name : {L"Mia._", L"Mia"}) {
            std::filesystem::remove(b.konto());
            if (lesbar)
                dateiSchreiben(b.konto(), vorher);
            else
                std::filesystem::create_directory(b.konto());
            b.global.AktuellesKonto = name;
            b.runtime.show(L"Konto");
            EXPECT_EQ(felder(), lesbar ? L"7|1|98,75 %|0|120|0|110|12,5" : L"–|–|–|–|–|–|–|–");
            EXPECT_EQ(b.control<Label>(L"lblUnlesbar").visible(), !lesbar);
            EXPECT_EQ(b.caption(L"lblUnlesbar"), L"Das Konto kann gerade nicht gelesen werden.");
            b.user.close(*b.runtime.active());
        }
    EXPECT_EQ(dateiinhalt(b.konto()), vorher);
}

} // namespace
} // namespace klopfmeise
