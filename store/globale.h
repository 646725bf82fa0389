#pragma once

#include <string>

namespace klopfmeise {

/// What survives a change of form; one copy for the process. Forms hand each other nothing but this and the
/// files.
struct Globale {
    /// Folder of the executable, with trailing backslash.
    std::wstring Programmpfad;
    /// The data folder, with trailing backslash.
    std::wstring Datenpfad;
    /// Chosen class with trailing backslash, or empty.
    std::wstring AktuelleKlasse;
    /// Chosen child: "<Name>._" on the learner's side, "<Name>" on the teacher's.
    std::wstring AktuellesKonto;
    /// Title of the chosen exercise, or empty.
    std::wstring AktuelleUebung;
    /// 1 to 5, 0 while none is chosen.
    int AktuelleUebungNr = 0;
    /// 1: the title page comes back on the exercise menu. 0: it opens on the class list.
    int KlasseGewaehlt = 0;
    /// Report on the last finished text.
    std::wstring Fehlerbericht;
};

} // namespace klopfmeise
