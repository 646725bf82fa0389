#include "front/start.h"

#include "screens/formnamen.h"
#include "screens/meldungen.h"
#include "store/mdl_dir.h"

namespace klopfmeise {

frmStart::frmStart(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::frmStart,
           {.kind = FormKind::splash,
            .caption = L"Klopfmeise starten...",
            .width = 7200,
            .height = 4650,
            .back = colors::black})
    , umgebung_(umgebung) {}

void frmStart::Form_Activate() {
    FormRuntime& ablauf = runtime();
    Globale& global = umgebung_.global;
    Services& dienste = umgebung_.dienste();

    if (dienste.shell.secondInstance()) {
        ablauf.message({.text = L"KLOPFMEISE kann nur einmal gestartet werden. Da diese KLOPFMEISE-Anwendung "
                                L"bereits die zweite ist, wird diese jetzt automatisch beendet.",
                        .title = L"Klopfmeise"});
        ablauf.end();
        return;
    }
    global.Programmpfad = dienste.shell.programFolder() + L"\\";
    global.Datenpfad = DatenablageLesen(dienste);
    // Where the folder lies on a slow server, the splash is seen meanwhile.
    bool zulässig = false;
    ablauf.work([&] { zulässig = zulässigeDatenablage(dienste.files, global.Datenpfad); });
    if (!zulässig) {
        datenablageAblehnen(umgebung_, L"eingestellte", global.Datenpfad);
        ablauf.unload(*this);
        ablauf.unload(formname::frmTemp);
        ablauf.show(formname::frmPfad);
        return;
    }
    if (!LZF75Test())
        return;
    ablauf.unload(*this);
    ablauf.show(formname::frmTemp);
    ablauf.show(formname::Lern1);
}

bool frmStart::LZF75Test() {
    const std::wstring& Datenpfad = umgebung_.global.Datenpfad;
    bool geschrieben = false;
    runtime().work([&] { geschrieben = schreibprobe(umgebung_.dateien(), Datenpfad); });
    if (geschrieben)
        return true;
    runtime().message(
        {.text = L"Schreibrecht für Datenablage nicht gegeben!\n\nDer momentan angemeldete Windows-Benutzer "
                 L"kann innerhalb des aktuell eingestellten Datenablage-Ordners '" +
                 umgebung_.dateien().shown(Datenpfad) +
                 L"' nicht schreiben. Entweder ist dieser Ordner schreibgeschützt, oder er ist für den "
                 L"Schreibzugriff im Netzwerk nicht freigegeben, oder der momentan angemeldete Benutzer "
                 L"verfügt nicht über die nötige Schreib-Berechtigung in diesem Ordner.\n\nKLOPFMEISE wird "
                 L"jetzt beendet. Sie sollten sich anschließend als Administrator neu unter Windows anmelden "
                 L"und danach KLOPFMEISE erneut starten, um dann die Datenablage im Lehrkraft-Modus von "
                 L"KLOPFMEISE neu einstellen zu können.",
         .title = L"Hinweis zur Datenablage",
         .icon = MessageIcon::stop});
    runtime().end();
    return false;
}

} // namespace klopfmeise
