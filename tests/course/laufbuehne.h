#pragma once

#include "platform/controls/drawn.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {

/// A screen of running text, opened on a text of the test.
class Laufbühne : public ::testing::Test {
protected:
    Bühne b;

    void fliesstextÖffnen(const std::string& text, std::int16_t durchgänge = 1) {
        b.lektion(1, "Fließtext", {text, "zwei"});
        b.satz(Kontosatz::Durchgangszahl, durchgänge);
        b.öffnen(L"Tastatur2");
    }
    void textÖffnen(std::string_view text) {
        dateiSchreiben(b.daten() / "Data" / "Texte" / "Text_001.txt", text);
        b.öffnen(L"Textübung0");
    }
    Label& zelle(int i) { return b.control<Label>(L"lbl", i); }
    /// Place of the cursor: the one cell in a cursor's colour.
    int pos() {
        for (int i = 1;; ++i)
            if (zelle(i).back() == colors::midGrey || zelle(i).back() == colors::panel)
                return i;
    }
    std::wstring letzterKlang() const { return b.sound.played.empty() ? L"" : b.sound.played.back(); }
};

} // namespace klopfmeise
