#pragma once

#include "store/globale.h"
#include "store/wert.h"

#include <optional>
#include <string>

namespace klopfmeise {

class Files;
class Kontodatei;

/// What an account notes of "Text tippen". A record that was never set reads as 0.
struct Textstand {
    Wert TexteGesamt;
    /// Keystrokes per minute: a String behind the first text, a number from then on.
    Wert AnschlaegeSchnitt;
};

/// Records 40 and 41 of an open account.
Textstand textstandAus(Kontodatei& datei);
/// As above of the chosen child; none if the account could not be read.
std::optional<Textstand> textstandLesen(Files& dateien, const Globale& global);

/// Counts a finished text in record 40 and returns the new number. None, and nothing written, if the old one
/// could not be read.
std::optional<Wert> textZählen(Files& dateien, const Globale& global);

/// Carries the average of record 41 on with the keystrokes of a finished text, as its screen shows them: the
/// text itself the first time, from then on the whole part of the mean of old and new. Returns the new value;
/// none, and nothing written, if the old one could not be read.
std::optional<Wert> schnittFortschreiben(Files& dateien, const Globale& global,
                                         const std::wstring& anschläge);

} // namespace klopfmeise
