#pragma once

#include "store/globale.h"
#include "store/konten.h"
#include "store/lektionsdatei.h"

namespace klopfmeise {

/// What the course screens use of an account, with the defaults for records that were never set. The repair
/// is made in memory only.
struct Kurskonto : Kursparameter {
    /// Percent.
    double Genauigkeit = 100;
};

/// Why there is nothing to work on at a child's place in the course.
enum class Hindernis {
    keines,
    /// The account could not be opened or read, which is not the same as an empty one.
    kontoUnlesbar,
    /// All lessons are passed.
    kursZuEnde,
    /// The lesson file or the stage in it is missing or broken.
    keinText,
};

/// Where a child stands in the course: its account, and of the lesson's file what there is of the stage.
struct Kursplatz {
    Hindernis hindernis = Hindernis::kontoUnlesbar;
    /// The defaults if the account could not be read.
    Kurskonto konto;
    /// Empty if the account could not be read.
    Lektion lektion;

    /// True if the stage has a text: `lektion` holds it and the number of stages.
    bool bereit() const { return hindernis == Hindernis::keines; }
};

/// Reads account and lesson file of the chosen child afresh, each open only meanwhile.
Kursplatz kursplatzLesen(Files& dateien, const Globale& global);

/// Moves on by one stage: to the next lesson's first behind the last of `Stufenzahl`.
void stufeWeiter(Kurskonto& konto, int Stufenzahl);

/// Moves `konto` on behind a passed stage and writes the place, records 32 and 33 as a pair, into the chosen
/// child's account. Where the second cannot be written the first is put back, so that the pair never tells a
/// place that nobody reached.
void stufeBestanden(Files& dateien, const Globale& global, Kurskonto& konto, int Stufenzahl);

} // namespace klopfmeise
