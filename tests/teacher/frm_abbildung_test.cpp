#include "platform/controls/drawn.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Lektionsbilder, AChildLeafsBackToWhatItHasReached) {
    Bühne b;
    b.satz(Kontosatz::Lektionsnummer, std::int16_t{3});
    b.öffnen(L"Tastatur0");
    b.user.click(L"imgAbbildung");
    ASSERT_EQ(b.aktiv(), L"frmAbbildung");
    EXPECT_EQ(b.runtime.active()->caption(), L"Lektion 3");
    EXPECT_EQ(b.control<Label>(L"lblArchiv", 3).back(), colors::coral);
    EXPECT_EQ(b.control<Label>(L"lblArchiv", 4).fore(), colors::white);
    b.sound.played.clear();
    b.user.click(L"lblArchiv", 4);
    b.user.click(L"lblArchiv", 0);
    EXPECT_TRUE(b.sound.played.empty());
    b.user.click(L"lblArchiv", 2);
    EXPECT_EQ(b.runtime.active()->caption(), L"Lektion 2");
    EXPECT_TRUE(b.control<Picture>(L"imgAbbildung").picture().name.ends_with(L"\\Lektion2.bmp"));
    EXPECT_EQ(b.control<Label>(L"lblArchiv", 3).back(), colors::blush);
    b.user.activate(*b.runtime.loaded(L"Tastatur0"));
    EXPECT_FALSE(b.runtime.loaded(L"frmAbbildung"));
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
}

} // namespace
} // namespace klopfmeise
