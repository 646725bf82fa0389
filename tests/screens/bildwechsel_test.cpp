#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Bildwechsel, TheBackdropCoversTheChangeAndTakesClicksOnlyThen) {
    Bühne b;
    b.zurÜbung(1);
    Form& kulisse = *b.runtime.loaded(L"frmTemp");
    EXPECT_FALSE(kulisse.enabled());
    b.backend.log.clear();
    b.backend.whenPainted = [&](Form& form) {
        const bool vorher = b.runtime.loaded(L"Tastatur0") && !b.runtime.loaded(L"Tastatur1");
        EXPECT_TRUE(&form != &kulisse || (kulisse.enabled() && vorher));
    };
    b.user.type(L' ');
    const auto stelle = [&](std::wstring_view eintrag) { return std::ranges::find(b.backend.log, eintrag); };
    EXPECT_LT(stelle(L"show frmTemp"), stelle(L"paint frmTemp"));
    EXPECT_LT(stelle(L"paint frmTemp"), stelle(L"show Tastatur1"));
    EXPECT_EQ(b.aktiv(), L"Tastatur1");
    EXPECT_FALSE(kulisse.enabled() || b.runtime.loaded(L"Tastatur0"));
}

} // namespace
} // namespace klopfmeise
