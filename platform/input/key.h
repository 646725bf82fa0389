#pragma once

#include <string>
#include <vector>

namespace klopfmeise {

/// One press or release of a key, as a backend tells it.
struct Key {
    /// Codes of Windows' virtual keys: one for most keys, control and alt for Alt Gr, none for keys that the
    /// forms never see.
    std::vector<int> codes;
    /// What the press types, accents composed; empty for a release and for commands with control or alt.
    std::wstring text;
};

} // namespace klopfmeise
