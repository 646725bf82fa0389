#pragma once

#include "platform/controls/drawn.h"

#include <string>

namespace klopfmeise {

struct Kurskonto;

/// What stands in place of a figure that could not be read.
inline constexpr const wchar_t* unbekannt = L"–";

/// The look of a counter at the head of a typing screen. It keeps its place and grows about its middle, up to
/// `höchstens` twips, so that it does not reach its neighbour.
inline LabelLook zähler(int höchstens = 975) {
    return {.align = Align::center, .mostWidth = höchstens, .wrap = false};
}

/// The number of errors in the colour of judgement.
void fehlerZeigen(Label& label, int fehler);

/// Typing accuracy as the screens show it: "98,74 %".
std::wstring genauigkeitText(double prozent, wchar_t dezimalzeichen);

/// "Lektion 3 (Stufe 2)".
std::wstring lektionUndStufe(const Kurskonto& konto);

} // namespace klopfmeise
