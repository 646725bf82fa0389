#include "verwaltung/ablage.h"

#include "platform/values/text.h"
#include "store/klassen.h"
#include "store/mdl_dir.h"
#include "verwaltung/rechte.h"

#include <algorithm>
#include <array>

namespace klopfmeise {

namespace {

std::wstring datum(const std::tm& zeit, const char* form) {
    std::array<char, 40> text{};
    const std::size_t länge = std::strftime(text.data(), text.size(), form, &zeit);
    return fromUtf8({text.data(), länge});
}

} // namespace

std::wstring Ablage::gezeigt(const std::wstring& pfad) const {
    const bool darunter = pfad.starts_with(global.Datenpfad) && pfad.size() > global.Datenpfad.size();
    return dateien().shown(darunter ? pfad.substr(global.Datenpfad.size()) : pfad);
}

std::wstring pfadAus(const Files& dateien, const std::string& ort) {
    std::wstring pfad = dateien.absolute(dateien.entered(fromUtf8(ort)));
    while (pfad.size() > 1 && pfad.ends_with(L'\\'))
        pfad.pop_back();
    return pfad;
}

std::string maschinenpfad(const Files& dateien, const std::wstring& pfad) {
    return toUtf8(dateien.shown(pfad));
}

std::optional<Ablage> ablageÖffnen(Umfeld& umfeld, const std::string& ort) {
    Files& dateien = umfeld.dateien;
    const std::wstring pfad = mitBackslash(pfadAus(dateien, ort));
    if (!dateien.folderExists(pfad)) {
        umfeld.konsole.fehler(L"Den Ordner " + fromUtf8(ort) + L" gibt es nicht, oder er ist nicht lesbar.");
        return std::nullopt;
    }
    for (const wchar_t* teil : {L"Data", L"Gruppen"})
        if (!dateien.listFolders(pfad + teil)) {
            umfeld.konsole.fehler(fromUtf8(ort) + L" ist keine Datenablage: Darin fehlt der Ordner " + teil +
                                  L", oder er ist nicht lesbar.");
            return std::nullopt;
        }
    Ablage ablage{umfeld, {}};
    ablage.global.Datenpfad = pfad;
    return ablage;
}

bool klasseWählen(Ablage& ablage, const std::string& name) {
    const std::wstring gesucht = fromUtf8(name);
    const auto klassen = klassenAuflisten(ablage.dateien(), ablage.global);
    auto gefunden = std::ranges::find(klassen, gesucht);
    if (gefunden == klassen.end())
        gefunden = std::ranges::find_if(klassen, [&](const auto& k) { return sameName(k, gesucht); });
    if (gefunden == klassen.end()) {
        ablage.umfeld.konsole.fehler(L"Die Klasse \"" + gesucht + L"\" gibt es nicht.");
        return false;
    }
    const std::wstring klasse = *gefunden + L"\\";
    if (!klasseZugänglich(ablage.dateien(), ablage.global, klasse)) {
        ablage.umfeld.konsole.fehler(L"Die Klasse \"" + gesucht +
                                     L"\" ist eine Verknüpfung, die aus der Datenablage hinausführen kann.");
        return false;
    }
    ablage.global.AktuelleKlasse = klasse;
    return true;
}

std::wstring klassenname(const Globale& global) {
    return global.AktuelleKlasse.substr(0, global.AktuelleKlasse.find(L'\\'));
}

std::wstring tag(const std::tm& zeit) { return datum(zeit, "%Y-%m-%d"); }
std::wstring zeitpunkt(const std::tm& zeit) { return datum(zeit, "%Y-%m-%d-%H%M%S"); }

bool bleibtImOrdner(std::wstring_view name) {
    return !name.empty() && name.front() != L'.' && std::ranges::none_of(name, [](wchar_t c) {
        return c < L' ' || c == L'/' || c == L'\\' || c == 0x7F;
    });
}

Beiseite::Beiseite(const Ablage& ablage)
    : ablage_(ablage) {}

bool Beiseite::legen(const std::wstring& pfad) {
    Files& dateien = ablage_.dateien();
    const std::wstring unterpfad = pfad.substr(ablage_.global.Datenpfad.size());
    const std::wstring ordner =
        ablage_.global.Datenpfad + L"Sicherung-" + zeitpunkt(ablage_.umfeld.jetzt) + L"\\";
    const std::wstring ziel = ordner + unterpfad;
    for (auto ende = ziel.find(L'\\', ordner.size() - 1); ende != std::wstring::npos;
         ende = ziel.find(L'\\', ende + 1))
        if (const std::wstring teil = ziel.substr(0, ende);
            !dateien.folderExists(teil) && dateien.makeFolder(teil))
            demOrdnerÜbereignen(dateien, ablage_.global.Datenpfad, teil);
    // What lies there already was copied before anything was changed.
    if (dateien.search(ziel).empty()) {
        if (!dateien.copyFile(pfad, ziel))
            return false;
        demOrdnerÜbereignen(dateien, ablage_.global.Datenpfad, ziel);
    }
    ordner_ = ordner;
    return true;
}

} // namespace klopfmeise
