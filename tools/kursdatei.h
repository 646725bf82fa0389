#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

struct Kursstufe {
    std::wstring titel;
    std::wstring hinweis;
    std::wstring text; ///< one line; the lines of a flowing text are joined by a blank
};

/// A lesson as its authors write it in lektionen/.
struct Kurslektion {
    std::wstring titel;
    std::wstring art;                 ///< "Einzeiler" or "Fließtext"
    std::vector<std::wstring> tasten; ///< the new characters, one to an entry; may be empty
    bool umschalt = false;            ///< both shift keys are new
    std::vector<Kursstufe> stufen;
};

constexpr std::size_t Lektionszahl = 30;
constexpr std::size_t StufenJeLektion = 12;

inline constexpr std::wstring_view ArtEinzeiler = L"Einzeiler";
inline constexpr std::wstring_view ArtFließtext = L"Fließtext";

/// Reads the UTF-8 text of a lesson: three head lines, then the stages, blocks parted by one empty line.
/// Throws std::runtime_error "name:line: what is wrong", in German, since authors read it.
Kurslektion zerlegeKurslektion(std::string_view utf8, const std::string& name);

/// As zerlegeKurslektion, from a file; also throws if the file cannot be read.
Kurslektion leseKurslektion(const std::filesystem::path& datei);

/// Lektion01.txt to Lektion30.txt of the folder, in order.
std::vector<Kurslektion> leseKurs(const std::filesystem::path& ordner);

} // namespace klopfmeise
