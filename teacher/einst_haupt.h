#pragma once

#include "platform/controls/button.h"
#include "platform/controls/drawn.h"
#include "platform/forms/form.h"
#include "screens/umgebung.h"

namespace klopfmeise {

/// The main menu of the teacher mode: three picture buttons that lead to the settings of the chosen class.
class einstHaupt final : public Form {
public:
    explicit einstHaupt(const Umgebung& umgebung);

    void Form_Load() override { moveTo(100, 100); }
    void Form_Activate() override { cmd_1.setFocus(); }

private:
    void cmd_Click(std::wstring_view ziel);
    ButtonLook knopf(const wchar_t* bild, const wchar_t* titel, std::wstring_view ziel);
    static LabelLook unterschrift(const wchar_t* text) { return {.caption = text, .align = Align::center}; }

    Label Label1_0{*this,
                   L"Label1",
                   {105, 315, 6660, 330},
                   {.caption = L"Wofür möchten Sie Einstellungen vornehmen?",
                    .font = {courier, 12, true},
                    .align = Align::center},
                   0};
    Button cmd_1;
    Button cmd_3;
    Button cmd_2;
    Label Label1_1{*this, L"Label1", {90, 2100, 1980, 540}, unterschrift(L"Kurs-Konten"), 1};
    Label Label1_2{*this, L"Label1", {2505, 2100, 1980, 540}, unterschrift(L"Allgemeine Einstellungen"), 2};
    Label Label1_3{*this, L"Label1", {4920, 2100, 1935, 540}, unterschrift(L" Eigene Texte"), 3};
};

} // namespace klopfmeise
