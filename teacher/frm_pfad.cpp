#include "teacher/frm_pfad.h"

#include "screens/formnamen.h"
#include "screens/meldungen.h"
#include "store/mdl_dir.h"
#include "store/mdl_registry.h"

namespace klopfmeise {

frmPfad::frmPfad(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::frmPfad,
           {.kind = FormKind::window,
            .caption = L"Datenablage",
            .width = 10920,
            .height = 7140,
            .back = colors::paleGrey})
    , umgebung_(umgebung) {}

void frmPfad::Form_Load() {
    centre();
    umgebung_.global.Datenpfad = DatenablageLesen(umgebung_.dienste());
    lblPfadAktuell.setCaption(gezeigt(umgebung_.global.Datenpfad));
    txtPfadNeu.setText(L"");
}

void frmPfad::warnung() {
    runtime().message(
        {.text = L"ACHTUNG: Sollten Sie  Windows Vista oder Windows Server 2008 als Betriebssystem "
                 L"verwenden, dann ist die Datenablage-Einstellung, die Sie im Begriff sind vorzunehmen, "
                 L"AUSSCHLIEßLICH dann möglich, wenn KLOPFMEISE von Ihnen wie folgt gestartet wurde: Rechte "
                 L"(!) Maustaste auf KLOPFMEISE.EXE (im Installationsordner von KLOPFMEISE) und dann 'Als "
                 L"Administrator ausführen'. Haben Sie KLOPFMEISE so nicht gestartet (z. B. durch den "
                 L"normalen Doppelklick auf das Programmsymbol), beenden Sie jetzt KLOPFMEISE, starten Sie "
                 L"sie entsprechend dieser Vorgaben erneut, navigieren Sie sich wieder in das hiesige "
                 L"Datenablage-Menü und stellen Sie sodann die Datenablage wie gewünscht ein.",
         .title = L"Datenablage",
         .icon = MessageIcon::information});
}

void frmPfad::cmdApiPfad_Click() {
    warnung();
    Text1.setText(gezeigt(umgebung_.dienste().shell.commonDataFolder() + L"\\Klopfmeise\\"));
    txtPfadNeu.setText(Text1.text());
}

void frmPfad::cmdBrowse_Click() {
    warnung();
    txtPfadNeu.setText(L"");
    const std::wstring gewählt = umgebung_.dienste().shell.chooseFolder(L"Browse for Folder");
    if (!gewählt.empty())
        txtPfadNeu.setText(gezeigt(gewählt));
}

void frmPfad::cmdExplorer_Click() { umgebung_.dienste().shell.showFolder(umgebung_.global.Datenpfad); }

void frmPfad::cmdPfad_Click() { txtPfadNeu.setText(gezeigt(umgebung_.global.Programmpfad)); }

void frmPfad::cmdNeuerPfad_Click() {
    Files& dateien = umgebung_.dateien();
    const std::wstring neu = mitBackslash(dateien.entered(txtPfadNeu.text()));
    txtPfadNeu.setText(gezeigt(neu));
    if (!zulässigeDatenablage(dateien, neu)) {
        datenablageAblehnen(umgebung_, L"angegebene", neu);
        return;
    }
    // A relative path would be another folder at the next start.
    umgebung_.global.Datenpfad = mitBackslash(dateien.absolute(neu));
    lblPfadAktuell.setCaption(gezeigt(umgebung_.global.Datenpfad));
    OrdnerÜbernehmen();
}

void frmPfad::OrdnerÜbernehmen() {
    const RegistryStatus status = RegistrySchreiben(umgebung_.dienste().registry, Maschine, Programmschlüssel,
                                                    L"Datenablage", umgebung_.global.Datenpfad, true, true);
    if (status == RegistryStatus::success)
        runtime().message(
            {.text = L"Der neue Ordner für die Datenablage wurde erfolgreich in KLOPFMEISE eingebunden. "
                     L"KLOPFMEISE wird jetzt beendet und kann sofort wieder neu gestartet werden.",
             .title = L"Datenablage",
             .icon = MessageIcon::information});
    else
        administratorVerlangen(umgebung_, L"KLOPFMEISE");
    runtime().end();
}

} // namespace klopfmeise
