#pragma once

#include "games/spielrahmen.h"
#include "games/wolkenspiel.h"
#include "platform/controls/control_array.h"
#include "platform/forms/form.h"
#include "platform/forms/timer.h"
#include "screens/bildknopf.h"
#include "screens/uebungen.h"

namespace klopfmeise {

/// "Spiel: Wolken treffen": 60 seconds to shoot at clouds, steered by two letters of the child's stage.
class Tastatur3 final : public Form {
public:
    explicit Tastatur3(const Umgebung& umgebung);

    void Form_Load() override;
    /// A key that was down when another window came was released there.
    void Form_Activate() override { spiel_.Form_KeyUp(); }
    void Form_KeyPress(KeyPress& taste) override;
    void Form_KeyUp() override { spiel_.Form_KeyUp(); }
    std::wstring spokenTarget() const override { return rahmen_.ansage(); }

private:
    void Startaufstellung();
    void cmdNeuesSpiel_Click();
    void imgNeu_Click() { Startaufstellung(); }
    void Timer1_Timer();
    void schießen();
    /// Carries what stands in the game over to the controls.
    void zeigen();

    Umgebung umgebung_;
    Wolkenspiel spiel_;

    Label lblLinks{*this, L"lblLinks", Wolkenspiel::linkerBaum, anzeige(L"", 36)};
    Label lblRechts{*this, L"lblRechts", Wolkenspiel::rechterBaum, anzeige(L"", 36)};
    Line schuss{*this, L"schuss", {}, {.color = colors::coral, .width = 2, .visible = false}};
    Picture Pushy{*this, L"Pushy", Wolkenspiel::pushyAmAnfang, {.picture = L"pushy"}};
    ControlArray<Picture> imgKiste{
        *this,
        L"imgKiste",
        1,
        Wolkenspiel::Wolkenzahl,
        [](int i) {
            return Rect{0, Wolkenspiel::wolkenoben(i), Wolkenspiel::wolkenbreite, Wolkenspiel::wolkenhöhe};
        },
        PictureLook{.picture = L"wolke"}};
    ControlArray<Label> lblKiste{
        *this,
        L"lblKiste",
        1,
        Wolkenspiel::Wolkenzahl,
        [](int i) {
            return Rect{0, Wolkenspiel::wolkenoben(i), Wolkenspiel::wertbreite, Wolkenspiel::werthöhe};
        },
        anzeige(L"", 20.25)};
    Label Label4{*this, L"Label4", inPixeln(25, 0, 56, 27), anzeige(L"Zeit", 18)};
    Label lblZeit{*this, L"lblZeit", inPixeln(24, 21, 58, 54), anzeige(L"60", 36)};
    Label Label1{*this, L"Label1", inPixeln(329, 0, 85, 27), anzeige(L"Punkte", 18)};
    Label lblPunkte{*this, L"lblPunkte", inPixeln(360, 21, 30, 54), anzeige(L"0", 36, 3000)};
    Label Label2{*this, L"Label2", inPixeln(637, 0, 141, 27), anzeige(L"High-Score", 18)};

    Spielrahmen rahmen_{
        *this,
        umgebung_,
        {.übung = ÜbungWolken,
         .rekord = Kontosatz::HighWolken,
         .lblHigh = inPixeln(649, 21, 117, 54),
         .cmdNeuesSpiel = inPixeln(217, 308, 365, 81),
         .start = [this] { cmdNeuesSpiel_Click(); },
         .neu = bildknopf(umgebung_, L"knopf_neu", L"Neues Spiel", [this] { imgNeu_Click(); })}};

    Timer Timer1{*this, L"Timer1", {.interval = 50, .enabled = false, .tick = [this] { Timer1_Timer(); }}};
};

} // namespace klopfmeise
