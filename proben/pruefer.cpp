#include "proben/pruefwerte.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

// pruefer BEFORE NOW DIARY... reads a data folder as it was and as it is, and the diaries of all who wrote in
// between, and says what cannot be. It shares no code with the program and knows its files from their
// description alone.
// --abschuss: writers may have died in the middle of something. --netz: a read may give what was there
// before.

using namespace proben;

namespace {

namespace fs = std::filesystem;

struct Datei {
    /// It is there, or not: whoever made or took it died over it.
    bool vielleicht = false;
    std::string anfang = {};
    std::vector<Wert> sätze = {};
    std::vector<Wert> gelesen = {};
    /// As a whole, by its mark.
    std::vector<Wert> fassungen = {};
    std::vector<Wert> geladen = {};
    /// By the number of the record: what its player saw last.
    std::map<int, double> erwartet = {};
};

struct Zeile {
    double zeit = 0;
    char art = 0;
    double ende = nie;
    bool gut = false;
    int wer = 0;
    /// The path first.
    std::vector<std::string> felder = {};
};

class Prüfer {
public:
    Prüfer(const fs::path& vorher, fs::path jetzt, bool abschuss, bool netz)
        : jetzt_(std::move(jetzt))
        , abschuss_(abschuss)
        , netz_(netz) {
        for (const auto& eintrag : fs::recursive_directory_iterator(vorher)) {
            const std::string name = fs::relative(eintrag.path(), vorher).string();
            if (eintrag.is_directory())
                ordner_[name] = true;
            else
                anlegen(name, inhalt(eintrag.path()));
        }
    }

    void lesen(const fs::path& tagebuch, int wer) {
        std::map<std::string, std::size_t> offen;
        std::ifstream in(tagebuch, std::ios::binary);
        for (std::string text; std::getline(in, text) && !in.eof();) {
            std::vector<std::string> felder;
            std::istringstream teile(text);
            for (std::string feld; std::getline(teile, feld, '\t');)
                felder.push_back(feld);
            const double zeit = std::stod(felder.at(1));
            const bool spanne = text[0] == 'L' || text[0] == 'V';
            if (text[0] == '>') {
                Zeile& beginn = zeilen_[offen.at(felder.at(2))];
                beginn.ende = zeit;
                beginn.gut = felder.at(3) == "1";
                offen.erase(felder[2]);
                continue;
            }
            const bool beginn = text[0] == '<';
            if (beginn)
                offen[felder.at(2)] = zeilen_.size();
            Zeile zeile{zeit, beginn ? felder.at(3)[0] : text[0], nie, false, wer};
            if (spanne)
                zeile.ende = std::stod(felder.at(2));
            zeile.felder.assign(felder.begin() + (beginn ? 4 : spanne ? 3 : 2), felder.end());
            zeile.felder.resize(3);
            zeilen_.push_back(std::move(zeile));
        }
        for (const auto& [nummer, stelle] : offen)
            unfertig_ += zeilen_[stelle].art;
        if (!offen.empty() && !abschuss_)
            fehler(tagebuch.string() + ": nicht zu Ende geführt");
    }

    int urteilen() {
        std::ranges::stable_sort(zeilen_, {}, &Zeile::zeit);
        for (const Zeile& zeile : zeilen_)
            if (!zeile.felder[0].starts_with('/'))
                anwenden(zeile);
        ordnerVergleichen();
        for (const auto& [name, datei] : dateien_)
            if (fs::exists(jetzt_ / name))
                dateiPrüfen(name, *datei);
        std::printf("%zu Werte und %zu Texte geschrieben, %zu Werte und %zu Dateien gelesen; %d Dateien von "
                    "einer Maschine "
                    "(auf das Byte geprüft), %d von mehreren, %d Erwartungen; unfertig=%s neu=%d "
                    "entwürfe=%d; %d Fehler\n",
                    geschrieben_, texte_, gelesen_, geladen_, einzelne_, gemeinsame_, erwartungen_,
                    unfertig_.c_str(), angewandt_, entwürfe_, fehler_);
        return fehler_ == 0 ? 0 : 1;
    }

private:
    using Zeiger = std::shared_ptr<Datei>;

    /// By how many seconds the clocks of machines on a network may differ.
    double uneins() const { return netz_ ? 2 : 0; }
    void fehler(const std::string& was) {
        if (++fehler_ <= 20)
            std::printf("FEHLER %s\n", was.c_str());
    }

    Datei& anlegen(const std::string& name, std::string bytes) {
        Zeiger& datei = dateien_[name] = std::make_shared<Datei>();
        datei->fassungen.push_back({.bytes = kennung(bytes)});
        datei->anfang = std::move(bytes);
        return *datei;
    }
    /// A file that is not there comes into being, perhaps.
    Datei& datei(const std::string& name) {
        const auto gefunden = dateien_.find(name);
        if (gefunden != dateien_.end())
            return *gefunden->second;
        Datei& neue = anlegen(name, "");
        neue.vielleicht = true;
        return neue;
    }

    void anwenden(const Zeile& zeile) {
        const auto& [zeit, art, ende, gut, wer, felder] = zeile;
        const std::string& name = felder[0];
        const bool unfertig = ende == nie;
        const bool misslungen = !unfertig && !gut;
        Wert wert{.von = zeit, .bis = ende, .sicher = gut, .bytes = felder[1], .wer = wer};
        switch (art) {
        case 'O':
            datei(name);
            break;
        case 'F':
            fehler(name + " ließ sich nicht öffnen");
            break;
        case 'E':
            datei(name).erwartet[std::stoi(felder[1])] = std::stod(felder[2]);
            break;
        case 'L':
            wert.ort = std::stoul(felder[1]);
            wert.bytes = ausHex(felder[2]);
            if (felder[2] == "-")
                fehler(name + " ließ sich nicht lesen");
            else
                datei(name).gelesen.push_back(std::move(wert));
            ++gelesen_;
            break;
        case 'V':
            datei(name).geladen.push_back(std::move(wert));
            ++geladen_;
            break;
        case 'W':
            wert.ort = std::stoul(felder[1]);
            wert.bytes = ausHex(felder[2]);
            datei(name).vielleicht &= !gut;
            datei(name).sätze.push_back(std::move(wert));
            ++geschrieben_;
            break;
        case 'T':
            datei(name).vielleicht &= !gut;
            datei(name).fassungen.push_back(std::move(wert));
            ++texte_;
            break;
        case 'C':
            anlegen(name, vorlage(felder[1])).vielleicht = !gut;
            break;
        case 'D':
            if (gut)
                dateien_.erase(name);
            else if (unfertig && dateien_.contains(name))
                dateien_[name]->vielleicht = true;
            break;
        case 'M':
        case 'X':
            if (unfertig)
                ordner_[name] = false;
            else if (gut && art == 'M')
                ordner_[name] = true;
            else if (gut)
                ordner_.erase(name);
            break;
        case 'R':
            if (gut || (unfertig && fs::exists(jetzt_ / felder[1]) && !fs::exists(jetzt_ / name)))
                umbenennen(name, felder[1]);
            break;
        default:
            fehler("unbekannte Zeile");
        }
        if (misslungen && std::string_view("WTCMRX").find(art) != std::string_view::npos)
            fehler(name + ": Vorgang " + art + " misslang");
    }

    /// The program finds a name without regard to case.
    std::string vorlage(const std::string& name) {
        const auto klein = [](std::string text) {
            std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
            return text;
        };
        for (const auto& [andere, datei] : dateien_)
            if (klein(andere) == klein(name))
                return datei->anfang;
        fehler("keine Vorlage " + name);
        return {};
    }

    void umbenennen(const std::string& von, const std::string& nach) {
        const std::string unter = von + "/";
        std::map<std::string, Zeiger> andere;
        for (auto& [name, datei] : dateien_)
            andere[name.starts_with(unter) ? nach + name.substr(von.size()) : name] = datei;
        dateien_ = std::move(andere);
        ordner_.erase(von);
        ordner_[nach] = true;
    }

    void ordnerVergleichen() {
        for (const auto& eintrag : fs::recursive_directory_iterator(jetzt_)) {
            const std::string name = fs::relative(eintrag.path(), jetzt_).string();
            if (eintrag.is_directory() ? ordner_.contains(name) : dateien_.contains(name))
                continue;
            // What a dead writer was about to put in the place of another file.
            if (abschuss_ && eintrag.path().filename().string().starts_with(".klopfmeise-"))
                ++entwürfe_;
            else
                fehler(name + " gehört nicht hierher");
        }
        for (const auto& [name, sicher] : ordner_)
            if (sicher && !fs::is_directory(jetzt_ / name))
                fehler("der Ordner " + name + " fehlt");
        for (const auto& [name, datei] : dateien_)
            if (!datei->vielleicht && !fs::exists(jetzt_ / name))
                fehler(name + " fehlt");
        if (entwürfe_ > static_cast<int>(unfertig_.size()))
            fehler("mehr Entwürfe, als unterbrochen wurden");
    }

    void dateiPrüfen(const std::string& name, const Datei& datei) {
        const std::string da = inhalt(jetzt_ / name);
        const bool konto = name.ends_with("._");
        const Verlauf fassungen(datei.fassungen);
        for (const Wert& text : datei.geladen)
            if (!fassungen.möglich(text.bytes, netz_ ? -nie : text.von, netz_ ? nie : text.bis))
                fehler(name + ": gelesen wurde " + text.bytes + ", was niemand schrieb");
        if (!konto && !name.ends_with("KME.ein")) {
            if (!fassungen.möglich(kennung(da), nie, nie, uneins()))
                fehler(name + " ist keine der Fassungen: " + kennung(da));
            return;
        }
        wertebereich(name, da, konto);
        sätzeLesen(name, datei);
        if (datei.sätze.empty())
            return da == datei.anfang ? void() : fehler(name + " hat sich geändert");
        const int wer = datei.sätze.front().wer;
        if (!std::ranges::all_of(datei.sätze, [&](const Wert& wert) { return wert.wer == wer; })) {
            ++gemeinsame_;
            return gemeinsamePrüfen(name, datei, da);
        }
        ++einzelne_;
        einzelnePrüfen(name, datei, da);
        for (const auto& [satz, wert] : datei.erwartet) {
            ++erwartungen_;
            const auto steht = zahl(da.substr(static_cast<std::size_t>(satz - 1) * satzlänge, satzlänge));
            if (!abschuss_ && steht != wert)
                fehler(name + ", Satz " + std::to_string(satz) + ": erwartet war " + std::to_string(wert) +
                       ", da steht " + std::to_string(steht.value_or(-1)));
        }
    }

    void wertebereich(const std::string& name, const std::string& da, bool konto) {
        for (int satz = 1; satz <= 100 && !da.empty(); ++satz) {
            const auto anfang = static_cast<std::size_t>(satz - 1) * satzlänge;
            const auto wert = anfang < da.size() ? zahl(da.substr(anfang, satzlänge)) : std::nullopt;
            if (!wert || !erlaubt(konto, satz, *wert))
                fehler(name + ", Satz " + std::to_string(satz) +
                       " außerhalb: " + std::to_string(wert.value_or(-1)));
        }
        if (const std::string text = da.size() > 105 * satzlänge ? da.substr(105 * satzlänge) : std::string();
            !konto && (text.size() < 2 || !text.substr(2, zahlBei<std::uint16_t>(text, 0)).ends_with(".txt")))
            fehler(name + ", Satz 106 nennt keinen Text");
    }

    static std::vector<Wert> verlaufVon(const Datei& datei, std::size_t anfang) {
        std::vector<Wert> werte;
        werte.push_back({.bytes = datei.anfang.substr(std::min(anfang, datei.anfang.size()), satzlänge)});
        for (const Wert& wert : datei.sätze)
            if (wert.ort <= anfang && anfang < wert.ort + wert.bytes.size()) {
                werte.push_back(
                    {wert.von, wert.bis, wert.sicher, wert.bytes.substr(anfang - wert.ort, satzlänge)});
            }
        return werte;
    }

    void sätzeLesen(const std::string& name, const Datei& datei) {
        std::map<std::size_t, std::vector<const Wert*>> nachOrt;
        for (const Wert& wert : datei.gelesen)
            nachOrt[wert.ort].push_back(&wert);
        for (const auto& [ort, gelesen] : nachOrt) {
            const Verlauf verlauf(verlaufVon(datei, ort));
            for (const Wert* wert : gelesen)
                if (!verlauf.möglich(wert->bytes, netz_ ? -nie : wert->von, netz_ ? nie : wert->bis))
                    fehler(name + ", Satz " + std::to_string(ort / satzlänge + 1) +
                           ": gelesen wurde, was nicht da war");
        }
    }

    void einzelnePrüfen(const std::string& name, const Datei& datei, const std::string& da) {
        std::string soll = datei.anfang;
        int neue = 0;
        bool richtig = false;
        for (const Wert& wert : datei.sätze) {
            // Of what its writer did not finish any beginning may be there, each write as a whole.
            if (!wert.sicher && soll == da) {
                richtig = true;
                break;
            }
            neue += !wert.sicher;
            soll.resize(std::max(soll.size(), wert.ort + wert.bytes.size()), '\0');
            soll.replace(wert.ort, wert.bytes.size(), wert.bytes);
        }
        angewandt_ += neue;
        if (richtig || soll == da)
            return;
        const auto ort = std::ranges::mismatch(soll, da).in1 - soll.begin();
        fehler(name + ": Länge " + std::to_string(da.size()) + " statt " + std::to_string(soll.size()) +
               ", zuerst anders in Satz " + std::to_string(static_cast<std::size_t>(ort) / satzlänge + 1));
    }

    void gemeinsamePrüfen(const std::string& name, const Datei& datei, const std::string& da) {
        std::size_t kürzeste = datei.anfang.size();
        std::size_t längste = kürzeste;
        for (const Wert& wert : datei.sätze) {
            längste = std::max(längste, wert.ort + wert.bytes.size());
            if (wert.sicher)
                kürzeste = std::max(kürzeste, wert.ort + wert.bytes.size());
        }
        if (da.size() < kürzeste || da.size() > längste)
            fehler(name + " ist " + std::to_string(da.size()) + " Bytes lang");
        for (std::size_t ort = 0; ort < da.size(); ort += satzlänge)
            if (!Verlauf(verlaufVon(datei, ort))
                     .möglich(std::string_view(da).substr(ort, satzlänge), nie, nie, uneins()))
                fehler(name + ", Satz " + std::to_string(ort / satzlänge + 1) +
                       " ist nicht, was zuletzt geschrieben wurde");
    }

    fs::path jetzt_;
    bool abschuss_;
    bool netz_;
    std::map<std::string, Zeiger> dateien_;
    /// False: its maker or taker died over it.
    std::map<std::string, bool> ordner_;
    std::vector<Zeile> zeilen_;
    /// The kinds of what was not finished.
    std::string unfertig_;
    std::size_t geschrieben_ = 0;
    std::size_t texte_ = 0;
    std::size_t gelesen_ = 0;
    std::size_t geladen_ = 0;
    int einzelne_ = 0;
    int gemeinsame_ = 0;
    int erwartungen_ = 0;
    int angewandt_ = 0;
    int entwürfe_ = 0;
    int fehler_ = 0;
};

} // namespace

int main(int zahl, char** worte) {
    std::vector<std::string> ordner(worte + 1, worte + zahl);
    const bool abschuss = std::erase(ordner, "--abschuss") > 0;
    const bool netz = std::erase(ordner, "--netz") > 0;
    if (ordner.size() < 2) {
        std::fputs("pruefer [--abschuss] [--netz] VORHER JETZT TAGEBUCH...\n", stderr);
        return 2;
    }
    Prüfer prüfer(ordner[0], ordner[1], abschuss, netz);
    for (std::size_t i = 2; i < ordner.size(); ++i)
        prüfer.lesen(ordner[i], static_cast<int>(i));
    return prüfer.urteilen();
}
