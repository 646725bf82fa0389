#pragma once

#include "games/bandspiel.h"
#include "games/spielrahmen.h"
#include "platform/controls/panels.h"
#include "platform/forms/form.h"
#include "platform/forms/timer.h"
#include "screens/uebungen.h"

#include <array>

namespace klopfmeise {

/// "Spiel: Fließband": groups of five stones come along a belt and have to be typed before they reach its
/// left end. A held key counts as typing here.
class Fließband final : public Form {
public:
    explicit Fließband(const Umgebung& umgebung);

    void Form_Load() override;
    void Form_KeyPress(KeyPress& taste) override;
    std::wstring spokenTarget() const override { return rahmen_.ansage(); }

private:
    void Startaufstellung();
    void cmdNeuesSpiel_Click();
    void imgNeu_MouseDown();
    void Timer1_Timer();
    void Timer2_Timer();
    void danebentippen();
    void gruppeFertig();
    /// Carries what stands in the game over to the controls.
    void zeigen();
    void steinZeigen(int i);
    void steinMalen(int i);
    /// Lets the stones be seen where they are, inside a handler.
    void steineMalen();

    /// A stone and the character on it.
    struct Steinbild {
        Steinbild(Form& form, int i);
        PictureBox imgStein;
        Label lblStein;
    };
    static constexpr LinePlace band(int x1, int x2, int y) {
        return {pixel(x1), pixel(y), pixel(x2), pixel(y)};
    }

    /// The wall behind what stands on the belt; drawings in a box of their own are not transparent.
    static constexpr Color wand = RGB(245, 241, 227);

    Umgebung umgebung_;
    Bandspiel spiel_;

    Line lineBand_1{*this, L"lineBand", band(42, 751, 313), {.width = 2}, 1};
    Line lineBand_2{*this, L"lineBand", band(49, 743, 369), {.width = 2}, 2};
    Picture imgRad_1{*this, L"imgRad", inPixeln(14, 309, 64, 64), {.picture = L"rad_1"}, 1};
    Picture imgRad_2{*this, L"imgRad", inPixeln(721, 309, 64, 64), {.picture = L"rad_1"}, 2};
    Label Label4{*this, L"Label4", inPixeln(21, 7, 113, 27), anzeige(L"Punkte", 18)};
    Label lblPunkte{*this, L"lblPunkte", inPixeln(63, 28, 30, 54), anzeige(L"0", 36, 1800)};
    Label Label2{*this, L"Label2", inPixeln(637, 7, 141, 27), anzeige(L"High-Score", 18)};

    std::array<Steinbild, Bandspiel::Steinzahl> steine_{
        {{*this, 1}, {*this, 2}, {*this, 3}, {*this, 4}, {*this, 5}}};
    // Above the stones, which come out of the one and run into the other.
    PictureBox Picture1_0{
        *this, L"Picture1", Bandspiel::rechtesEnde, {.back = wand, .picture = L"band_rechts"}, 0};
    PictureBox Picture1_1{
        *this, L"Picture1", Bandspiel::linkesEnde, {.back = wand, .picture = L"band_links"}, 1};

    Spielrahmen rahmen_{*this,
                        umgebung_,
                        {.übung = ÜbungBand,
                         .rekord = Kontosatz::HighBand,
                         .lblHigh = inPixeln(651, 28, 116, 54),
                         .cmdNeuesSpiel = inPixeln(217, 140, 365, 81),
                         .start = [this] { cmdNeuesSpiel_Click(); },
                         .neu = {.picture = L"knopf_neu",
                                 .pointer = Pointer::hand,
                                 .toolTip = L"Neues Spiel",
                                 .mouseDown = [this](MouseButton) { imgNeu_MouseDown(); }}}};

    Timer Timer1{*this, L"Timer1", {.interval = 200, .enabled = false, .tick = [this] { Timer1_Timer(); }}};
    Timer Timer2{*this, L"Timer2", {.interval = 200, .enabled = false, .tick = [this] { Timer2_Timer(); }}};
};

} // namespace klopfmeise
