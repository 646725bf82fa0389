#pragma once

#include "tests/probe.h"

#include <sstream>

namespace klopfmeise {

/// The one text of tests/texte.txt that begins like this, whole. There stand the messages and help texts that
/// are too long for a test, "\n" for a line break.
inline std::wstring ganz(std::wstring_view anfang) {
    std::istringstream zeilen(dateiinhalt(KLOPFMEISE_QUELLEN "/tests/texte.txt"));
    std::wstring gefunden;
    for (std::string zeile; std::getline(zeilen, zeile);)
        if (std::wstring text = fromUtf8(zeile); text.starts_with(anfang)) {
            EXPECT_EQ(gefunden, L"") << "more than one text begins like this";
            for (auto at = text.find(L"\\n"); at != std::wstring::npos; at = text.find(L"\\n", at))
                text.replace(at, 2, L"\n");
            gefunden = text;
        }
    EXPECT_NE(gefunden, L"") << "no text begins like " << toUtf8(anfang);
    return gefunden;
}

/// Expects that exactly this message box has been shown, with OK as its only button, and takes it away.
inline void erwarteMeldung(Bühne& b, MessageIcon zeichen, std::wstring_view titel, std::wstring_view text) {
    const std::vector<Message> gezeigt = std::exchange(b.backend.messages, {});
    ASSERT_EQ(gezeigt.size(), 1U);
    EXPECT_EQ(gezeigt[0].text, text);
    EXPECT_EQ(gezeigt[0].title, titel);
    EXPECT_EQ(gezeigt[0].icon, zeichen);
    EXPECT_EQ(gezeigt[0].buttons, MessageButtons::ok);
}

/// Title and end of the messages that refuse a data folder.
inline constexpr std::wstring_view unzulässig = L"Kein zulässiger Ordner für die Datenablage";
inline const std::wstring ablageregeln = ganz(L"' ist kein zulässiger Ordner");

} // namespace klopfmeise
