#pragma once

#include "platform/controls/button.h"
#include "platform/controls/drawn.h"
#include "screens/fusszeile.h"
#include "store/rekord.h"

#include <optional>
#include <string>

namespace klopfmeise {

/// In which a game differs from the others at what they have in common.
struct SpielLook {
    /// Number of the exercise in the menu.
    int übung = 0;
    /// The account's record with its high score.
    Kontosatz rekord = Kontosatz::HighWolken;
    Rect lblHigh;
    Rect cmdNeuesSpiel;
    /// START.
    Handler start = {};
    /// The button that abandons the game.
    PictureLook neu = {};
};

/// What the three games share: START, high score, place in the course, foot. A game draws its keys from the
/// text of the stage on which its child works.
class Spielrahmen {
public:
    Spielrahmen(Form& form, const Umgebung& umgebung, SpielLook look);

    /// Names child and class.
    void kindZeigen() { fuß_.kindZeigen(); }
    /// Reads the child's place in the course afresh, shows it, and seeds the random generator. Gives the text
    /// of the stage, or an empty one.
    std::wstring kursplatzLesen();
    /// START can be pressed, or a line under it says that the stage is none to play on.
    void freigeben(bool spielbar);
    /// Reads the high score that the game's account holds and shows it.
    void rekordLesen();
    /// A game has ended by its own rule: writes the high score if it is one, and lets it be heard and seen.
    void Rekordpruefung(double Punkte);

    /// Lets time pass with nothing served, in seconds.
    void Kurzwarten(double sekunden);
    /// Ends a step of an animation, begun at `beginn` on the clock, no sooner than a screen shows the next
    /// picture.
    void bildAbwarten(double beginn);

    /// What assistive technology is told: what to type next, and the score if that has changed since.
    const std::wstring& ansage() const { return ansage_; }
    void ansagen(const std::wstring& tasten, int Punkte);

    Button cmdNeuesSpiel;

private:
    void rekordZeigen();

    Form& form_;
    Umgebung umgebung_;
    Kontosatz satz_;
    /// None if it could not be read.
    std::optional<Wert> Rekord;
    std::wstring ansage_;
    std::wstring angesagteTasten_;
    int angesagtePunkte_ = 0;

    Label lblHigh;
    Label LblLektion;
    Label lblUnspielbar;
    Übungsfuß fuß_;
};

} // namespace klopfmeise
