#include "platform/values/text.h"
#include "proben/lehrkraft.h"
#include "screens/uebungen.h"

#include <chrono>
#include <cstdio>
#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

// One machine of a school: children, a teacher, or what a killer wants to interrupt. README.md tells the
// options.

namespace klopfmeise {
namespace {

struct Auftrag {
    std::map<std::string, std::string> wert;
    std::vector<std::wstring> klassen;
    std::vector<std::pair<std::wstring, std::wstring>> kinder;

    Auftrag(int zahl, char** worte) {
        for (int i = 1; i + 1 < zahl; i += 2) {
            const std::string name = worte[i];
            const std::wstring text = fromUtf8(worte[i + 1]);
            if (name == "--klasse")
                klassen.push_back(text);
            else if (const auto strich = text.find(L'/'); name == "--kind" && strich != text.npos)
                kinder.emplace_back(text.substr(0, strich), text.substr(strich + 1));
            else
                wert[name] = worte[i + 1];
        }
        if (daten().empty() || wert["--werte"].empty())
            throw std::runtime_error("--daten and --werte are missing");
    }
    std::string daten() { return wert["--daten"]; }
    double zahl(const std::string& name, double sonst) {
        return wert.contains(name) ? std::stod(wert[name]) : sonst;
    }
    Maschine::Lage lage() {
        return {.daten = daten() + "/",
                .werte = wert["--werte"],
                .tagebuch = wert["--tagebuch"],
                .wanduhr = zahl("--wanduhr", 0) > 0,
                .saat = static_cast<unsigned>(zahl("--saat", 1)),
                .tempo = zahl("--tempo", 0)};
    }
};

using Schritt = std::function<void(Schulkind& kind)>;

/// What is done over and over; the names are those of `--nur`.
Schritt schritt(const std::string& nur, Würfel& würfel, Lehrkraft& lehrkraft, const std::wstring& klasse) {
    const std::map<std::string, Schritt> alle{
        {"", [](Schulkind& kind) { kind.irgendwas(); }},
        {"tippen", [](Schulkind& kind) { kind.kurs(300, 15); }},
        {"stufe", [](Schulkind& kind) { kind.kurs(2000, 0); }},
        {"spiel", [&](Schulkind& kind) { kind.spiel(ÜbungBand - würfel.bis(2), 300, 15); }},
        {"fertig", [](Schulkind& kind) { kind.text(1500, 5); }},
        {"text", [&](Schulkind&) { lehrkraft.texte(klasse, 40); }},
        {"umbenennen", [&](Schulkind&) { lehrkraft.eigeneKlasse(); }},
        {"konten", [&](Schulkind&) { lehrkraft.konten(klasse); }},
        {"lehrkraft", [&](Schulkind&) { lehrkraft.irgendwas(); }},
    };
    return alle.at(nur);
}

int spielen(Auftrag auftrag) {
    using Uhr = std::chrono::steady_clock;
    const auto ende = Uhr::now() + std::chrono::duration<double>(auftrag.zahl("--sekunden", 1));
    const std::string nur = auftrag.wert["--nur"];
    Würfel würfel(static_cast<unsigned>(auftrag.zahl("--saat", 1)));
    bool hier = true;
    while (Uhr::now() < ende) {
        Maschine m(auftrag.lage());
        if (!m.starten())
            throw std::runtime_error("the program does not start");
        Spielplatz platz{m, würfel, [&] { return Uhr::now() < ende && !m.runtime.ended(); }};
        Lehrkraft lehrkraft(platz, auftrag.klassen, fromUtf8(auftrag.wert["--eigene"]));
        if (nur == "ablage") {
            lehrkraft.ablage(hier ? auftrag.wert["--andere"] : auftrag.daten());
            if (!m.runtime.ended())
                throw std::runtime_error("the other folder was not taken");
            hier = !hier;
            continue;
        }
        const auto& klassen = auftrag.klassen;
        const Schritt tun = schritt(nur, würfel, lehrkraft, klassen.empty() ? L"" : klassen.front());
        std::deque<Schulkind> kinder;
        for (const auto& [klasse, name] : auftrag.kinder)
            kinder.emplace_back(platz, klasse, name);
        if (kinder.empty())
            kinder.emplace_back(platz, L"", L"");
        while (platz.weiter())
            tun(kinder[static_cast<std::size_t>(würfel.bis(static_cast<int>(kinder.size())))]);
        platz.zurTitelseite();
    }
    return 0;
}

} // namespace
} // namespace klopfmeise

int main(int zahl, char** worte) {
    try {
        return klopfmeise::spielen({zahl, worte});
    } catch (const std::exception& fehler) {
        std::fprintf(stderr, "spieler: %s\n", fehler.what());
        return 2;
    }
}
