#pragma once

#include "verwaltung/ablage.h"
#include "verwaltung/kontobild.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace klopfmeise {

/// Something that is not as it should be in a data folder. All texts are German sentences.
struct Befund {
    /// Full path, with backslashes.
    std::wstring pfad;
    std::wstring was;
    /// What a person can do; not needed where `tat` says it.
    std::wstring abhilfe = {};
    /// How it would be mended, "die Stufe auf 12 setzen"; empty where it cannot be.
    std::wstring tat = {};
    std::function<bool()> beheben = {};
    /// Nothing that keeps anyone from working.
    bool hinweis = false;
};

/// What the parts of an examination share: the folder, what was found, how files are mended. Nothing is
/// written until a finding is mended.
class Prüfung {
public:
    /// `vorlage` with its closing backslash; it need not exist.
    Prüfung(const Ablage& ablage, Beiseite& beiseite, std::wstring vorlage)
        : ablage_(ablage)
        , beiseite_(beiseite)
        , vorlage_(std::move(vorlage)) {}

    Files& dateien() const { return ablage_.dateien(); }
    const Globale& global() const { return ablage_.global; }
    const std::wstring& ordner() const { return ablage_.global.Datenpfad; }

    void melden(Befund befund) { befunde_.push_back(std::move(befund)); }
    const std::vector<Befund>& befunde() const { return befunde_; }

    /// A finding about a file that comes with the folder: it can be taken from the template if that has one
    /// with which `heil` is content. `unterpfad` is the path in both.
    void mitVorlageMelden(const std::wstring& unterpfad, const std::wstring& was,
                          const std::function<bool(const std::string& bytes)>& heil);

    /// Copies a file over another one, which is put aside if it is there.
    bool ersetzen(const std::wstring& pfad, const std::wstring& aus) const;
    /// Writes records of a file that was examined as `bild`, each in place, with a copy put aside. False,
    /// too, if one of them has changed since.
    bool sätzeSetzen(const std::wstring& pfad, const Kontobild& bild,
                     const std::vector<std::pair<int, Wert>>& sätze) const;

private:
    const Ablage& ablage_;
    Beiseite& beiseite_;
    std::wstring vorlage_;
    std::vector<Befund> befunde_;
};

// The parts.
void kursPrüfen(Prüfung& prüfung);
void textePrüfen(Prüfung& prüfung);
void klassenPrüfen(Prüfung& prüfung);
/// `global` has the class.
void kontoPrüfen(Prüfung& prüfung, const Globale& global, const std::wstring& name);
void rechtePrüfen(Prüfung& prüfung);
void restePrüfen(Prüfung& prüfung);

/// "eine Datei" for 1, else "3 Dateien".
std::wstring anzahl(std::size_t zahl, const wchar_t* eine, const wchar_t* mehrere);

} // namespace klopfmeise
