#include "formen.h"
#include "platform/machine/posix_files.h"
#include "platform/machine/reg_file.h"
#include "platform/machine/system_services.h"
#include "platform/qt/late_sound.h"
#include "platform/qt/qt_backend.h"
#include "platform/qt/qt_shell.h"
#include "proben/tagebuch.h"
#include "screens/formnamen.h"
#include "screens/umgebung.h"

#include <filesystem>

// The program in its real window as main.cpp composes it, with a diary of its files. Folder and diary lie
// where it is started: `Daten`, `tagebuch`, `maschine.reg`.

using namespace klopfmeise;

int main(int argc, char* argv[]) {
    QtBackend backend(argc, argv);
    SteadyClock clock;
    SystemRandom random;
    PosixFiles machineFiles;
    Tagebuch tagebuch("tagebuch");
    Mitschreiber files(machineFiles, tagebuch, (std::filesystem::current_path() / "Daten").string() + "/");
    LateSound sound(files);
    RegFile registry("./maschine.reg");
    QtShell shell(files, KLOPFMEISE_GEMEINSAM);

    FormRuntime runtime(backend, {clock, random, sound, files, registry, shell});
    backend.setRuntime(runtime);
    Globale global;
    formenEintragen({runtime, global});
    runtime.show(formname::frmStart);
    return backend.run();
}
