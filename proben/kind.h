#pragma once

#include "proben/maschine.h"

#include <functional>
#include <map>
#include <random>
#include <string>

namespace klopfmeise {

/// Chance with a seed.
class Würfel {
public:
    explicit Würfel(unsigned saat)
        : zufall_(saat) {}
    /// 0 to `zahl` - 1.
    int bis(int zahl) { return static_cast<int>(zufall_() % static_cast<unsigned>(zahl)); }
    bool mit(int prozent) { return bis(100) < prozent; }
    wchar_t eineVon(std::wstring_view zeichen) {
        return zeichen[static_cast<std::size_t>(bis(static_cast<int>(zeichen.size())))];
    }

private:
    std::mt19937 zufall_;
};

/// Who plays at a machine: goes on until `weiter` says no.
struct Spielplatz {
    Maschine& m;
    Würfel& würfel;
    std::function<bool()> weiter;

    /// From wherever the program stands to the class list of the title page; false if it has ended.
    bool zurTitelseite();
    /// Presses a class of the list that is shown, wherever it has to be scrolled to; false if it is not
    /// there.
    bool klasseWählen(const std::wstring& klasse, MouseButton knopf = MouseButton::left);
};

/// A child at a machine. It looks at the screen alone, and remembers what its account ought to hold by that:
/// what it expects goes into the diary.
class Schulkind {
public:
    Schulkind(Spielplatz& platz, std::wstring klasse, std::wstring name);

    /// Class and name on the title page; false if one of them is not there.
    bool anmelden();
    /// Types on the course, at most so many keys, with so many wrong ones in a hundred.
    void kurs(int tasten, int fehler);
    void text(int tasten, int fehler);
    /// One of the games, to its end or for so many moves.
    void spiel(int nummer, int züge, int fehler);
    /// Account view, help page, lesson picture.
    void nachsehen();
    /// Any of these.
    void irgendwas();

private:
    bool öffnen(int übung);
    void tippen(int tasten, int fehler);
    void erwarten(int satz, double wert);
    void platzMerken();

    Spielplatz& platz_;
    Maschine& m;
    std::wstring klasse_;
    std::wstring name_;
    std::string datei_;
    /// By the numbers of the records.
    std::map<int, double> erwartet_;
    /// Stages of the lesson.
    int stufenzahl_ = 0;
};

} // namespace klopfmeise
