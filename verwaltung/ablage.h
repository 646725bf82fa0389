#pragma once

#include "platform/machine/services.h"
#include "store/globale.h"
#include "verwaltung/konsole.h"

#include <ctime>
#include <optional>
#include <string>

namespace klopfmeise {

/// What every command works with.
struct Umfeld {
    Files& dateien;
    Konsole& konsole;
    /// Local time.
    std::tm jetzt;
    /// The data folder that new ones are made from.
    std::string vorlage;
};

/// A data folder that a command works on, with the chosen class.
struct Ablage {
    Umfeld& umfeld;
    Globale global;

    Files& dateien() const { return umfeld.dateien; }
    /// A path under the folder as a person reads it, without the folder.
    std::wstring gezeigt(const std::wstring& pfad) const;
};

/// A path from the command line as the logic writes it, without a closing backslash.
std::wstring pfadAus(const Files& dateien, const std::string& ort);
/// And as this machine writes it.
std::string maschinenpfad(const Files& dateien, const std::wstring& pfad);

/// The data folder at `ort`; none, and said why, if there is none or it lacks the folders `Data` and
/// `Gruppen`.
std::optional<Ablage> ablageÖffnen(Umfeld& umfeld, const std::string& ort);

/// Chooses the class of this name, whatever its case. False, and said why, if there is none or it is a link.
bool klasseWählen(Ablage& ablage, const std::string& name);
/// Its name.
std::wstring klassenname(const Globale& global);

/// "2026-11-23"
std::wstring tag(const std::tm& zeit);
/// "2026-11-23-160142", for the name of a file.
std::wstring zeitpunkt(const std::tm& zeit);

/// True for a name of a file or folder that stays in the folder it is put into: not empty, no beginning dot,
/// nothing that divides a path, no control character.
bool bleibtImOrdner(std::wstring_view name);

/// Copies of what a command replaces in a data folder, in a folder `Sicherung-<Zeitpunkt>` that is made with
/// the first one.
class Beiseite {
public:
    explicit Beiseite(const Ablage& ablage);

    /// Copies a file under the data folder; false if that failed.
    bool legen(const std::wstring& pfad);
    /// Empty as long as nothing was copied.
    const std::wstring& ordner() const { return ordner_; }

private:
    const Ablage& ablage_;
    std::wstring ordner_;
};

} // namespace klopfmeise
