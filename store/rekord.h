#pragma once

#include "store/globale.h"
#include "store/kontodatei.h"

#include <optional>

namespace klopfmeise {

/// The chosen child's high score in a game, given by its record (`HighWolken`, `HighSteine` or `HighBand`): 0
/// where it was never set, none if the account could not be read.
std::optional<Wert> rekordLesen(Files& dateien, const Globale& global, Kontosatz spiel);

/// How a game ended.
struct Spielausgang {
    /// The high score as it stands now; none if it could not be read.
    std::optional<Wert> Rekord;
    /// It is above the one that the account held before.
    bool neuerRekord = false;
    /// The score would have been one, but could not be read or written.
    bool verloren = false;
};

/// Reads the high score that the account holds and writes `punkte` in its place if they are more than
/// `rekord`, the high score with which the game began; the account's own stands in where that one could not
/// be read. Nothing counts that could not be read or written: the high score stays as it was.
///
/// A score is stored in the type of its game, Double, Integer or Single, or the next larger one that holds
/// it.
Spielausgang rekordFortschreiben(Files& dateien, const Globale& global, Kontosatz spiel, double punkte,
                                 const std::optional<Wert>& rekord);

} // namespace klopfmeise
