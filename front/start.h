#pragma once

#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "platform/forms/form.h"
#include "screens/formnamen.h"
#include "screens/umgebung.h"

namespace klopfmeise {

/// The splash with which the process begins. It finds and tests the data folder and hands over to the title
/// page, or to the folder screen if the folder is refused.
class frmStart final : public Form {
public:
    explicit frmStart(const Umgebung& umgebung);

    void Form_Load() override { centre(); }
    void Form_Activate() override;

private:
    /// Proves that the data folder can be written. False: the message was shown and the process ends.
    bool LZF75Test();

    Umgebung umgebung_;

    Picture Image1{
        *this, L"Image1", {0, 0, 7200, 4650}, {.picture = L"hintergrund_splash", .spoken = L"Klopfmeise"}};
    Frame Frame1{*this, L"Frame1", {1500, 3795, 4200, 690}, {.back = colors::black, .border = false}};
    Label Label7{Frame1, L"Label7", {0, 60, 4200, 240}, hell(L"Das Programm wird geladen.")};
    Label Label8{Frame1, L"Label8", {0, 360, 4200, 240}, hell(L"Bitte warten.")};

    static LabelLook hell(const wchar_t* text) {
        return {.caption = text, .fore = colors::white, .align = Align::center};
    }
};

/// The backdrop: it covers the desktop behind the full-screen forms from the end of start-up on.
class frmTemp final : public Form {
public:
    explicit frmTemp(const Umgebung& umgebung)
        : Form(umgebung.runtime, formname::frmTemp, {.kind = FormKind::backdrop, .back = colors::paleGrey}) {}
};

} // namespace klopfmeise
