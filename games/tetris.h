#pragma once

#include "games/spielrahmen.h"
#include "games/steinespiel.h"
#include "platform/controls/control_array.h"
#include "platform/forms/form.h"
#include "platform/forms/timer.h"
#include "screens/bildknopf.h"
#include "screens/uebungen.h"

namespace klopfmeise {

/// "Spiel: Fallende Steine": figures fall down a shaft; two letters of the child's stage move them, the blank
/// turns and Enter drops them.
class Tetris final : public Form {
public:
    explicit Tetris(const Umgebung& umgebung);

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
    void Gameover();
    /// Carries what stands in the game over to the controls.
    void zeigen();

    /// Side of a cell and distance to the next one: neighbours share a line.
    static constexpr int zellseite = 330;
    static constexpr int zellabstand = 315;
    static Rect schachtplatz(int zelle) {
        return {4425 + zellabstand * (zelle % Steinespiel::Spalten),
                7155 - zellabstand * (zelle / Steinespiel::Spalten), zellseite, zellseite};
    }
    static ShapeLook schachtzelle(int zelle) {
        return {.fill = colors::white,
                .outline = colors::paleGrey,
                .visible = zelle < Steinespiel::sichtbareReihen * Steinespiel::Spalten};
    }
    static Rect vorschauplatz(int zelle) {
        return {9345 + zellabstand * (zelle % Steinespiel::Vorschauspalten),
                6615 + zellabstand * (zelle / Steinespiel::Vorschauspalten), zellseite, zellseite};
    }

    Umgebung umgebung_;
    Steinespiel spiel_;

    ControlArray<Shape> Shape1{*this, L"Shape1", 0, Steinespiel::Zellen - 1, schachtplatz, schachtzelle};
    ControlArray<Shape> Shape3{*this,
                               L"Shape3",
                               0,
                               Steinespiel::Vorschauzellen - 1,
                               vorschauplatz,
                               ShapeLook{.fill = colors::white, .outline = colors::white}};
    Picture imgPfeil_1{*this, L"imgPfeil", {2625, 210, 1500, 1365}, {.picture = L"pfeil_links"}, 1};
    Picture imgPfeil_0{*this, L"imgPfeil", {7875, 210, 1500, 1365}, {.picture = L"pfeil_rechts"}, 0};
    Label lblLinks{*this, L"lblLinks", {3255, 630, 750, 540}, anzeige(L"", 21.75)};
    Label lblRechts{*this, L"lblRechts", {7980, 630, 855, 645}, anzeige(L"", 21.75)};
    Label Label1{*this, L"Label1", {315, 4515, 3375, 375}, anzeige(L"Punkte", 18)};
    Label lblScore{*this, L"lblScore", {315, 4830, 3375, 750}, anzeige(L"0", 36)};
    Label Label2{*this, L"Label2", {315, 6090, 3375, 375}, anzeige(L"High-Score", 18)};
    Label Label4{*this, L"Label4", {8295, 6090, 3375, 435}, anzeige(L"Nächstes Teil", 18)};

    Spielrahmen rahmen_{
        *this,
        umgebung_,
        {.übung = ÜbungSteine,
         .rekord = Kontosatz::HighSteine,
         .lblHigh = {315, 6510, 3375, 645},
         .cmdNeuesSpiel = {3255, 2730, 5475, 1215},
         .start = [this] { cmdNeuesSpiel_Click(); },
         .neu = bildknopf(umgebung_, L"knopf_neu", L"Neues Spiel", [this] { imgNeu_Click(); })}};

    Timer Timer1{*this, L"Timer1", {.interval = 1000, .enabled = false, .tick = [this] { Timer1_Timer(); }}};
};

} // namespace klopfmeise
