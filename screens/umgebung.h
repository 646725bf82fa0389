#pragma once

#include "platform/forms/form_runtime.h"
#include "store/globale.h"

namespace klopfmeise {

/// What every screen is given: the runtime of the forms with its services, and the globals.
struct Umgebung {
    FormRuntime& runtime;
    Globale& global;

    Services& dienste() const { return runtime.services(); }
    Files& dateien() const { return runtime.services().files; }
    Clock& uhr() const { return runtime.services().clock; }
    wchar_t dezimalzeichen() const { return runtime.services().shell.decimalSign(); }

    /// Plays one of the program's sounds by file name and returns at once: how long it is heard, in
    /// milliseconds.
    int klang(std::wstring_view name) const {
        return dienste().sound.play(global.Programmpfad + L"wav\\" + std::wstring(name));
    }
};

} // namespace klopfmeise
