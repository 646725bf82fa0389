#pragma once

#include "platform/machine/services.h"

#include <optional>
#include <string>
#include <string_view>

namespace klopfmeise {

/// Lessons of the course.
inline constexpr int Lektionenzahl = 30;

/// What a Lektionsdatei tells of one stage.
struct Stufe {
    std::wstring Stufentitel;
    std::wstring Stufentext;
    std::wstring Stufenhinweis;
};

/// The head of a Lektionsdatei and the stage that was looked for, as far as the file holds them.
struct Lektion {
    /// Number of stages; none where the line is missing or no number from 1 to `höchsteStufenzahl`.
    std::optional<int> Stufenzahl;
    std::wstring Lektionsart;
    std::wstring Lektionstitel;
    /// None where the marker or one of its three lines is missing, or the text is empty.
    std::optional<Stufe> stufe;

    static constexpr int höchsteStufenzahl = 999;

    /// True if a child can work on the stage.
    bool vollständig() const { return Stufenzahl && stufe; }
    bool einzeiler() const { return Lektionsart == L"Einzeiler"; }
};

/// Reads `Stufennummer` of a lesson from the text of its file: a head of three lines, then blocks of four
/// lines each, the first being "Unterstufe" and the number. Lines end with CR LF (LF alone is taken too); the
/// code page is Windows-1252.
Lektion lektionAus(std::string_view bytes, int Stufennummer);

/// As above from a file, which is read afresh; a missing file gives an empty Lektion.
Lektion lektionLesen(Files& dateien, const std::wstring& pfad, int Stufennummer);

} // namespace klopfmeise
