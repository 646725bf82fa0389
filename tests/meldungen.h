#pragma once

#include "tests/buehne.h"

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
inline const std::wstring ablageregeln =
    L"' ist kein zulässiger Ordner für die Datenablage.\n\nFür eine Datenablage kommt ausschließlich jener "
    L"Ordner in Frage, den Klopfmeise während der Installation standardmäßig in den von Windows dafür "
    L"vorgesehenen Ordner kopiert (bei Windows XP ist das z. B. 'C:\\Dokumente und Einstellungen\\All "
    L"Users\\Anwendungsdaten\\Klopfmeise\\', bei Vista ist es 'C:\\Program Data\\Klopfmeise\\.'), oder den "
    L"Sie als Anwender manuell an einem anderen Ort (z. B. 'C:\\Klopfmeise-Daten' oder "
    L"'\\\\server\\Klopfmeise-Daten') angelegt haben (z. B. durch Kopie des standardmäßigen Ordners). In "
    L"jedem Fall muss der Ordner für die Datenablage folgende Unterordner samt aller weiteren Unterordner "
    L"und Dateien besitzen: Data, Gruppen. Selbstverständlich ist dieser Ordner mit vollen Lese- und "
    L"Schreibrechten für alle Benutzer freizugeben.";

} // namespace klopfmeise
