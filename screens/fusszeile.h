#pragma once

#include "platform/controls/drawn.h"
#include "screens/umgebung.h"

namespace klopfmeise {

/// The labels at the foot of every full-screen form that name child, class and exercise.
struct Fusszeile {
    /// `Übung` is the exercise's title, on the ground `grund`.
    explicit Fusszeile(Container& form, std::wstring Übung = L"", Color grund = colors::white)
        : Label3_1(form, L"Label3", {105, 7980, 840, 240}, {.caption = L"Name:"}, 1)
        , Label3_0(form, L"Label3", {105, 8295, 840, 240}, {.caption = L"Klasse:"}, 0)
        , Label3_13(form, L"Label3", {105, 8610, 840, 240}, {.caption = L"Übung:"}, 13)
        , LblName(form, L"LblName", {945, 7980, 2640, 225}, feld(L"", colors::white))
        , LblKlasse(form, L"LblKlasse", {945, 8295, 2640, 225}, feld(L"", colors::white))
        , LblÜb(form, L"LblÜb", {945, 8610, 2640, 225}, feld(std::move(Übung), grund)) {}

    Label Label3_1;
    Label Label3_0;
    Label Label3_13;
    Label LblName;
    Label LblKlasse;
    Label LblÜb;

private:
    static LabelLook feld(std::wstring text, Color grund) {
        return {.caption = std::move(text), .back = grund, .align = Align::center, .wrap = false};
    }
};

} // namespace klopfmeise
