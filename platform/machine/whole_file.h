#pragma once

#include "platform/machine/rights.h"

#include <optional>
#include <string>
#include <string_view>

namespace klopfmeise {

/// With this the names of files begin that are on their way into the place of another. Its dot keeps them out
/// of all lists.
inline constexpr std::string_view draftBeginning = ".klopfmeise-";

/// The folder of a path of this machine.
std::string folderOf(const std::string& place);

/// Up to `limit` bytes of a file; no value if it is no file or cannot be read.
std::optional<std::string> readWhole(const Descriptor& file, std::size_t limit);

/// Gives a file a new content, or makes it. The content arrives whole or not at all: a new file with these
/// rights is written, flushed and put in the place of the old one; where the share refuses that, the old
/// file is written over, and what stood in it is put back if that fails. A file that this user may not write
/// is not replaced either.
bool replaceFile(const std::string& place, std::string_view bytes, const Rights& rights);

} // namespace klopfmeise
