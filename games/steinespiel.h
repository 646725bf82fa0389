#pragma once

#include "platform/machine/services.h"
#include "platform/values/color.h"

#include <array>
#include <string>

namespace klopfmeise {

/// "Fallende Steine" as a plain value: the shaft, the figure that falls in it, and the rules. The form shows
/// what stands here.
///
/// A cell of the shaft has a fill colour beside its place in `Schacht`: white is empty, every other colour
/// belongs to a figure. `Schacht` tells what has landed, the colours show the falling figure as well, and
/// the end of the game and the vanishing of rows go by them.
struct Steinespiel {
    static constexpr int Spalten = 10;
    /// From the bottom; the upper two are not seen.
    static constexpr int Reihen = 25;
    static constexpr int sichtbareReihen = 23;
    static constexpr int Zellen = Spalten * Reihen;
    static constexpr int Vorschauspalten = 4;
    static constexpr int Vorschauzellen = Vorschauspalten * 3;
    static constexpr int kürzesteTaktzeit = 50;

    template <int Breite, int Höhe>
    using Tabelle = std::array<std::array<bool, Höhe + 1>, Breite + 1>;
    /// Cells (x, y) of a figure, 1 to 4 each. y counts downward on the screen. The margin around them is
    /// always false.
    using Gitter = Tabelle<5, 4>;

    /// Index of the screen cell of a column and a row.
    static constexpr int coor(int x, int y) { return x + Spalten * (y - 1) - 1; }

    /// Clears the shaft and prepares a game; a figure waits in the preview, none falls.
    void Startaufstellung(std::wstring text, Random& zufall);
    void NeueTasten(Random& zufall);
    void starten();
    /// A tick. True if it ended the game.
    [[nodiscard]] bool Timer1_Timer(Random& zufall);
    /// Moves the figure down by a row, or lands it and brings the next one. True if that ended the game.
    [[nodiscard]] bool Fallen(Random& zufall);
    /// Scores a landing, speeds up, clears full rows.
    void Ner(Random& zufall);
    /// Brings the next figure into play.
    void Nyfig(Random& zufall);
    /// Turns the figure into its next state if that has room.
    void Rotera();
    /// True if the character is a key of the moment: it clicks, even where the way is blocked.
    bool Form_KeyPress(wchar_t zeichen);
    void Form_KeyUp() { TasteGedrueckt = 0; }

    bool& gelandet(int x, int y) {
        return Schacht.at(static_cast<std::size_t>(x)).at(static_cast<std::size_t>(y));
    }
    bool gelandet(int x, int y) const {
        return Schacht.at(static_cast<std::size_t>(x)).at(static_cast<std::size_t>(y));
    }
    Color& farbe(int x, int y) { return Shape1.at(static_cast<std::size_t>(coor(x, y))); }
    const Color& farbe(int x, int y) const { return Shape1.at(static_cast<std::size_t>(coor(x, y))); }
    /// Column and row of a cell of the figure.
    int spalte(int x) const { return SteinX + x - 1; }
    int reihe(int y) const { return SteinY - y + 1; }

    friend bool operator==(const Steinespiel&, const Steinespiel&) = default;

    std::wstring Stufentext;
    bool läuft = false;
    Tabelle<Spalten, Reihen> Schacht{};
    /// Fill colours of the shaft's cells and of the preview's.
    std::array<Color, Zellen> Shape1{};
    std::array<Color, Vorschauzellen> Shape3{};
    Gitter Stein{};
    Gitter NaechsterStein{};
    /// 1 to 7; 0: none falls.
    int SteinArt = 0;
    int NaechsteArt = 0;
    Color SteinFarbe = colors::white;
    Color NaechsteFarbe = colors::white;
    /// Column and row of the shaft at which the figure's cell (1, 1) stands.
    int SteinX = 4;
    int SteinY = Reihen + 1;
    int Drehung = 1;
    int Fallbonus = 0;
    int Punkte = 0;
    /// The score as shown.
    int lblScore = 0;
    /// Milliseconds a row; that of the figure in play is `Intervall`.
    int Taktzeit = 1000;
    int Intervall = 1000;
    int TasteGedrueckt = 0;
    /// Empty before the first landing.
    wchar_t TasteLinks = 0;
    wchar_t TasteRechts = 0;
    wchar_t TasteDrehen = L' ';
    wchar_t TasteFallen = L'\r';
    /// The keys as shown.
    std::wstring lblLinks;
    std::wstring lblRechts;

private:
    template <class Tun>
    void jedeZelle(Tun tun) const;
    void ruhetest();
    bool belegt(int x, int y) const;
    void malen(int x, int y, Color neu) { farbe(spalte(x), reihe(y)) = neu; }
    void schieben(int um);
    void fallenLassen();
    void reiheLöschen(int y);
    void vorschauMalen();
};

} // namespace klopfmeise
