#pragma once

#include "games/pixel.h"
#include "platform/machine/services.h"

#include <array>
#include <string>
#include <string_view>

namespace klopfmeise {

/// "Wolken treffen" as a plain value: what stands where, and the rules. `Pushy` steps between two trees by
/// the letters on them and shoots at clouds; the form shows what stands here. Places are in twips of the
/// form, clouds are numbered from 1, the lowest.
struct Wolkenspiel {
    // Where the controls stand by which the rules go.
    static constexpr Rect linkerBaum = inPixeln(7, 469, 99, 57);
    static constexpr Rect rechterBaum = inPixeln(686, 469, 106, 57);
    static constexpr Rect pushyAmAnfang = inPixeln(476, 462, 80, 55);
    static constexpr int Wolkenzahl = 5;
    static constexpr int wolkenbreite = pixel(52);
    static constexpr int wolkenhöhe = pixel(32);
    static constexpr int wertbreite = pixel(50);
    static constexpr int werthöhe = pixel(29);
    static constexpr int wolkenoben(int wolke) { return pixel(308 - 42 * wolke); }
    /// Seconds of a game; whole ones count, rounded.
    static constexpr int Spielzeit = 60;

    struct Wolke {
        /// Of the cloud and of its value.
        int left = 0;
        /// Of the value: it flies away from a cloud that was hit.
        int wertTop = 0;
        int wert = 1;
        friend bool operator==(const Wolke&, const Wolke&) = default;
    };
    enum class Zug { keiner, schritt, schuss };
    struct Schuss {
        int x = 0;
        int y1 = 0;
        int Strahlende = 0;
        /// The cloud that was hit, 0 if none.
        int Treffer = 0;
    };

    /// Ready for a game: new letters, clouds and values. `Pushy` stays where it stood. Without a text to play
    /// on the trees carry no letters.
    void Startaufstellung(std::wstring text, Random& zufall);
    void NeueTasten(Random& zufall);
    /// START, at this reading of the clock.
    void starten(double uhr);
    /// A pulse of the game. True if the time is over.
    bool Timer1_Timer(double uhr, Random& zufall);
    /// What a typed character does. A step is taken at once, a shot is the caller's.
    Zug Form_KeyPress(wchar_t zeichen);
    void Form_KeyUp() { TasteGedrueckt = 0; }

    Schuss schießen() const;
    /// The value of a cloud that was hit flies on by a step. False once it is out of sight.
    bool fliegen(int Treffer);
    /// Pays the cloud, puts it somewhere else with another value, and changes the letters.
    void treffen(int Treffer, Random& zufall);

    Wolke& imgKiste(int i) { return wolken.at(static_cast<std::size_t>(i) - 1); }
    const Wolke& imgKiste(int i) const { return wolken.at(static_cast<std::size_t>(i) - 1); }

    friend bool operator==(const Wolkenspiel&, const Wolkenspiel&) = default;

    std::wstring Stufentext;
    int Punkte = 0;
    bool läuft = false;
    double Startzeit = 0;
    std::wstring LetzteAnzeige;
    int TasteGedrueckt = 0;
    /// The letters on the trees.
    std::wstring lblLinks;
    std::wstring lblRechts;
    /// Left edge.
    int Pushy = pushyAmAnfang.left;
    std::array<Wolke, Wolkenzahl> wolken{};
    /// Seconds left, as shown.
    int lblZeit = Spielzeit;
    /// The last seconds are shown in red.
    bool zeitRot = false;

private:
    int platzZiehen(Random& zufall) const;
    static int wertZiehen(Random& zufall);
};

} // namespace klopfmeise
