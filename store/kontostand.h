#pragma once

#include "store/textkonto.h"

#include <optional>

namespace klopfmeise {

/// All that an account notes about a child, as the account view shows it: by what the records say, with the
/// defaults for those that were never set.
struct Kontostand {
    Wert Lektionsnummer;
    Wert Stufennummer;
    /// Percent.
    double Genauigkeit = 100;
    Wert HighWolken;
    Wert HighSteine;
    Wert HighBand;
    Textstand texte;
};

/// Reads the figures of the chosen child; none if the account could not be read.
std::optional<Kontostand> kontostandLesen(Files& dateien, const Globale& global);

} // namespace klopfmeise
