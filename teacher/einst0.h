#pragma once

#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "platform/forms/form.h"
#include "platform/forms/timer.h"
#include "screens/umgebung.h"

#include <string>

namespace klopfmeise {

/// What the class line of the frame says while no class is chosen. With the first it gives alarm; the second
/// is treated like a class.
namespace klassenzeile {
inline constexpr const wchar_t* keineGruppe = L" keine Gruppe ausgewählt... ";
inline constexpr const wchar_t* keineKlasse = L" keine Klasse ausgewählt... ";
} // namespace klassenzeile

/// The frame of the teacher mode: menu, class line, and one child window at a time. It is always maximised.
class einst0 final : public Form {
public:
    explicit einst0(const Umgebung& umgebung);

    void Form_Load() override;
    void Form_Activate() override { zeileAnpassen(); }
    void Form_Resize() override;
    void Form_Unload() override;

private:
    void Klassen_Click();
    void Hauptmenü_Click();
    void Code_Click();
    void Datenablage_Click();
    void Timer1_Timer();
    void zeileAnpassen();

    /// RGB of olive, the ground behind the child windows and below the class line.
    static constexpr Color olive = RGB(128, 128, 0);

    Umgebung umgebung_;

    PictureBox Picture1{*this, L"Picture1", {0, 0, 14880, 450}, {.back = olive}};
    Label LblKlasse{Picture1,
                    L"LblKlasse",
                    {0, 0, 14865, 390},
                    {.caption = klassenzeile::keineGruppe,
                     .font = {courier, 18, true},
                     .back = colors::white,
                     .align = Align::center,
                     .wrap = false}};
    Timer Timer1{*this, L"Timer1", {.interval = 300, .tick = [this] { Timer1_Timer(); }}};
};

/// Unloads the frame's child windows, and the folder screen. One that is not loaded is passed over.
void Unloaden(FormRuntime& runtime);

/// Shows the chosen class, or that none is chosen, in the frame's class line.
void klassenzeileSetzen(FormRuntime& runtime, const std::wstring& text);

} // namespace klopfmeise
