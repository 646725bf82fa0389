#include "proben/kind.h"
#include "screens/uebungen.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>

// langer_tag DATA VALUES [HOURS]: a school day at one machine, thirty children of the class "Tag" after one
// another, on a clock that need not be waited for. Tells what the process holds after the first tenth of the
// day and at its end, and fails if that grew, if a file stayed open, or if a timer did not tick when it was
// due.

namespace klopfmeise {
namespace {

namespace fs = std::filesystem;

constexpr int kinderzahl = 30;

/// Resident memory in KiB.
long speicher() {
    std::ifstream status("/proc/self/status");
    for (std::string zeile; std::getline(status, zeile);)
        if (zeile.starts_with("VmRSS:"))
            return std::stol(zeile.substr(6));
    return 0;
}

long offeneDateien() {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

int tag(const std::string& daten, const std::string& werte, double stunden) {
    Maschine m({.daten = daten + "/", .werte = werte, .tagebuch = {}});
    if (!m.starten())
        return 2;
    Würfel würfel(1);
    double späteste = 0;
    int anschläge = 0;
    Spielplatz platz{m, würfel, [&] {
                         // Asked between two inputs, when nothing may be due any more.
                         if (const double fällig = m.runtime.nextTick(); fällig >= 0)
                             späteste = std::max(späteste, m.clock.seconds() - fällig);
                         ++anschläge;
                         return true;
                     }};
    const double dauer = stunden * 3600;
    long anfangs = 0;
    const long offen = offeneDateien();
    for (int i = 0; i < kinderzahl; ++i) {
        Schulkind kind(platz, L"Tag", L"Kind " + std::to_wstring(i + 1));
        // Each screen for each child, so that the first ones have met all that there is.
        kind.nachsehen();
        kind.text(1500, 4);
        for (const int spiel : {ÜbungWolken, ÜbungSteine, ÜbungBand})
            kind.spiel(spiel, 400, 10);
        while (m.clock.seconds() < dauer * (i + 1) / kinderzahl)
            kind.kurs(600, würfel.mit(50) ? 0 : 5);
        platz.zurTitelseite();
        if (i == kinderzahl / 10)
            anfangs = speicher();
    }
    const long zuwachs = speicher() - anfangs;
    const long neuOffen = offeneDateien() - offen;
    std::printf(
        "%.1f Stunden, %d Kinder, %d Eingaben: %ld KiB nach einem Zehntel des Tages, am Ende %+ld KiB; "
        "%+ld offene Dateien; spätester Takt %.3f ms\n",
        m.clock.seconds() / 3600, kinderzahl, anschläge, anfangs, zuwachs, neuOffen, späteste * 1000);
    return zuwachs < 1024 && neuOffen == 0 && späteste < 1e-6 ? 0 : 1;
}

} // namespace
} // namespace klopfmeise

int main(int zahl, char** worte) {
    try {
        if (zahl >= 3)
            return klopfmeise::tag(worte[1], worte[2], zahl > 3 ? std::stod(worte[3]) : 8);
    } catch (const std::exception& fehler) {
        std::fprintf(stderr, "%s\n", fehler.what());
        return 2;
    }
    std::fputs("langer_tag DATEN WERTE [STUNDEN]\n", stderr);
    return 2;
}
