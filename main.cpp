#include "formen.h"
#include "platform/machine/posix_files.h"
#include "platform/machine/reg_file.h"
#include "platform/machine/system_services.h"
#include "platform/qt/late_sound.h"
#include "platform/qt/qt_backend.h"
#include "platform/qt/qt_shell.h"
#include "screens/formnamen.h"
#include "screens/umgebung.h"

using namespace klopfmeise;

int main(int argc, char* argv[]) {
    QtBackend backend(argc, argv);
    SteadyClock clock;
    SystemRandom random;
    PosixFiles files;
    LateSound sound(files);
    RegFile registry(KLOPFMEISE_MASCHINE);
    QtShell shell(files, KLOPFMEISE_GEMEINSAM);

    FormRuntime runtime(backend, {clock, random, sound, files, registry, shell});
    backend.setRuntime(runtime);
    Globale global;
    formenEintragen({runtime, global});
    runtime.show(formname::frmStart);
    return backend.run();
}
