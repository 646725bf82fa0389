#pragma once

#include "platform/controls/button.h"
#include "platform/controls/drawn.h"
#include "platform/controls/text_box.h"
#include "platform/forms/form.h"
#include "screens/umgebung.h"

namespace klopfmeise {

/// "Code für den Einstellungsmodus": shows the code that opens the teacher mode, and changes it.
class einstCode final : public Form {
public:
    explicit einstCode(const Umgebung& umgebung);

    void Form_Load() override;
    void Form_Activate() override { textPin.setFocus(); }

private:
    void cmdPinOk_Click();
    void textPin_KeyPress(KeyPress& taste);

    static constexpr int Codelänge = 4;
    static LabelLook mitte(const wchar_t* text) { return {.caption = text, .align = Align::center}; }

    Umgebung umgebung_;

    Label Label2_0{*this, L"Label2", {105, 420, 3525, 255}, mitte(L"Aktueller Lehrkraft-Code"), 0};
    Label LblPin{*this,
                 L"LblPin",
                 {1260, 735, 1170, 330},
                 {.font = {courier, 14.25, true},
                  .back = colors::white,
                  .align = Align::center,
                  .border = true,
                  .wrap = false}};
    Line Line1_0{*this, L"Line1", {1845, 1260, 1845, 2040}, {.width = 2}, 0};
    Line Line1_1{*this, L"Line1", {1695, 1860, 1845, 2040}, {.width = 2}, 1};
    Line Line1_2{*this, L"Line1", {1995, 1860, 1845, 2040}, {.width = 2}, 2};
    Label Label2_1{*this, L"Label2", {105, 2310, 3525, 255}, mitte(L"Neuer Lehrkraft-Code"), 1};
    TextBox textPin{*this,
                    L"textPin",
                    {1260, 2625, 1170, 375},
                    {.font = {courier, 14.25, true},
                     .align = Align::center,
                     .maxLength = Codelänge,
                     .spoken = L"Neuer Lehrkraft-Code",
                     .keys = {.press = [this](KeyPress& taste) { textPin_KeyPress(taste); }}}};
    Button cmdPinOk{*this,
                    L"cmdPinOk",
                    {735, 3420, 2220, 750},
                    {.caption = L"Code übernehmen", .click = [this] { cmdPinOk_Click(); }}};
};

} // namespace klopfmeise
