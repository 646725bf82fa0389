#pragma once

namespace klopfmeise {

/// Lets the toolkit see the fonts that the program draws with and a few to fall back on, instead of all that
/// are on the machine: reading the machine's rules for them takes longer than all else that a page needs.
/// To be called before the first font is used. Where the fonts lie elsewhere, nothing is changed.
void chooseFontFolders();

} // namespace klopfmeise
