#pragma once

#include "screens/umgebung.h"

#include <string>
#include <string_view>

namespace klopfmeise {

/// Replaces the full-screen form `aktuell` by `ziel`; the backdrop covers the desktop meanwhile. The form
/// left is unloaded, and what of it must survive lives in the globals. A form that the program does not hold
/// leaves the screen as it is, and gives false.
bool Bildwechsel(const Umgebung& umgebung, Form& aktuell, std::wstring_view ziel);

/// Keeps a form above all other windows, or returns it to the normal order.
void Vordergrund(Form& form, bool an);

/// Hands a document or address to the desktop; the result is not inspected.
void DokumentOeffnen(const Umgebung& umgebung, Form& besitzer, const std::wstring& ziel);

} // namespace klopfmeise
