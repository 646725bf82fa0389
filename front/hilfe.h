#pragma once

#include "platform/controls/drawn.h"
#include "platform/controls/rich_text_box.h"
#include "platform/forms/form.h"
#include "screens/umgebung.h"

namespace klopfmeise {

/// The help page: a few sentences on the chosen exercise. It closes as soon as another window of the program
/// takes the focus.
class Hilfe final : public Form {
public:
    explicit Hilfe(const Umgebung& umgebung);

    void Form_Activate() override;
    void Form_Deactivate() override { runtime().unload(*this); }

private:
    void textzuweisung();

    Umgebung umgebung_;
    std::wstring Hilfetext;

    Label lblÜbung{*this,
                   L"lblÜbung",
                   {105, 105, 8940, 435},
                   {.font = {courier, 18, true}, .back = colors::paleGrey, .align = Align::center}};
    Label Label1{*this, L"Label1", {105, 630, 8955, 6270}, {.font = {courier, 14.25, true}}};
};

/// The report on a finished text, drawn as a sheet of paper. It stays until the text-typing screen unloads
/// it.
class HilfeFehlerbericht final : public Form {
public:
    explicit HilfeFehlerbericht(const Umgebung& umgebung);

    void Form_Activate() override;

private:
    Umgebung umgebung_;

    Label Label1_0{*this, L"Label1", {105, 105, 5580, 6630}, {.back = colors::white, .border = true}, 0};
    Label Label1_1{*this,
                   L"Label1",
                   {780, 150, 4860, 405},
                   {.caption = L"Auswertungsblatt",
                    .font = {courier, 14.25, true},
                    .back = RGB(255, 255, 192),
                    .align = Align::center},
                   1};
    Line Line1{*this, L"Line1", {735, 120, 735, 6720}, {.color = colors::panel}};
    Shape Shape1_0{*this, L"Shape1", {315, 2228, 225, 225}, loch(), 0};
    Shape Shape1_1{*this, L"Shape1", {315, 4538, 225, 225}, loch(), 1};
    RichTextBox lbl{*this,
                    L"lbl",
                    {810, 735, 4830, 5790},
                    {.font = {courier, 12}, .readOnly = true, .spoken = L"Auswertung"}};

    static ShapeLook loch() {
        return {.kind = ShapeKind::circle, .fill = colors::panel, .outline = colors::panel};
    }
};

} // namespace klopfmeise
