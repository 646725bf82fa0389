#pragma once

#include "store/globale.h"
#include "store/wert.h"

#include <optional>

namespace klopfmeise {

class Files;

/// Where a run stands when a key is counted.
struct Tippstand {
    int Lektionsnummer = 1;
    int Pos = 1;
    int Fehlerzahl = 0;
};

/// `Genauigkeit` as the account holds it, in percent; 100 where it was never set.
double genauigkeitAus(const Wert& wert);

/// The share of right keys of the run so far enters a mean that weighs the old value with the number of the
/// lesson. A result below 0 becomes 0.01. Percent.
double genauigkeitWeiter(double bisher, const Tippstand& stand);

/// Reads the chosen child's `Genauigkeit` afresh, carries it on and writes it, the file open only meanwhile.
/// None, and nothing written, if the old value could not be read.
std::optional<double> genauigkeitFortschreiben(Files& dateien, const Globale& global, const Tippstand& stand);

} // namespace klopfmeise
