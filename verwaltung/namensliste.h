#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// How first name and family name become the name of an account: "Mia Maier", "Mia M", "Mia".
enum class Namensart { voll, kurz, vorname };

/// A line of a list that names a child of the class, or should.
struct Listenzeile {
    /// From 1.
    std::size_t nummer = 0;
    std::wstring name;
    /// Why the line cannot be used; empty where it can.
    std::wstring fehler;
};

struct Namensliste {
    std::vector<Listenzeile> zeilen;
    /// Lines of other classes, and the names of these.
    std::size_t übergangen = 0;
    std::vector<std::wstring> andereKlassen;
    /// Why the list as a whole cannot be used; empty where it can.
    std::wstring fehler;
};

/// Reads a list of names: one to a line, or fields divided by `;`, `,` or a tab under a heading that has
/// `Name`, `Vorname` or both, and perhaps `Klasse`. UTF-8 with or without its mark, else Windows-1252. Blanks
/// around a name go, and a row of them becomes one. A name that stands there twice, whatever its case, is a
/// fault of the second line: two children would share an account.
Namensliste namenslisteAus(std::string_view bytes, std::wstring_view klasse, Namensart art);

} // namespace klopfmeise
