#pragma once

#include "platform/headless/headless_backend.h"
#include "platform/headless/headless_user.h"
#include "platform/machine/posix_files.h"
#include "screens/umgebung.h"
#include "store/kontodatei.h"

#include <filesystem>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace klopfmeise {

/// A folder in a temporary place that goes with the object.
class Wegwerfordner {
public:
    Wegwerfordner();
    ~Wegwerfordner();
    Wegwerfordner(const Wegwerfordner&) = delete;
    Wegwerfordner& operator=(const Wegwerfordner&) = delete;
    const std::filesystem::path& pfad() const { return pfad_; }

private:
    std::filesystem::path pfad_;
};

/// The path as the logic writes it.
std::wstring logikpfad(const std::filesystem::path& pfad);
std::string dateiinhalt(const std::filesystem::path& pfad);
void dateiSchreiben(const std::filesystem::path& pfad, std::string_view bytes);

/// A lesson file of one-line or flowing stages with these texts; titles and hints are made up.
std::string lektionstext(std::string_view art, const std::vector<std::string>& texte);

/// The whole program on the headless backend, on a data folder of its own with the class "Hasen" and the
/// child "Mia".
class Bühne {
public:
    /// `dateien` takes the place of the machine's files if given, `anderes` that of the headless backend.
    explicit Bühne(Files* dateien = nullptr, Backend* anderes = nullptr);

    /// Starts the process: splash, folder test, title page.
    void start();
    /// Class and child on the title page.
    void anmelden();
    /// From the title page to an exercise of the menu by its number.
    void zurÜbung(int nummer);
    /// Sets the globals as the title page would for class and child.
    void kindWählen();
    /// Straight to a screen, as the menu would open it.
    void öffnen(std::wstring_view form);

    std::filesystem::path daten() const { return ordner.pfad() / "Daten"; }
    std::filesystem::path konto() const { return daten() / "Gruppen" / "Hasen" / "Mia._"; }
    void lektion(int nummer, std::string_view art, const std::vector<std::string>& texte);
    void satz(Kontosatz satz, const Wert& wert);
    Wert satz(Kontosatz satz);
    /// The first bytes of a slot, as they stand in the file.
    std::string slot(int nummer, std::size_t bytes);

    std::wstring aktiv() const;
    template <class T>
    T& control(std::wstring_view name, int index = Control::noIndex) {
        Form* form = runtime.active();
        T* found = form ? form->find<T>(name, index) : nullptr;
        if (!found)
            throw std::logic_error("no such control on the active form");
        return *found;
    }
    std::wstring caption(std::wstring_view name, int index = Control::noIndex);
    /// The captions of these labels, a bar between two.
    std::wstring captions(std::initializer_list<std::wstring_view> namen);

    Wegwerfordner ordner;
    PosixFiles echteDateien;
    ManualClock clock;
    SeededRandom random;
    RecordedSound sound;
    ScriptedShell shell;
    MemoryRegistry registry;
    HeadlessBackend backend{clock};
    FormRuntime runtime;
    Globale global;
    Umgebung umgebung{runtime, global};
    HeadlessUser user{runtime, clock};
};

} // namespace klopfmeise
