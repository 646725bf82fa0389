#pragma once

#include "verwaltung/ablage.h"
#include "verwaltung/aufruf.h"
#include "verwaltung/ausgang.h"

#include <span>
#include <string>
#include <string_view>

namespace klopfmeise {

/// A sub-command. Texts are UTF-8 for a person.
struct Befehl {
    std::string_view name;
    /// Names of its arguments, a blank between two.
    std::string_view orte;
    std::span<const Option> optionen;
    /// One line for the list of all.
    std::string_view kurz;
    /// Paragraphs for its own help, lines broken.
    std::string_view lang;
    Ausgang (*tun)(Umfeld& umfeld, const Aufruf& aufruf);
};

std::span<const Befehl> befehle();

/// Does what the words behind the name of the program say.
Ausgang verwalten(Umfeld& umfeld, std::span<const std::string> worte);

// The sub-commands, each in a file of its own.
Ausgang pruefen(Umfeld& umfeld, const Aufruf& aufruf);
Ausgang anlegen(Umfeld& umfeld, const Aufruf& aufruf);
Ausgang klasse(Umfeld& umfeld, const Aufruf& aufruf);
Ausgang konten(Umfeld& umfeld, const Aufruf& aufruf);
Ausgang umziehen(Umfeld& umfeld, const Aufruf& aufruf);
Ausgang bericht(Umfeld& umfeld, const Aufruf& aufruf);
Ausgang sichern(Umfeld& umfeld, const Aufruf& aufruf);
Ausgang zurueckspielen(Umfeld& umfeld, const Aufruf& aufruf);

} // namespace klopfmeise
