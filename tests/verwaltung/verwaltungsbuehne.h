#pragma once

#include "platform/richtext/rtf.h"
#include "tests/ausfallende_dateien.h"
#include "tests/buehne.h"
#include "verwaltung/befehle.h"

#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace klopfmeise {

/// What a command said and how it ended.
struct Lauf {
    Ausgang ausgang = Ausgang::gut;
    std::string aus;
    std::string fehler;
};

/// A sound data folder of 30 lessons with the class "Hasen" and the child "Mia", and the command beside it.
class Verwaltungsbühne {
public:
    Verwaltungsbühne() {
        std::string bild("BM\x36\0\0\0", 6);
        bild.resize(54);
        for (int i = 1; i <= 30; ++i) {
            const std::string name = "Lektion" + std::to_string(i);
            dateiSchreiben(daten() / "Data/Tastatur" / (name + ".txt"),
                           lektionstext(i < 20 ? "Einzeiler" : "Fließtext", {"fj", "jf", "ff"}));
            dateiSchreiben(daten() / "Data/Tastatur" / (name + ".bmp"), bild);
        }
        dateiSchreiben(daten() / "Data/Texte/Text_001.txt",
                       writeRtf(documentFromPlainText(L"Hallo").document));
        std::filesystem::create_directories(daten() / "Gruppen/Hasen");
        PosixFiles echte;
        for (const char* pfad : {"Gruppen/kme.ein", "Gruppen/Hasen/KME.ein"}) {
            Kontodatei datei(echte, logikpfad(daten() / pfad));
            for (int i = 1; i <= 100; ++i)
                datei.schreiben(i, std::int16_t{1});
            datei.schreibenText(106, L"Text_001.txt");
        }
        kontoMachen("Hasen/Mia");
        jetzt.tm_year = 126;
        jetzt.tm_mon = 10;
        jetzt.tm_mday = 23;
        jetzt.tm_hour = 16;
        jetzt.tm_min = 1;
        jetzt.tm_sec = 42;
    }

    std::filesystem::path daten() const { return ordner.pfad() / "Daten"; }
    std::filesystem::path konto(const std::string& name) const { return daten() / "Gruppen" / (name + "._"); }
    /// The account rested for an hour.
    void kontoMachen(const std::string& name) {
        PosixFiles echte;
        std::filesystem::create_directories(konto(name).parent_path());
        Kontodatei(echte, logikpfad(konto(name))).WerteSchreiben();
        using namespace std::chrono_literals;
        std::filesystem::last_write_time(konto(name), std::filesystem::file_time_type::clock::now() - 1h);
    }
    void setzen(const std::string& name, Kontosatz satz, const Wert& wert) {
        PosixFiles echte;
        Kontodatei(echte, logikpfad(konto(name))).schreiben(satz, wert);
    }
    Wert satz(const std::string& name, Kontosatz nummer) {
        PosixFiles echte;
        return Kontodatei(echte, logikpfad(konto(name))).lesen(nummer);
    }
    /// Every file of the data folder, by its path in it, and every folder, as a path with a slash behind it.
    std::map<std::string, std::string> alles() const {
        std::map<std::string, std::string> aus;
        for (const auto& eintrag : std::filesystem::recursive_directory_iterator(daten())) {
            const std::string pfad = eintrag.path().lexically_relative(daten()).string();
            if (eintrag.is_directory())
                aus[pfad + "/"];
            else
                aus[pfad] = dateiinhalt(eintrag.path());
        }
        return aus;
    }

    /// Calls the command; what is typed only counts where someone sits there.
    Lauf rufen(const std::vector<std::string>& worte, const std::string& eingabe = {}, bool mensch = false) {
        std::ostringstream aus;
        std::ostringstream fehler;
        std::istringstream ein(eingabe);
        Konsole konsole(aus, fehler, ein, mensch);
        Umfeld umfeld{dateien, konsole, jetzt, (ordner.pfad() / "Vorlage").string()};
        const Ausgang ausgang = verwalten(umfeld, worte);
        return {ausgang, aus.str(), fehler.str()};
    }

    Wegwerfordner ordner;
    AusfallendeDateien dateien;
    std::tm jetzt{};
};

} // namespace klopfmeise
