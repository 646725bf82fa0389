#pragma once

#include "store/globale.h"

#include <optional>
#include <string>
#include <vector>

namespace klopfmeise {

class Files;
class Kontodatei;

// Accounts are the files of the chosen class's folder with the ending of a Kontodatei; a child has no other
// record. Names are without the ending.

std::vector<std::wstring> kontenAuflisten(Files& dateien, const Globale& global);

enum class Kontoanlage {
    angelegt,
    /// There is an account of this name already; it stays as it is.
    vorhanden,
    unzulässigerName,
    misslungen,
};
/// Makes an account with its creation image. A file of this name without `Kontomarke`, an empty one, is none
/// yet.
Kontoanlage kontoAnlegen(Files& dateien, const Globale& global, const std::wstring& name);

/// What a deletion left behind.
struct Kontorest {
    /// The account itself; then nothing was deleted.
    bool konto = false;
    /// Files in the child's folder.
    std::vector<std::wstring> dateien = {};

    bool leer() const { return !konto && dateien.empty(); }
};
/// Deletes an account and the files in the child's folder, if there is one; the folder stays. Of a folder
/// that is a link only the link goes.
Kontorest kontoLöschen(Files& dateien, const Globale& global, const std::wstring& name);

/// The course parameters of a child, with the defaults for records that were never set.
struct Kursparameter {
    int Vorlagemodus = 0;
    int Fehlerstopp = 0;
    int Zeitmodus = 0;
    int Lektionsnummer = 1;
    int Stufennummer = 1;
    int Durchgangszahl = 1;
    /// Tenths of a second per character.
    int Tempowert = 10;

    friend bool operator==(const Kursparameter&, const Kursparameter&) = default;
};

/// Records 29 to 35 of an open account.
Kursparameter kursparameterAus(Kontodatei& datei);
/// Those of the chosen child; none if there is no account or it could not be read.
std::optional<Kursparameter> kursparameterLesen(Files& dateien, const Globale& global);
/// Writes all seven into the chosen child's account: all or none. False, too, for an account that is gone: it
/// is not made again.
bool kursparameterSchreiben(Files& dateien, const Globale& global, const Kursparameter& werte);

} // namespace klopfmeise
