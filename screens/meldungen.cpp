#include "screens/meldungen.h"

namespace klopfmeise {

void datenablageAblehnen(const Umgebung& umgebung, std::wstring_view welcher, const std::wstring& ordner) {
    umgebung.runtime.message(
        {.text = L"Der " + std::wstring(welcher) + L" Ordner '" + umgebung.dateien().shown(ordner) +
                 L"' ist kein zulässiger Ordner für die Datenablage.\n\n"
                 L"Für eine Datenablage kommt ausschließlich jener Ordner in Frage, den Klopfmeise während "
                 L"der Installation standardmäßig in den von Windows dafür vorgesehenen Ordner kopiert (bei "
                 L"Windows XP ist das z. B. 'C:\\Dokumente und Einstellungen\\All "
                 L"Users\\Anwendungsdaten\\Klopfmeise\\', bei Vista ist es 'C:\\Program "
                 L"Data\\Klopfmeise\\.'), oder den Sie als Anwender manuell an einem anderen Ort (z. B. "
                 L"'C:\\Klopfmeise-Daten' oder '\\\\server\\Klopfmeise-Daten') angelegt haben (z. B. durch "
                 L"Kopie des standardmäßigen Ordners). In jedem Fall muss der Ordner für die Datenablage "
                 L"folgende Unterordner samt aller weiteren Unterordner und Dateien besitzen: Data, Gruppen. "
                 L"Selbstverständlich ist dieser Ordner mit vollen Lese- und Schreibrechten für alle "
                 L"Benutzer freizugeben.",
         .title = L"Kein zulässiger Ordner für die Datenablage",
         .icon = MessageIcon::stop});
}

void administratorVerlangen(const Umgebung& umgebung, std::wstring_view programm) {
    umgebung.runtime.message(
        {.text = L"Sie müssen als Administrator angemeldet sein, um die von Ihnen gewünschte Einstellung "
                 L"vornehmen zu können. Im Moment sind Sie lediglich als eingeschränkter Benutzer "
                 L"angemeldet bzw. als ein Benutzer, der nicht über das Recht verfügt, Schreibvorgänge "
                 L"in der Windows-Registry vorzunehmen. Wechseln Sie also den Windows-Benutzer und "
                 L"melden Sie sich als Administrator an und nehmen Sie die von Ihnen gewünschte "
                 L"Einstellung erneut vor! " +
                 std::wstring(programm) + L" beendet sich jetzt automatisch.",
         .title = L"Hinweis",
         .icon = MessageIcon::information});
}

} // namespace klopfmeise
