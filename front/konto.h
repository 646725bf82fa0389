#pragma once

#include "platform/controls/control_array.h"
#include "platform/controls/drawn.h"
#include "platform/forms/form.h"
#include "screens/umgebung.h"

namespace klopfmeise {

/// The account view: all that the program has noted about a child, a row an exercise. It reads the account
/// each time it is shown, writes nothing, and closes when another window of the program takes the focus.
class Konto final : public Form {
public:
    explicit Konto(const Umgebung& umgebung);

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Deactivate() override { runtime().unload(*this); }

private:
    static constexpr int zeile(int übung) { return 945 + 1260 * (übung - 1); }
    static LabelLook name(const wchar_t* text) {
        return {.caption = text, .fore = colors::textGrey, .wrap = false};
    }
    static LabelLook wert() { return {.font = {courier, 14.25, true}, .wrap = false}; }

    Umgebung umgebung_;

    Label Label1_0{*this,
                   L"Label1",
                   {0, 105, 8415, 540},
                   {.caption = L"Kontostand", .font = {courier, 18, true}, .align = Align::center},
                   0};
    ControlArray<Line> Line1;
    ControlArray<Picture> cmdÜbung;

    Label Label1_4{*this, L"Label1", {1680, zeile(1) + 90, 1500, 240}, name(L"Lektion"), 4};
    Label LblLektion{*this, L"LblLektion", {1680, zeile(1) + 375, 1500, 330}, wert()};
    Label Label1_6{*this, L"Label1", {3360, zeile(1) + 90, 1500, 240}, name(L"Stufe"), 6};
    Label lblStufe{*this, L"lblStufe", {3360, zeile(1) + 375, 1500, 330}, wert()};
    Label Label1_2{*this, L"Label1", {5040, zeile(1) + 90, 3150, 240}, name(L"Tipp-Genauigkeit"), 2};
    Label lblGenau{*this, L"lblGenau", {5040, zeile(1) + 375, 3150, 330}, wert()};
    /// Shown in place of figures that could not be read.
    Label lblUnlesbar{*this,
                      L"lblUnlesbar",
                      {1680, zeile(1) + 735, 6510, 240},
                      {.caption = L"Das Konto kann gerade nicht gelesen werden.",
                       .back = colors::wrong,
                       .wrap = false,
                       .visible = false}};

    Label Label1_1{*this, L"Label1", {1680, zeile(2) + 90, 3150, 240}, name(L"Getippte Texte insgesamt"), 1};
    Label lblRichtig{*this, L"lblRichtig", {1680, zeile(2) + 375, 3150, 330}, wert()};
    Label Label1_3{*this, L"Label1", {5040, zeile(2) + 90, 3150, 240}, name(L"Anschläge pro Minute"), 3};
    Label Label1_5{*this, L"Label1", {6990, zeile(2) + 435, 1200, 240}, name(L"durchschn."), 5};
    Label lblAnschlägeDurchschnitt{
        *this, L"lblAnschlägeDurchschnitt", {5040, zeile(2) + 375, 1890, 330}, wert()};

    Label Label1_7{*this, L"Label1", {1680, zeile(3) + 90, 3150, 240}, name(L"Highscore"), 7};
    Label lblHighWolken{*this, L"lblHighWolken", {1680, zeile(3) + 375, 6510, 330}, wert()};
    Label Label1_8{*this, L"Label1", {1680, zeile(4) + 90, 3150, 240}, name(L"Highscore"), 8};
    Label lblHighTetris{*this, L"lblHighTetris", {1680, zeile(4) + 375, 6510, 330}, wert()};
    Label Label1_9{*this, L"Label1", {1680, zeile(5) + 90, 3150, 240}, name(L"Highscore"), 9};
    Label lblHighFließband{*this, L"lblHighFließband", {1680, zeile(5) + 375, 6510, 330}, wert()};
};

} // namespace klopfmeise
