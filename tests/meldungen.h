#pragma once

#include "tests/texte.h"

#include <gtest/gtest.h>

namespace klopfmeise {

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
