#pragma once

#include "platform/machine/services.h"

#include <optional>
#include <string>

namespace klopfmeise {

/// Mode of a file with names of children outside the data folder: not for everyone on this machine.
inline constexpr unsigned vertraulich = 0640;

/// What keeps those who share a data folder from a file or folder in it, against the folder around it.
struct Rechtemangel {
    /// Bits of the mode that are missing.
    unsigned fehlend = 0;
    bool klebend = false;
    /// The group is another one.
    bool fremdeGruppe = false;
    /// The folder around it hands an access list on, this one does not.
    bool ohneVorgabeliste = false;

    bool mangelhaft() const { return fehlend != 0 || klebend || fremdeGruppe || ohneVorgabeliste; }
    /// German, for a person.
    std::wstring text() const;
};

/// `pfad` is a file or a folder in `ordner`, both with backslashes. None if one of them cannot be looked at.
std::optional<Rechtemangel> rechtemangel(const Files& dateien, const std::wstring& ordner,
                                         const std::wstring& pfad);

/// Adds what is missing and takes the sticky bit away; what else is allowed stays. False if something is
/// still missing.
bool rechteAngleichen(const Files& dateien, const std::wstring& ordner, const std::wstring& pfad);

/// True if others than the owner can write in the folder, by its mode or by a list that it hands on.
bool geteilt(const Files& dateien, const std::wstring& ordner);

/// What the administrator made belongs to the owner of its folder, who could not write it otherwise. Does
/// nothing for other users.
void demOrdnerÜbereignen(const Files& dateien, const std::wstring& ordner, const std::wstring& pfad);

/// Seconds since the file was written; none if it cannot be looked at.
std::optional<double> alter(const Files& dateien, const std::wstring& pfad);

} // namespace klopfmeise
