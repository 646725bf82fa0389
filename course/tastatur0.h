#pragma once

#include "platform/controls/button.h"
#include "platform/forms/form.h"
#include "screens/fusszeile.h"
#include "screens/uebungen.h"
#include "screens/umgebung.h"
#include "store/kursplatz.h"

namespace klopfmeise {

/// The start page of the course: where the child stands, what the stage is about, and the way into it.
class Tastatur0 final : public Form {
public:
    explicit Tastatur0(const Umgebung& umgebung);

    void Form_Load() override;
    void Form_KeyPress(KeyPress& taste) override;

private:
    void Startaufstellung();
    void lernstandZeigen();
    void cmdNeuesSpiel_Click();
    void imgAbbildung_Click();

    static constexpr Font groß{courier, 18, true};
    static constexpr Font mittel{courier, 14.25, true};
    /// The fonts of titles and hints: one line of 51 characters, and two of them.
    static constexpr Font titelschrift{courier, 12, true};
    static constexpr Font hinweisschrift{courier, 12};
    static constexpr Font randschrift{courier, 8.25};
    static constexpr Font randzahl{courier, 12, true};
    static LabelLook mitte(const wchar_t* text, const Font& schrift, Color farbe = colors::black) {
        return {.caption = text, .font = schrift, .fore = farbe, .align = Align::center};
    }
    static ShapeLook rahmen() { return {.fill = RGB(247, 247, 244), .outline = colors::panel}; }

    Umgebung umgebung_;
    Kursplatz platz_;

    Shape Shape1_0{*this, L"Shape1", {1890, 840, 8100, 2955}, rahmen(), 0};
    Shape Shape1_1{*this, L"Shape1", {1890, 3810, 8100, 1005}, rahmen(), 1};
    Shape Shape1_2{*this, L"Shape1", {1890, 4860, 8100, 1020}, rahmen(), 2};

    Label Label1_0{
        *this, L"Label1", {105, 210, 11775, 540}, mitte(L"Dein Lernstand im Klopfmeise-Kurs", groß), 0};
    Label LblLektion{*this, L"LblLektion", {2100, 945, 7680, 330}, mitte(L"", mittel)};
    Label lblNameLektion{*this, L"lblNameLektion", {2100, 1260, 7680, 540}, mitte(L"", titelschrift)};
    Picture imgAbbildung{*this,
                         L"imgAbbildung",
                         {4620, 1890, 2790, 1425},
                         {.pointer = Pointer::hand,
                          .spoken = L"Tastatur mit den Tasten der Lektion, vergrößern",
                          .click = [this] { imgAbbildung_Click(); }}};
    Label lblEnlarge{*this,
                     L"lblEnlarge",
                     {2205, 3360, 7680, 330},
                     mitte(L"Zum Vergrößern klicken!", hinweisschrift, colors::textGrey)};
    Label lblStufe{*this, L"lblStufe", {2100, 3885, 7680, 330}, mitte(L"", mittel)};
    Label lblNameStufe{*this, L"lblNameStufe", {2100, 4200, 7680, 540}, mitte(L"", titelschrift)};
    Label lblHinweis{
        *this, L"lblHinweis", {2100, 4935, 7680, 330}, mitte(L"Aktueller Lern-Hinweis:", mittel)};
    Label lblHinweisName{*this, L"lblHinweisName", {2100, 5250, 7680, 540}, mitte(L"", hinweisschrift)};
    // In the free column left of the frames, so that a long hint does not run into them.
    Label Label1_3{*this, L"Label1", {45, 4515, 1830, 330}, mitte(L"Tipp-Genauigkeit:", randschrift), 3};
    Label lblGenauigkeit{*this, L"lblGenauigkeit", {45, 4740, 1830, 330}, mitte(L"", randzahl)};
    Label Label1_2{*this, L"Label1", {45, 5250, 1830, 330}, mitte(L"Geschwindigkeit:", randschrift), 2};
    Label lblSpeed{*this, L"lblSpeed", {45, 5475, 1830, 405}, mitte(L"", randschrift)};
    Button cmdNeuesSpiel{*this,
                         L"cmdNeuesSpiel",
                         {1890, 6300, 8100, 1275},
                         {.caption = L"START",
                          .font = {courier, 36, true},
                          .back = colors::blush,
                          .tabStop = false,
                          .click = [this] { cmdNeuesSpiel_Click(); }}};
    Übungsfuß fuß_{*this, umgebung_, {.übung = ÜbungKurs}};
};

} // namespace klopfmeise
