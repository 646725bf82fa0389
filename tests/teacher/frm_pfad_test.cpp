#include "platform/controls/windowed.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

constexpr std::wstring_view erklärung =
    L"Für eine Datenablage kommt ausschließlich jener Ordner in Frage, den Klopfmeise während der "
    L"Installation standardmäßig in den von Windows dafür vorgesehenen Ordner kopiert (bei Windows XP ist "
    L"das z. B. 'C:\\Dokumente und Einstellungen\\All Users\\Anwendungsdaten\\Klopfmeise\\', bei Vista ist "
    L"es 'C:\\Program Data\\Klopfmeise\\.'), oder den Sie als Anwender manuell an einem anderen Ort (z. B. "
    L"'C:\\Klopfmeise-Daten' oder '\\\\server\\Klopfmeise-Daten') angelegt haben (z. B. durch Kopie des "
    L"standardmäßigen Ordners). In jedem Fall muss der Ordner für die Datenablage folgende Unterordner samt "
    L"aller weiteren Unterordner und Dateien besitzen: Data, Gruppen. Selbstverständlich ist dieser Ordner "
    L"mit vollen Lese- und Schreibrechten für alle Benutzer freizugeben.";

TEST(Ordnerschirm, ARefusedFolderIsTheOneThatIsSetOrTheOneThatWasNamed) {
    Bühne b;
    std::filesystem::remove(b.daten() / "Gruppen" / "kme.ein");
    b.start();
    ASSERT_EQ(b.aktiv(), L"frmPfad");
    b.control<TextBox>(L"txtPfadNeu").setText(L"/nirgends");
    b.user.click(L"cmdNeuerPfad");
    ASSERT_EQ(b.backend.messages.size(), 2U);
    const std::wstring ort = b.echteDateien.shown(b.global.Datenpfad);
    EXPECT_EQ(b.backend.messages[0].text, L"Der eingestellte Ordner '" + ort +
                                              L"' ist kein zulässiger Ordner für die Datenablage.\n\n" +
                                              std::wstring(erklärung));
    EXPECT_EQ(b.backend.messages[1].text, L"Der angegebene Ordner '/nirgends/' ist kein zulässiger Ordner "
                                          L"für die Datenablage.\n\n" +
                                              std::wstring(erklärung));
    EXPECT_FALSE(b.backend.quitAsked);
}

TEST(Ordnerschirm, AFolderThatCannotBeRegisteredAsksForAnAdministratorAndEndsTheProgram) {
    Bühne b;
    b.öffnen(L"frmPfad");
    b.registry.refuseWrite = true;
    b.control<TextBox>(L"txtPfadNeu").setText(b.echteDateien.shown(logikpfad(b.daten())));
    b.user.click(L"cmdNeuerPfad");
    ASSERT_EQ(b.backend.messages.size(), 1U);
    EXPECT_EQ(
        b.backend.messages[0].text,
        L"Sie müssen als Administrator angemeldet sein, um die von Ihnen gewünschte Einstellung vornehmen zu "
        L"können. Im Moment sind Sie lediglich als eingeschränkter Benutzer angemeldet bzw. als ein "
        L"Benutzer, der nicht über das Recht verfügt, Schreibvorgänge in der Windows-Registry vorzunehmen. "
        L"Wechseln Sie also den Windows-Benutzer und melden Sie sich als Administrator an und nehmen Sie die "
        L"von Ihnen gewünschte Einstellung erneut vor! KLOPFMEISE beendet sich jetzt automatisch.");
    EXPECT_EQ(b.backend.messages[0].title, L"Hinweis");
    EXPECT_EQ(b.backend.messages[0].icon, MessageIcon::information);
    EXPECT_TRUE(b.backend.quitAsked);
}

} // namespace
} // namespace klopfmeise
