#pragma once

#include "platform/machine/services.h"

#include <string>
#include <vector>

namespace klopfmeise {

/// The part behind the last backslash; the whole path where there is none.
std::wstring DateiName(const std::wstring& pfad);

/// True if a file with exactly this path exists, names compared in upper case.
bool DateiVorhanden(Files& dateien, const std::wstring& pfad);

/// The path with a closing backslash.
std::wstring mitBackslash(std::wstring pfad);

/// The data folder as the machine-wide value names it: its last character dropped (a terminator or the
/// closing backslash), then a backslash appended where none ends it. "\" where the value is missing.
std::wstring DatenablageLesen(Services& dienste);

/// Which of the files that mark a data folder are missing, with their paths in it. `ordner` with its closing
/// backslash.
std::vector<std::wstring> fehlendeMarken(Files& dateien, const std::wstring& ordner);

/// Whether a folder, given with its closing backslash, can be the data folder: the three marker files, four
/// characters at the least, and a directory.
bool zulässigeDatenablage(Files& dateien, const std::wstring& ordner);

/// Writes the test file of start-up, `lzf75.tst`, into the data folder; it stays behind. False if the folder
/// cannot be written or has no room left.
bool schreibprobe(Files& dateien, const std::wstring& ordner);

} // namespace klopfmeise
