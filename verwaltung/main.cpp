// klopfmeise-verwaltung: data folders, for administrators.

#include "platform/machine/posix_files.h"
#include "platform/values/text.h"
#include "verwaltung/befehle.h"

#include <exception>
#include <iostream>
#include <unistd.h>
#include <vector>

using namespace klopfmeise;

int main(int argc, char* argv[]) {
    PosixFiles dateien;
    Konsole konsole(std::cout, std::cerr, std::cin, ::isatty(STDIN_FILENO) == 1);
    Umfeld umfeld{dateien, konsole, {}, KLOPFMEISE_VORLAGE};
    const std::time_t jetzt = std::time(nullptr);
    ::localtime_r(&jetzt, &umfeld.jetzt);
    Ausgang ausgang = Ausgang::unzugänglich;
    try {
        const std::vector<std::string> worte(argv + (argc > 0 ? 1 : 0), argv + argc);
        ausgang = verwalten(umfeld, worte);
    } catch (const std::exception& fehler) {
        konsole.fehler(L"Abgebrochen: " + fromUtf8(fehler.what()));
    }
    std::cout.flush();
    if (!konsole.gut()) {
        konsole.fehler(L"Die Ausgabe konnte nicht geschrieben werden.");
        ausgang = Ausgang::unzugänglich;
    }
    return static_cast<int>(ausgang);
}
