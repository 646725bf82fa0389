#pragma once

#include "platform/controls/button.h"
#include "platform/controls/drawn.h"
#include "screens/fusszeile.h"
#include "store/rekord.h"

#include <optional>
#include <string>

namespace klopfmeise {

/// The look of a caption or a figure on a game: bold, about its middle. `höchstens`: see `mostWidth`.
inline LabelLook anzeige(const wchar_t* text, double punkt, int höchstens = 0) {
    return {.caption = text,
            .font = {courier, punkt, true},
            .align = Align::center,
            .mostWidth = höchstens,
            .wrap = false};
}

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
    /// START can be pressed, or it is said under it that the stage is none to play on. If the score of the
    /// game before was lost, that is said there.
    void freigeben(bool spielbar);
    /// START stands there before a game; what is said under it goes with it.
    void startZeigen(bool bereit);
    /// Reads the high score that the game's account holds and shows it.
    void rekordLesen();
    /// A game has ended by its own rule: writes the high score if it is one, and lets that be heard and seen.
    /// Else too the form stands for a moment, so that the child sees how the game ended.
    void Rekordpruefung(int Punkte);

    /// Lets time pass with nothing served, in seconds.
    void Kurzwarten(double sekunden);
    /// Ends a step of an animation, begun at `beginn` on the clock, no sooner than a screen shows the next
    /// picture.
    void bildAbwarten(double beginn);

    /// What assistive technology is told: what to type next, and the score if that has changed since; behind
    /// the end of a game, how it ended.
    const std::wstring& ansage() const { return ansage_; }
    /// `tasten` is empty where there is nothing to type. Once a handler, at its end.
    void ansagen(const std::wstring& tasten, int Punkte);

private:
    void rekordZeigen();

    Form& form_;
    Umgebung umgebung_;
    Kontosatz satz_;
    /// None if it could not be read.
    std::optional<Wert> Rekord;
    bool verloren_ = false;
    std::wstring ansage_;
    std::wstring ergebnis_;
    std::wstring angesagteTasten_;
    int angesagtePunkte_ = 0;

    Button cmdNeuesSpiel;
    Label lblHigh;
    Label LblLektion;
    Label lblHinweis;
    Übungsfuß fuß_;
};

} // namespace klopfmeise
