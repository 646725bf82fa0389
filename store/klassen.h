#pragma once

#include "store/globale.h"

#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

class Files;

// Classes are the folders in `Gruppen\`; a class has no record of its own. Names are without a backslash.

std::wstring gruppenordner(const Globale& global);
std::vector<std::wstring> klassenAuflisten(Files& dateien, const Globale& global);

/// False for a class whose folder is a link, and where that cannot be told: it is listed and can be deleted,
/// but nothing is read or written in it for a teacher, as it may lie anywhere. `klasse` with its backslash.
bool klasseZugänglich(Files& dateien, const Globale& global, const std::wstring& klasse);

enum class Klassenanlage {
    angelegt,
    /// The folder is there, but not its settings: no exercise is switched on.
    ohneEinstellungen,
    unzulässigerName,
    /// There is a class of this name, whatever its case.
    vorhanden,
    misslungen,
};
/// Makes the folder of a class with a copy of the template `KME.ein`; nothing else.
Klassenanlage klasseAnlegen(Files& dateien, const Globale& global, const std::wstring& name);

struct Klassenlöschung {
    /// Then nothing was deleted.
    bool hatUnterordner = false;
    /// The class is still there, and these files in it.
    bool misslungen = false;
    std::vector<std::wstring> übrig = {};
};
/// Deletes a class with all its accounts. Of a folder that is a link only the link goes.
Klassenlöschung klasseLöschen(Files& dateien, const Globale& global, const std::wstring& name);

/// Renames a class with all that lies in its folder. False, and nothing changed, for a name that cannot be or
/// that another class has.
bool klasseUmbenennen(Files& dateien, const Globale& global, const std::wstring& alt,
                      const std::wstring& neu);

} // namespace klopfmeise
