#pragma once

#include "platform/machine/services.h"

#include <optional>
#include <string>

namespace klopfmeise {

/// Where a run stands when a key is counted.
struct Tippstand {
    int Lektionsnummer = 1;
    int Pos = 1;
    int Fehlerzahl = 0;
};

/// The share of right keys of the run so far enters a mean that weighs the old value with the number of the
/// lesson. A result below 0 becomes 0.01. Percent.
double genauigkeitWeiter(double bisher, const Tippstand& stand);

/// Reads `Genauigkeit` afresh, carries it on and writes it, the file open only meanwhile. None, and nothing
/// written, if the old value could not be read.
std::optional<double> genauigkeitFortschreiben(Files& dateien, const std::wstring& konto,
                                               const Tippstand& stand);

/// As the screens show it: "98,74 %".
std::wstring genauigkeitText(double prozent, wchar_t dezimalzeichen);

} // namespace klopfmeise
