#pragma once

#include "store/kontostand.h"

#include <optional>
#include <string>
#include <vector>

namespace klopfmeise {

/// A child and what its account notes; none if that could not be read.
struct Berichtszeile {
    std::wstring name;
    std::optional<Kontostand> stand;
};

/// How far the children of a class have come.
struct Klassenbericht {
    std::wstring klasse;
    /// "23.11.2026"
    std::wstring datum;
    std::vector<Berichtszeile> kinder;
};

// The report in three forms, UTF-8. Numbers are German, with a decimal comma.

/// Columns of even width, for a terminal.
std::string alsTabelle(const Klassenbericht& bericht);
/// Semicolons, lines with CR LF, and the mark of UTF-8, so that a spreadsheet reads it as it is.
std::string alsCsv(const Klassenbericht& bericht);
/// A page for printing, complete in itself, with bars for course and accuracy.
std::string alsHtml(const Klassenbericht& bericht);

} // namespace klopfmeise
