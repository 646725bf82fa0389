#pragma once

#include "proben/kind.h"

namespace klopfmeise {

/// A teacher at a machine: the other side of the program.
class Lehrkraft {
public:
    /// `klassen` are those with children in them, `eigene` begins the names of classes that only this teacher
    /// has.
    Lehrkraft(Spielplatz& platz, std::vector<std::wstring> klassen, std::wstring eigene)
        : platz_(platz)
        , m(platz.m)
        , klassen_(std::move(klassen))
        , eigene_(std::move(eigene)) {}

    /// Sliders and options of some children; those whose names begin with "Eigen" are left alone.
    void konten(const std::wstring& klasse);
    /// Writes into own texts, makes and deletes some.
    void texte(const std::wstring& klasse, int tasten);
    /// Switches of the exercises on and off.
    void schalter(const std::wstring& klasse);
    /// Makes a class with accounts, renames it some times, and mostly deletes it again.
    void eigeneKlasse();
    /// Leads the program to another data folder, which ends it.
    void ablage(const std::string& ordner);
    void irgendwas();

private:
    /// A class in the teacher mode, and the screen behind the button of this number.
    bool öffnen(const std::wstring& klasse, int knopf);
    bool betreten();
    void umbenennen(const std::wstring& neu);

    Spielplatz& platz_;
    Maschine& m;
    std::vector<std::wstring> klassen_;
    std::wstring eigene_;
    int zähler_ = 0;
};

} // namespace klopfmeise
