#pragma once

#include "formen.h"
#include "platform/headless/headless_backend.h"
#include "platform/headless/headless_user.h"
#include "platform/machine/posix_files.h"
#include "platform/machine/reg_file.h"
#include "proben/tagebuch.h"
#include "screens/formnamen.h"
#include "screens/umgebung.h"

#include <chrono>
#include <string>
#include <thread>

namespace klopfmeise {

/// A sound that nobody hears and that leaves nothing behind.
class Stille final : public Sound {
public:
    int play(const std::wstring& /*path*/) override { return 100; }
};

/// The program on one machine of a school: the real screens and the real files, but time and screen are those
/// of the tests. It has its own machine-wide values, as each machine has.
class Maschine {
public:
    struct Lage {
        /// With its closing slash.
        std::string daten;
        std::string werte;
        std::string tagebuch;
        bool wanduhr = false;
        unsigned saat = 1;
        /// How many times faster than a school's the clock runs; 0: waiting takes no time.
        double tempo = 0;
    };

    explicit Maschine(const Lage& lage)
        : random(lage.saat)
        , tagebuch(lage.tagebuch, lage.wanduhr)
        , dateien(echteDateien, tagebuch, lage.daten)
        , registry(lage.werte)
        , tempo_(lage.tempo) {
        backend.duringWait = [this](int dauer) {
            if (gewartet)
                gewartet();
            ruhen(dauer);
        };
        formenEintragen({runtime, global});
    }

    /// From the splash to the title page; false if the program ended instead.
    bool starten() {
        runtime.show(formname::frmStart);
        return !runtime.ended() && aktiv() == formname::Lern1;
    }
    std::wstring_view aktiv() const { return runtime.active() ? runtime.active()->name() : L""; }
    /// A control of the active form; null if there is none of this name.
    template <class T>
    T* finden(std::wstring_view name, int index = Control::noIndex) {
        return runtime.active() ? runtime.active()->find<T>(name, index) : nullptr;
    }
    template <class T>
    std::wstring aufschrift(std::wstring_view name, int index = Control::noIndex) {
        T* gefunden = finden<T>(name, index);
        return gefunden ? gefunden->caption() : std::wstring();
    }
    /// False if there is no such control, or nobody can get at it.
    bool klicken(std::wstring_view name, int index = Control::noIndex) {
        Control* gefunden = runtime.active() ? runtime.active()->find(name, index) : nullptr;
        const bool erreichbar = gefunden && gefunden->reachable();
        if (erreichbar)
            user.click(*gefunden);
        return erreichbar;
    }
    void vergehen(int millisekunden) {
        ruhen(millisekunden);
        user.pass(millisekunden);
        backend.log.clear();
        backend.messages.clear();
    }

    ManualClock clock;
    SeededRandom random;
    Stille sound;
    PosixFiles echteDateien;
    Tagebuch tagebuch;
    Mitschreiber dateien;
    ScriptedShell shell;
    RegFile registry;
    HeadlessBackend backend{clock};
    FormRuntime runtime{backend, {clock, random, sound, dateien, registry, shell}};
    Globale global;
    HeadlessUser user{runtime, clock};
    /// Called at each wait of the program.
    std::function<void()> gewartet;

private:
    void ruhen(int millisekunden) const {
        if (tempo_ > 0)
            std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(millisekunden / tempo_));
    }
    double tempo_;
};

} // namespace klopfmeise
