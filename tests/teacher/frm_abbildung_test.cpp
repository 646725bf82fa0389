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
    for (const int i : {3, 4}) {
        EXPECT_EQ(b.control<Label>(L"lblArchiv", i).pointer(), i < 4 ? Pointer::hand : Pointer::normal);
        EXPECT_EQ(b.control<Label>(L"lblArchiv", i).font().bold, i < 4);
    }
    b.sound.played.clear();
    b.user.click(L"lblArchiv", 4);
    b.user.click(L"lblArchiv", 0);
    EXPECT_TRUE(b.sound.played.empty());
    // A short blank comes between two pictures, between a picture and itself too.
    std::vector<int> pausen;
    bool leer = false;
    b.backend.whenPainted = [&](Form& form) {
        leer = form.find<Picture>(L"imgAbbildung")->picture().empty();
    };
    b.backend.duringWait = [&](int dauer) {
        pausen.push_back(dauer);
        EXPECT_TRUE(leer);
    };
    b.user.click(L"lblArchiv", 2);
    b.user.click(L"lblArchiv", 2);
    EXPECT_EQ(pausen, (std::vector{100, 100}));
    EXPECT_EQ(b.sound.played, (std::vector<std::wstring>{L"knopf.wav", L"knopf.wav"}));
    EXPECT_EQ(b.control<Label>(L"lblArchiv", 2).back(), colors::coral);
    EXPECT_EQ(b.runtime.active()->caption(), L"Lektion 2");
    EXPECT_TRUE(b.control<Picture>(L"imgAbbildung").picture().name.ends_with(L"\\Lektion2.bmp"));
    EXPECT_EQ(b.control<Label>(L"lblArchiv", 3).back(), colors::blush);
    b.user.activate(*b.runtime.loaded(L"Tastatur0"));
    EXPECT_FALSE(b.runtime.loaded(L"frmAbbildung"));
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
}

} // namespace
} // namespace klopfmeise
