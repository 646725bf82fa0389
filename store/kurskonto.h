#pragma once

#include "store/kontodatei.h"

#include <optional>

namespace klopfmeise {

/// What the course screens use of an account, with the defaults for records that were never set. The repair
/// is made in memory only.
struct Kurskonto {
    int Vorlagemodus = 0;
    int Fehlerstopp = 0;
    int Zeitmodus = 0;
    int Lektionsnummer = 1;
    int Stufennummer = 1;
    int Durchgangszahl = 1;
    /// Tenths of a second per character.
    int Tempowert = 10;
    /// Percent.
    double Genauigkeit = 100;
};

/// Reads records 29 to 36; none if the file could not be opened or read, which is not the same as an empty
/// account.
std::optional<Kurskonto> kurskontoLesen(Files& dateien, const std::wstring& pfad);

/// `Genauigkeit` as the account holds it, 100 where it was never set.
double genauigkeitAus(const Wert& wert);

/// Moves on by one stage: to the next lesson's first behind the last of `Stufenzahl`.
void stufeWeiter(Kurskonto& konto, int Stufenzahl);

} // namespace klopfmeise
