#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// A file or folder in an archive, its path with slashes.
struct Archiveintrag {
    std::string pfad;
    bool ordner = false;
    std::string inhalt = {};
    unsigned modus = 0644;
    std::int64_t besitzer = 0;
    std::int64_t gruppe = 0;
    /// Seconds since 1970.
    std::int64_t zeit = 0;
};

/// True if the path is short enough for the format.
bool passtInsArchiv(const Archiveintrag& eintrag);

/// An archive in the interchange format of POSIX (ustar), which `tar` reads. All paths have to fit.
std::string archivAus(const std::vector<Archiveintrag>& einträge);

struct Archivinhalt {
    std::vector<Archiveintrag> einträge;
    /// Paths of what is neither a file nor a folder: links, devices and the like.
    std::vector<std::string> fremd;
    /// Why the archive cannot be read, for a person; empty where it can. Then there are no entries.
    std::wstring fehler;
};

/// Reads an archive of this or another program. One that ends early, or with a checksum that is wrong, is
/// refused as a whole.
Archivinhalt archivLesen(std::string_view bytes);

} // namespace klopfmeise
