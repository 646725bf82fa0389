#pragma once

namespace klopfmeise {

struct Umgebung;

/// Fills the one table that maps a form's name to what makes it.
void formenEintragen(const Umgebung& umgebung);

} // namespace klopfmeise
