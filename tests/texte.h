#pragma once

#include "platform/values/text.h"
#include "tests/buehne.h"

#include <sstream>

namespace klopfmeise {

/// The one text of tests/texte.txt that begins like this, whole. There stand the messages and help texts that
/// are too long for a test, "\n" for a line break.
inline std::wstring ganz(std::wstring_view anfang) {
    std::istringstream zeilen(dateiinhalt(KLOPFMEISE_QUELLEN "/tests/texte.txt"));
    std::wstring gefunden;
    for (std::string zeile; std::getline(zeilen, zeile);)
        if (std::wstring text = fromUtf8(zeile); text.starts_with(anfang)) {
            if (!gefunden.empty())
                throw std::logic_error("more than one text begins like this");
            for (auto at = text.find(L"\\n"); at != std::wstring::npos; at = text.find(L"\\n", at))
                text.replace(at, 2, L"\n");
            gefunden = text;
        }
    if (gefunden.empty())
        throw std::logic_error("no text begins like this");
    return gefunden;
}

} // namespace klopfmeise
