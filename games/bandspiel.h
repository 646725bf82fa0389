#pragma once

#include "games/pixel.h"
#include "platform/machine/services.h"

#include <array>
#include <string>

namespace klopfmeise {

/// "Fließband" as a plain value: five stones on a belt, and the rules. The form shows what stands here.
/// Places are in twips of the form; stones are numbered from 1, the leftmost.
struct Bandspiel {
    /// The ends of the belt, by which the rules go: `Picture1` 1 and 0.
    static constexpr Rect linkesEnde = inPixeln(13, 252, 57, 61);
    static constexpr Rect rechtesEnde = inPixeln(733, 252, 67, 61);
    static constexpr int Steinzahl = 5;
    static constexpr int steinbreite = pixel(38);
    static constexpr int Radbilder = 3;

    struct Stein {
        int left = 0;
        bool sichtbar = false;
        bool getippt = false;
        wchar_t zeichen = 0;
        friend bool operator==(const Stein&, const Stein&) = default;
    };

    /// Ready for a game: no stones, the belt stands.
    void Startaufstellung(std::wstring text);
    /// START.
    void starten(Random& zufall);
    /// A new group of stones at the right end.
    void NeueTasten(Random& zufall);
    /// The stones move on. True if that ends the game; they stand against the left end then.
    bool Timer1_Timer();
    void Timer2_Timer() { Radbild = Radbild % Radbilder + 1; }

    bool stimmt(wchar_t zeichen) const { return zeichen == lblStein().zeichen; }
    /// A wrong key: costs a point and throws the group on by the width of a stone.
    void danebentippen();
    /// The right key. True if it finished the group.
    bool tippen();
    /// Pays a finished group.
    void gutschreiben();
    void Beschleunigen();
    /// The belt runs back by a step. False once the group is out at the right.
    bool zurücklaufen();

    Stein& imgStein(int i) { return steine.at(static_cast<std::size_t>(i) - 1); }
    const Stein& imgStein(int i) const { return steine.at(static_cast<std::size_t>(i) - 1); }
    /// The stone to be typed next.
    const Stein& lblStein() const { return imgStein(Position); }

    friend bool operator==(const Bandspiel&, const Bandspiel&) = default;

    std::wstring Stufentext;
    bool läuft = false;
    int Punkte = 0;
    /// Of the stone to be typed next; 6: the group is finished.
    int Position = 1;
    /// Tenths of a pixel that the stones move at a tick.
    int Schrittzehntel = 10;
    /// Milliseconds a tick.
    int Intervall = 200;
    /// Picture of the wheels; 0 before they first turned.
    int Radbild = 0;
    std::array<Stein, Steinzahl> steine{};
};

} // namespace klopfmeise
